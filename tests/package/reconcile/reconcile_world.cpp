#include "tests/package/reconcile/reconcile_world.h"

namespace deployment {

TReconcileWorld::TReconcileWorld() {
  AddPlatform("Win32", false, R"(.\)", "|.dll", "|.exe");
  AddPlatform("Win64", false, R"(.\)", "|.dll", "|.exe");
  AddPlatform("OSX32", false, R"(Contents\MacOS\)", "lib|.dylib", "|");
  AddPlatform("iOSSimulator", true, R"(.\)", "lib|.a", "|");
  AddPlatform("iOSDevice32", true, R"(.\)", "lib|.a", "|");
  AddPlatform("iOSDevice64", true, R"(.\)", "lib|.a", "|");
  AddPlatform("Android", true, R"(assets\internal\)", "lib|.so", "lib|.so");
  Host.PersonalityServices = &Personalities;
  Host.SDKServices = &SDKs;
  Host.AndroidToolServices = &AndroidTools;
  Personalities.Symbols.Extensions = {{"Win32", ".qds"}, {"Win64", ".qds"}, {"OSX32", ".qds"}};
  Project.HasPlatformOptions = true;
  Project.HasBuildOptions = true;
  Project.Options.Debug.Platforms = {"Win32",       "Win64",       "OSX32",  "iOSSimulator",
                                     "iOSDevice32", "iOSDevice64", "Android"};
  for (const char* platform : {"OSX32", "iOSSimulator", "iOSDevice32", "iOSDevice64"}) {
    for (const char* configuration : {"Debug", "Release"})
      Project.OutputFiles[std::string(configuration) + "|" + platform] =
          std::string(R"(C:\work\App\)") + platform + "\\" + configuration + R"(\App)";
  }
  for (const char* configuration : {"Debug", "Release"})
    Project.OutputFiles[std::string(configuration) + "|Android"] =
        std::string(R"(C:\work\App\Android\)") + configuration + R"(\libApp.so)";
  TDeploymentModuleHandler::Attach(Project, Host, Storage);
}

void TReconcileWorld::AddPlatform(const char* name, bool mobile, const char* directory,
                                  const char* library, const char* application) {
  TMemoryPlatform& platform = Host.PlatformManager.Platforms.emplace_back();
  platform.Name = name;
  platform.Mobile = mobile;
  platform.DefaultRemoteDir = directory;
  const auto addKind = [&platform](const char* kind, std::string_view naming) {
    const std::size_t bar = naming.find('|');
    platform.Prefixes[kind] = naming.substr(0, bar);
    platform.Extensions[kind] = naming.substr(bar + 1);
  };
  addKind("Application", application);
  addKind("Library", library);
  addKind("Package", "|.vpk");
}

void TReconcileWorld::SetOption(std::string_view platform, std::string_view name,
                                std::string_view value, std::string_view configuration) {
  Project.Options
      .Values[std::string(configuration).append("|").append(platform).append("|").append(name)] =
      value;
}

std::vector<std::string> TReconcileWorld::Lines(std::string_view configuration,
                                                std::string_view platform) {
  return LinesOf("", configuration, platform);
}

std::vector<std::string> TReconcileWorld::LinesOf(std::string_view className,
                                                  std::string_view configuration,
                                                  std::string_view platform) {
  std::vector<std::string> lines;
  for (const auto& file : Deployment().FindFiles("", configuration, platform, "")) {
    if (!file->GetDeploymentClass().starts_with(className))
      continue;
    const TFileData& record = *file->GetFileData(platform, /*create=*/false);
    lines.push_back(file->GetDeploymentClass() + " | " + file->GetLocalName() + " | " +
                    record.RemoteDir + " | " + record.RemoteName +
                    (record.Enabled ? "" : " | off"));
  }
  return lines;
}

std::shared_ptr<IProjectDeploymentFile> TReconcileWorld::Entry(std::string_view className,
                                                               std::string_view configuration,
                                                               std::string_view platform) {
  const TDeploymentFiles files = Deployment().FindFiles("", configuration, platform, className);
  return files.empty() ? nullptr : files.front();
}

std::vector<std::string> TReconcileWorld::ChangesOf(std::string_view configuration,
                                                    std::string_view platform) {
  const auto log = std::make_shared<TChangeLog>();
  const int index = Deployment().AddNotifier(log);
  Deployment().Reconcile(configuration, platform);
  Deployment().RemoveNotifier(index);
  return log->Lines;
}

} // namespace deployment
