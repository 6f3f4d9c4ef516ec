// Where entries are here, and where they land.
#include "package/host/api/entry_paths.h"
#include "tests/package/host/api/entry_world.h"

namespace deployment {
namespace {

class EntryPaths : public EntryWorld {
protected:
  TEntryPaths Paths(const TDeploymentTarget& target = {"Debug", "Win32"},
                    TRemoteBase base = TRemoteBase::ProjectRoot) {
    return {*Module, Deployment, target, TEntryPathServices::Of(Host), base};
  }
};

TEST_F(EntryPaths, LandInTheRootOfTheProjectUnderTheFileNameOfTheLocalName) {
  EXPECT_EQ(Paths().RemoteFile(Add(R"(bin\a.dat)")), R"(App\a.dat)");
  Deployment.SetProjectRoot("Win32", R"(Root\Sub)");
  EXPECT_EQ(Paths().RemoteFile(Add("b.dat")), R"(Root\Sub\b.dat)");
}

TEST_F(EntryPaths, LandInTheDirectoryAndUnderTheNameOfTheEntry) {
  IProjectDeploymentFile& file = Add("a.dat");
  file.SetRemoteDir("Win32", "Assets");
  file.SetRemoteName("Win32", "b.dat");
  EXPECT_EQ(Paths().RemoteFile(file), R"(App\Assets\b.dat)");
}

TEST_F(EntryPaths, TakeTheDirectoryOfTheClassWhereTheEntryHasNone) {
  const auto added = Deployment.CreateClass();
  added->SetClassId("File");
  added->SetRemoteDir("Win32", R"(Data\)");
  Deployment.AddClass(added);
  EXPECT_EQ(Paths().RemoteDirectory(Add("a.dat")), R"(App\Data\)");
}

TEST_F(EntryPaths, KeepDirectoriesThatStandForThemselves) {
  IProjectDeploymentFile& file = Add("a.dat");
  file.SetRemoteDir("Win32", R"(~\)");
  EXPECT_EQ(Paths().RemoteFile(file), R"(~\a.dat)");
  file.SetRemoteDir("Win32", R"(~\sub)");
  EXPECT_EQ(Paths().RemoteFile(file), R"(~\sub\a.dat)");
  file.SetRemoteDir("Win32", "/srv");
  EXPECT_EQ(Paths().RemoteFile(file), R"(/srv\a.dat)");
}

TEST_F(EntryPaths, ExpandTheMacrosOfTheTargetInEveryPart) {
  IProjectDeploymentFile& file = Add(R"($(Platform)\$(Config)\a.dat)");
  file.SetRemoteDir("Win32", R"($(Config)\$(Configuration)\)");
  file.SetRemoteName("Win32", "$(Platform)-$(Nobody).txt");
  EXPECT_EQ(Paths().LocalFile(file), R"(C:\work\App\Win32\Debug\a.dat)");
  EXPECT_EQ(Paths().RemoteFile(file), R"(App\Debug\Debug\Win32-$(Nobody).txt)");
}

TEST_F(EntryPaths, ExpandTheMacrosInANameThatComesFromTheLocalOne) {
  EXPECT_EQ(Paths().RemoteName(Add(R"(bin\$(Platform).dat)")), "Win32.dat");
}

TEST_F(EntryPaths, StandForADirectoryOnceItIsExpanded) {
  IProjectDeploymentFile& file = Add("a.dat");
  file.SetRemoteDir("Win32", R"($(ZELK)\x)");
  EXPECT_EQ(Paths().RemoteFile(file), R"(C:\ide\x\a.dat)");
}

TEST_F(EntryPaths, BeginWithNothingInADirectoryOfTheProjectAlone) {
  IProjectDeploymentFile& file = Add("a.dat");
  EXPECT_EQ(Paths({"Debug", "Win32"}, TRemoteBase::None).RemoteFile(file), "a.dat");
  file.SetRemoteDir("Win32", "assets");
  EXPECT_EQ(Paths({"Debug", "Win32"}, TRemoteBase::None).RemoteFile(file), R"(assets\a.dat)");
}

class Kits : public EntryPaths {
protected:
  struct TKits : IPlatformSDKServices {
    const IPlatformSDK* FindSDK(std::string_view name) const override {
      return name == "chosen" ? &Chosen : nullptr;
    }
    const IPlatformSDK* GetDefaultSDK(std::string_view platform) const override {
      return platform == "Android" ? &Default : nullptr;
    }
    const IAndroidSDK* AsAndroidSDK(const IPlatformSDK& sdk) const override {
      return dynamic_cast<const IAndroidSDK*>(&sdk);
    }
    TMemoryAndroidSDK Default;
    TMemoryAndroidSDK Chosen;
  };

