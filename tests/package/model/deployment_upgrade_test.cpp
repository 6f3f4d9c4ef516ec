#include "package/model/deployment_upgrade.h"
#include "tests/package/model/stored_deployment.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

using TNames = std::vector<std::string>;

constexpr std::string_view Unwinder = R"($(ZELK)\Redist\osx32\libtqunwind.1.0.dylib)";

TEST(DeploymentUpgrade, TurnsTheOneDeviceOfAFileIntoThe32BitDevice) {
  TStoredDeployment stored;
  stored.Load(R"(<Deployment><DeployFile LocalName="iOSDevice\Debug\app" Configuration="Debug"
    Class="ProjectOutput"><Platform Name="iOSDevice"><RemoteDir>bin\</RemoteDir>
    <Operation>1</Operation><Enabled>false</Enabled><RemoteName>App</RemoteName>
    <Overwrite>false</Overwrite></Platform></DeployFile></Deployment>)");
  ASSERT_EQ(stored.Files().size(), 1U);
  const auto file = stored.Files()[0];
  EXPECT_EQ(file->GetLocalName(), "iOSDevice32\\Debug\\app");
  EXPECT_EQ(file->GetFilePlatform(), "iOSDevice32");
  EXPECT_EQ(file->GetPlatforms(), TNames{"iOSDevice32"});
  EXPECT_EQ(file->GetRemoteDir("iOSDevice32"), "bin\\");
  EXPECT_EQ(file->GetOperation("iOSDevice32"), TDeployOperation::CopyExecutable);
  EXPECT_FALSE(file->GetEnabled("iOSDevice32"));
  EXPECT_EQ(file->GetFileData("iOSDevice32", false)->RemoteName, "App");
  EXPECT_FALSE(file->GetOverwrite("iOSDevice32"));
}

TEST(DeploymentUpgrade, LeavesAnUnsetRemoteNameUnset) {
  TStoredDeployment stored;
  stored.Load(R"(<Deployment><DeployFile LocalName="lib\b.dylib" Class="File">
    <Platform Name="iOSDevice"/></DeployFile></Deployment>)");
  const TFileData* data = stored.Files()[0]->GetFileData("iOSDevice32", false);
  ASSERT_TRUE(data);
  EXPECT_EQ(data->RemoteName, "");
  EXPECT_TRUE(data->Enabled);
  EXPECT_TRUE(data->Overwrite);
  EXPECT_EQ(data->Operation, TDeployOperation::Default);
}

TEST(DeploymentUpgrade, CopiesTheDevicesOwnValuesAndNotThoseForAllPlatforms) {
  TStoredDeployment stored;
  stored.Load(R"(<Deployment><DeployFile LocalName="a" Class="File"><Platform Name="All">
    <RemoteDir>everywhere\</RemoteDir></Platform><Platform Name="iOSDevice"/></DeployFile>
    </Deployment>)");
  EXPECT_EQ(stored.Files()[0]->GetPlatforms(), (TNames{"All", "iOSDevice32"}));
  EXPECT_EQ(stored.Files()[0]->GetRemoteDir("iOSDevice32"), "");
}

TEST(DeploymentUpgrade, DoesNotCopyCommands) {
  TStoredDeployment stored;
  stored.Load(R"(<Deployment><DeployFile LocalName="a" Class="File"><Platform Name="iOSDevice">
    <LocalCommand>strip</LocalCommand><RemoteCommand>chmod</RemoteCommand></Platform></DeployFile>
    </Deployment>)");
  EXPECT_TRUE(stored.Files()[0]->GetLocalCommands("iOSDevice32")->empty());
  EXPECT_TRUE(stored.Files()[0]->GetRemoteCommands("iOSDevice32")->empty());
}

TEST(DeploymentUpgrade, ReplacesEveryOldNameInThePathOfWhatThePackageListed) {
  TStoredDeployment stored;
  stored.Load(R"(<Deployment><DeployFile LocalName="iOSDevice\iosdevice\x_iOSDevice"
    Class="DebugSymbols"><Platform Name="iOSDevice"/></DeployFile></Deployment>)");
  EXPECT_EQ(stored.LocalNames(), TNames{"iOSDevice32\\iosdevice\\x_iOSDevice32"});
}

TEST(DeploymentUpgrade, KeepsThePathOfAFileThatTheUserAdded) {
  TStoredDeployment stored;
  stored.Load(R"(<Deployment><DeployFile LocalName="iOSDevice\data" Class="File">
    <Platform Name="iOSDevice"/></DeployFile></Deployment>)");
  EXPECT_EQ(stored.LocalNames(), TNames{"iOSDevice\\data"});
  EXPECT_EQ(stored.Files()[0]->GetPlatforms(), TNames{"iOSDevice32"});
}

TEST(DeploymentUpgrade, TakesAUserClassOnlyInItsExactSpelling) {
  TStoredDeployment stored;
  stored.Load(R"(<Deployment><DeployFile LocalName="iOSDevice\data" Class="file">
    <Platform Name="iOSDevice"/></DeployFile></Deployment>)");
  EXPECT_EQ(stored.LocalNames(), TNames{"iOSDevice32\\data"});
}

