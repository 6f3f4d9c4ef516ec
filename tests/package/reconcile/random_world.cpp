#include "tests/package/reconcile/random_world.h"

namespace deployment {
namespace {

constexpr const char* AllNames[] = {"Win32",       "Win64",       "OSX32",  "iOSSimulator",
                                    "iOSDevice32", "iOSDevice64", "Android"};

} // namespace

TRandomWorld::TRandomWorld(unsigned seed) : FRandom(seed) {
  AddPlatforms();
  Host.PersonalityServices = &Personalities;
  Host.SDKServices = &SDKs;
  Host.AndroidToolServices = &AndroidTools;
  Personalities.Symbols.Extensions = {{"Win32", ".qds"}, {"Win64", ".vcp"}, {"OSX32", ".qds"}};
  SDKs.Kits["kit"].DebuggerServer = "$(NDKBasePath)\\gdbserver";
  SDKs.Defaults["Android"] = "kit";
  Project.HasPlatformOptions = true;
  Project.HasBuildOptions = true;
  Storage.Classes["ProjectOutput"]["Win32"] = "bin\\";
  Storage.Classes["DependencyPackage"]["Win32"] = "lib\\";
  TDeploymentModuleHandler::Attach(Project, Host, Storage);
  Deployment().GetFiles();
  for (int i = 0; i < 12; ++i)
    Change();
}

void TRandomWorld::AddPlatforms() {
  for (const char* name : AllNames) {
    TMemoryPlatform& platform = Host.PlatformManager.Platforms.emplace_back();
    platform.Name = name;
    platform.Mobile = platform.Name.starts_with("iOS") || platform.Name == "Android";
    platform.DefaultRemoteDir = ".\\";
    if (platform.Name.starts_with("Win"))
      platform.Extensions["Application"] = ".exe";
  }
}

std::string TRandomWorld::AnyPlatform() {
  return AllNames[Below(std::size(AllNames))];
}

std::string TRandomWorld::AnyName() {
  return OneOf({"a.png", "b.png", "A.png", "bin\\App", "bin\\App.exe", "bin\\App.qds", "P.vpk",
                "P.qds", "P.de", "P.fr", "Q.vpk", "Q.vcp", "data\\x.dat", "data\\X.dat", "y.txt",
                "bin\\App.info.plist"});
}

void TRandomWorld::Change() {
  switch (Below(8)) {
  case 0:
  case 1:
    return SetAnyOption();
  case 2:
    return SetOutput();
  case 3:
    return SetProject();
  case 4:
    return SetPackages();
  case 5:
    return AddEntry();
  default:
    return EditEntry();
  }
}

void TRandomWorld::SetAnyOption() {
  const std::string option =
      OneOf({"Android_LauncherIcon36", "Android_LauncherIcon48", "Android_LauncherIcon72",
             "iPhone_AppIcon57", "iPad_Launch768", "Icns_MainIcns", "VerInfo_UIDeviceFamily",
             "PXC_GenerateUniversalBinaryFile", "IncludeAndroid_Splash", "BT_BuildType"});
  std::string value = Chance(70) ? AnyName() : "";
  if (option == "VerInfo_UIDeviceFamily")
    value = OneOf({"iPhone", "iPad", ""});
  else if (option == "BT_BuildType")
    value = OneOf({"Debug", "Release"});
  else if (option.starts_with("PXC") || option.starts_with("Include"))
    value = OneOf({"true", "true", "false", "", "maybe"});
  Project.Options.Values[AnyConfiguration() + "|" + AnyPlatform() + "|" + option] = value;
}

void TRandomWorld::SetOutput() {
  const std::string target = AnyConfiguration() + "|" + AnyPlatform();
  Project.OutputFiles[target] = "C:\\work\\App\\" + (Chance(80) ? "bin\\App" : AnyName());
  if (Chance(50))
    Project.BuildOptions.RemoteDebugSymbols.insert(target);
  else
    Project.BuildOptions.RemoteDebugSymbols.erase(target);
}

void TRandomWorld::SetProject() {
  if (Chance(20))
    Project.ApplicationType =
        OneOf({"Application", "Application", "Console", "Library", "Package"});
  if (Chance(20))
    Project.Personality = OneOf({"Ardent.Personality", "Corvane.Personality", "Other"});
  Project.ProjectFiles.clear();
  for (std::size_t files = Below(5); files > 0; --files)
    Project.ProjectFiles.push_back("C:\\work\\App\\" + AnyName());
}

void TRandomWorld::SetPackages() {
  Personalities.Packages.Names.clear();
  for (std::size_t packages = Below(4); packages > 0; --packages)
    Personalities.Packages.Names.push_back(AnyName());
  Personalities.Packages.Answers = Chance(90);
  const std::string file = "C:\\work\\App\\" + AnyName();
  if (Chance(70))
    Host.Files[file] = "";
  else
    Host.Files.erase(file);
}

void TRandomWorld::AddEntry() {
  const std::string platform = AnyPlatform();
  const auto file = Deployment().AddFile(AnyConfiguration(), platform, AnyName());
  file->SetDeploymentClass(OneOf(
      {"File", "File", "ProjectFile", "ProjectOutput", "DebugSymbols", "ProjectOutput_iOS32",
       "DependencyPackage", "DependencyPackageDebugSymbols", "DependencyPackageResource",
       "Android_LauncherIcon36", "iPhone_AppIcon57", "ProjectOSXResource", "AndroidGDBServer"}));
  file->SetEnabled(platform, Chance(80));
  if (Chance(30))
    file->SetEnabled(AnyPlatform(), true);
  if (Chance(5))
    file->SetEnabled(OneOf({"All", "All Platforms", "win32"}), true);
  if (Chance(30))
    file->SetRemoteDir(platform, "own\\");
}

// What a person, another version or a change of the project can leave.
void TRandomWorld::EditEntry() {
  const TDeploymentFiles files = Deployment().FindFiles("", "", "", "");
  if (files.empty())
    return;
  IProjectDeploymentFile& file = *files[Below(files.size())];
  const std::string platform = AnyPlatform();
  switch (Below(8)) {
  case 0:
    return file.SetLocalName(AnyName());
  case 1:
    return file.RemovePlatform(file.GetFilePlatform());
  case 2:
    return file.SetEnabled(platform, Chance(50));
  case 3:
    return file.SetRemoteDir(platform, "own\\");
  case 4:
    return file.SetRemoteName(file.GetFilePlatform(), "other");
  case 5:
    return file.SetFilePlatform(platform);
  case 6:
    return file.SetConfiguration(OneOf({"Debug", "Release", "debug", "Base"}));
  default:
    return Deployment().RemoveFileEntry(file);
  }
}

std::string TRandomWorld::Text() {
  std::string text;
  for (const auto& file : Deployment().FindFiles("", "", "", "")) {
    text += file->GetConfiguration() + "|" + file->GetFilePlatform() + "|" + file->GetLocalName() +
            "|" + file->GetDeploymentClass();
    for (const std::string& platform : file->GetPlatforms()) {
      const TFileData& record = *file->GetFileData(platform, /*create=*/false);
      text += " [" + platform + " " + record.RemoteDir + " " + record.RemoteName +
              (record.Enabled ? " on" : " off") + (record.Overwrite ? "]" : " keep]");
    }
    text += "\n";
  }
  return text;
}

} // namespace deployment