  Kits() {
    OfProfile.NDKBasePath = R"($(ZELK)\profile)";
    Services.Default.NDKBasePath = R"(C:\default)";
    Services.Chosen.NDKBasePath = R"(C:\chosen)";
    Profiles.Profiles["phone"] = std::make_shared<TMemoryProfile>("phone", &OfProfile);
  }
  std::string Server() { return Paths({"Debug", "Android"}).Expand(R"($(NDKBasePath)\gdbserver)"); }

  TKits Services;
  TMemoryAndroidSDK OfProfile;
};

TEST_F(Kits, OfTheAssignedOrTheDefaultProfileComeFirst) {
  Host.SDKServices = &Services;
  Profiles.Defaults["Android"] = "phone";
  EXPECT_EQ(Server(), R"(C:\ide\profile\gdbserver)");
  Profiles.Defaults.clear();
  Module->Platforms.Profiles["Android"] = "phone";
  EXPECT_EQ(Server(), R"(C:\ide\profile\gdbserver)");
}

TEST_F(Kits, OfTheProjectFollowAndThenTheDefaultOne) {
  EXPECT_EQ(Server(), R"($(NDKBasePath)\gdbserver)");
  Host.SDKServices = &Services;
  EXPECT_EQ(Server(), R"(C:\default\gdbserver)");
  Module->Platforms.SDKs["Android"] = "chosen";
  EXPECT_EQ(Server(), R"(C:\chosen\gdbserver)");
  EXPECT_EQ(Paths().Expand("$(NDKBasePath)"), "$(NDKBasePath)");
}

TEST_F(EntryPaths, GoThroughTheAssignedProfileElseThroughTheDefaultOne) {
  EXPECT_EQ(GetTargetProfileName(*Module, "Win32", Profiles), "");
  Profiles.Defaults["Win32"] = "lab";
  EXPECT_EQ(GetTargetProfileName(*Module, "Win32", Profiles), "lab");
  Module->Platforms.Profiles["Win32"] = "mine";
  EXPECT_EQ(GetTargetProfileName(*Module, "Win32", Profiles), "mine");
  Module->HasPlatforms = false;
  EXPECT_EQ(GetTargetProfileName(*Module, "Win32", Profiles), "lab");
}

TEST(FixPath, PutsRelativeDirectoriesIntoTheBase) {
  EXPECT_EQ(FixPath("Assets\\", "MyApp\\"), "MyApp\\Assets\\");
  EXPECT_EQ(FixPath(".\\x", "MyApp\\"), "MyApp\\.\\x\\");
}

TEST(FixPath, KeepsHomeAndAbsoluteDirectories) {
  EXPECT_EQ(FixPath("~\\bin", "MyApp\\"), "~\\bin\\");
  EXPECT_EQ(FixPath("C:\\bin", "MyApp\\"), "C:\\bin\\");
  EXPECT_EQ(FixPath("/usr/bin/", "MyApp\\"), "/usr/bin/");
}

TEST(FixPath, IsTheBaseForAnEmptyDirectory) {
  EXPECT_EQ(FixPath("", "MyApp\\"), "MyApp\\");
  EXPECT_EQ(FixPath("", "MyApp"), "MyApp\\");
}

} // namespace
} // namespace deployment