TEST(DeploymentUpgrade, LeavesOtherPlatformsAlone) {
  TStoredDeployment stored;
  stored.Load(R"(<Deployment><DeployFile LocalName="iOSDevice\a" Class="X"><Platform Name="Win32">
    <RemoteDir>w\</RemoteDir></Platform><Platform Name="iosdevice"/></DeployFile></Deployment>)");
  EXPECT_EQ(stored.LocalNames(), TNames{"iOSDevice\\a"});
  EXPECT_EQ(stored.Files()[0]->GetPlatforms(), (TNames{"Win32", "iosdevice"}));
  EXPECT_EQ(stored.Files()[0]->GetFilePlatform(), "iosdevice");
}

TEST(DeploymentUpgrade, OverwritesA32BitRecordThatIsThereAlready) {
  TStoredDeployment stored;
  stored.Load(R"(<Deployment><DeployFile LocalName="a" Class="File"><Platform Name="iOSDevice32">
    <RemoteDir>new\</RemoteDir></Platform><Platform Name="iOSDevice"><RemoteDir>old\</RemoteDir>
    </Platform></DeployFile></Deployment>)");
  EXPECT_EQ(stored.Files()[0]->GetPlatforms(), TNames{"iOSDevice32"});
  EXPECT_EQ(stored.Files()[0]->GetRemoteDir("iOSDevice32"), "old\\");
}

TEST(DeploymentUpgrade, TurnsTheOneDeviceOfAClassIntoThe32BitDevice) {
  TStoredDeployment stored;
  stored.Load(R"(<Deployment><DeployClass Name="Lib"><Platform Name="iOSDevice">
    <RemoteDir>lib\</RemoteDir><Operation>2</Operation><LocalCommand>strip</LocalCommand>
    <Extensions>.a;.dylib</Extensions></Platform></DeployClass></Deployment>)");
  const auto deploymentClass = stored.Deployment().FindClass("Lib");
  ASSERT_TRUE(deploymentClass);
  EXPECT_EQ(deploymentClass->GetPlatforms(), TNames{"iOSDevice32"});
  EXPECT_EQ(deploymentClass->GetRemoteDir("iOSDevice32"), "lib\\");
  EXPECT_EQ(deploymentClass->GetOperation("iOSDevice32"), TDeployOperation::Unpack);
  EXPECT_EQ(deploymentClass->GetExtensions("iOSDevice32"), ".a;.dylib");
  EXPECT_TRUE(deploymentClass->GetLocalCommands("iOSDevice32")->empty());
}

TEST(DeploymentUpgrade, MakesTheRecordOfAClassThatSetNothing) {
  TStoredDeployment stored;
  stored.Load(R"(<Deployment><DeployClass Name="Lib"><Platform Name="iOSDevice">
    <Operation>6</Operation></Platform></DeployClass></Deployment>)");
  EXPECT_EQ(stored.Deployment().FindClass("Lib")->GetPlatforms(), TNames{"iOSDevice32"});
}

TEST(DeploymentUpgrade, GivesBothDevicesTheRootOfTheOldOne) {
  TStoredDeployment stored;
  stored.Load(R"(<Deployment><DeployFile LocalName="a"/><ProjectRoot Platform="Win32" Name="W"/>
    <ProjectRoot Platform="iOSDevice" Name="P"/></Deployment>)");
  EXPECT_EQ(stored.Deployment().GetProjectRoot("iOSDevice32"), "P");
  EXPECT_EQ(stored.Deployment().GetProjectRoot("iOSDevice64"), "P");
  EXPECT_EQ(stored.Deployment().GetProjectRoot("iOSDevice"), "");
  EXPECT_EQ(stored.Deployment().GetProjectRoot("Win32"), "W");
}

TEST(DeploymentUpgrade, OfAnOldSectionIsSavedInTheCurrentLayout) {
  TStoredDeployment stored;
  stored.Load(R"(<Deployment><DeployFile LocalName="a" Class="File"><Platform Name="iOSDevice"/>
    </DeployFile><ProjectRoot Platform="iOSDevice" Name="P"/></Deployment>)");
  EXPECT_EQ(stored.Save(), R"(<Deployment Version="2"><DeployFile LocalName="a" )"
                           R"(Configuration="" Class="File"><Platform Name="iOSDevice32">)"
                           R"(<Overwrite>true</Overwrite></Platform></DeployFile>)"
                           R"(<ProjectRoot Platform="iOSDevice" Name=""/>)"
                           R"(<ProjectRoot Platform="iOSDevice32" Name="P"/>)"
                           R"(<ProjectRoot Platform="iOSDevice64" Name="P"/></Deployment>)");
}

// The unwinder library as an older version listed it, for the simulator and for OS X.
std::string UnwinderSection(std::string_view version) {
  const auto entry = [](std::string_view platform) {
    return std::string(R"(<DeployFile Class="dependencymodule" LocalName=")")
        .append(R"($(zelk)\redist\OSX32\libtqunwind.1.0.dylib"><Platform Name=")")
        .append(platform)
        .append(R"("/></DeployFile>)");
  };
  return std::string("<Deployment").append(version).append(">") + entry("iOSSimulator") +
         entry("OSX32") +
         R"(<DeployFile LocalName="iOSDevice\a" Class="X"><Platform Name="iOSDevice"/>)"
         R"(</DeployFile></Deployment>)";
}

TEST(DeploymentUpgrade, OfVersion1DropsTheUnwinderOfTheSimulatorAndSplitsNothing) {
  TStoredDeployment stored;
  stored.Load(UnwinderSection(R"( Version="1")"));
  ASSERT_EQ(stored.Files().size(), 2U);
  EXPECT_EQ(stored.Files()[0]->GetPlatforms(), TNames{"OSX32"});
  EXPECT_EQ(stored.Files()[1]->GetPlatforms(), TNames{"iOSDevice"});
  EXPECT_EQ(stored.Files()[1]->GetLocalName(), "iOSDevice\\a");
}

TEST(DeploymentUpgrade, OfASectionWithoutVersionDoesBothSteps) {
  TStoredDeployment stored;
  stored.Load(UnwinderSection(""));
  ASSERT_EQ(stored.Files().size(), 2U);
  EXPECT_EQ(stored.Files()[0]->GetPlatforms(), TNames{"OSX32"});
  EXPECT_EQ(stored.Files()[1]->GetPlatforms(), TNames{"iOSDevice32"});
}

TEST(DeploymentUpgrade, TakesVersion2AndLaterAsTheyAre) {
  for (const std::string_view version : {R"( Version="2")", R"( Version="7")"}) {
    TStoredDeployment stored;
    stored.Load(UnwinderSection(version));
    ASSERT_EQ(stored.Files().size(), 3U) << version;
    EXPECT_EQ(stored.Files()[0]->GetPlatforms(), TNames{"iOSSimulator"});
    EXPECT_EQ(stored.Files()[2]->GetPlatforms(), TNames{"iOSDevice"});
  }
}

TEST(DeploymentUpgrade, KeepsAnUnwinderOfAnotherClassOrConfiguration) {
  const std::string name(Unwinder);
  TStoredDeployment stored;
  stored.Load("<Deployment Version=\"1\"><DeployFile Class=\"File\" LocalName=\"" + name +
              "\"><Platform Name=\"iOSSimulator\"/></DeployFile>"
              "<DeployFile Class=\"DependencyModule\" Configuration=\"Debug\" LocalName=\"" +
              name + "\"><Platform Name=\"iOSSimulator\"/></DeployFile></Deployment>");
  // The key of the entry to drop has no configuration; the entry of class "File" has that key.
  ASSERT_EQ(stored.Files().size(), 1U);
  EXPECT_EQ(stored.Files()[0]->GetConfiguration(), "Debug");
}

TEST(DeploymentUpgrade, KeepsAnUnwinderThatOnlyAnotherClassLists) {
  TStoredDeployment stored;
  stored.Load("<Deployment Version=\"1\"><DeployFile Class=\"File\" LocalName=\"" +
              std::string(Unwinder) +
              "\"><Platform Name=\"iOSSimulator\"/></DeployFile>"
              "</Deployment>");
  EXPECT_EQ(stored.Files().size(), 1U);
}

TEST(DeploymentUpgrade, DoesNotRunAfterASectionThatCouldNotBeRead) {
  TStoredDeployment stored;
  EXPECT_EQ(ErrorOf([&] {
              stored.Load("<Deployment><DeployFile LocalName=\"iOSDevice\\a\" Class=\"X\">"
                          "<Platform Name=\"iOSDevice\"/></DeployFile>\n<ProjectRoot/>"
                          "</Deployment>");
            }),
            "App.vproj:2: element \"ProjectRoot\" lacks the required attribute \"Name\"");
  EXPECT_EQ(stored.LocalNames(), TNames{"iOSDevice\\a"});
  EXPECT_EQ(stored.Files()[0]->GetPlatforms(), TNames{"iOSDevice"});
}

TEST(DeploymentUpgrade, NeverAsksForTheDefaults) {
  TStoredDeployment stored;
  stored.Host.Files[R"(C:\ide\ObjRepos\Deploy\defaults.xml)"] =
      R"(<Deployment Version="2"><DeployClass Name="File"/></Deployment>)";
  stored.LoadNothing();
  stored.Load("<Deployment/>");
  EXPECT_TRUE(stored.Host.XMLDocuments.Loaded.empty());
  EXPECT_TRUE(stored.Deployment().IsEmpty());
}

TEST(DeploymentUpgrade, WithoutASectionLeavesTheRoots) {
  TStoredDeployment stored;
  stored.Deployment().SetProjectRoot("iOSDevice", "P");
  UpgradeDeployment(stored.Deployment(), nullptr, 0);
  EXPECT_EQ(stored.Deployment().GetProjectRoot("iOSDevice"), "P");
  EXPECT_EQ(stored.Deployment().GetProjectRoots().Count(), 1U);
}

} // namespace
} // namespace deployment
