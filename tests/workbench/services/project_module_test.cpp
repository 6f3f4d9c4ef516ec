#include "tests/workbench/files/save_fixture.h"
#include "workbench/platforms/platform_table.h"
#include "workbench/services/project_module.h"
#include "workbench/settings/settings_store.h"

namespace workbench {
namespace {

constexpr std::string_view Text = R"(<Project>
  <PropertyGroup>
    <ProjectPersonality>Corvane.Personality</ProjectPersonality>
    <AppType>Library</AppType>
    <FrameworkType>Form</FrameworkType>
    <Config>Release</Config>
    <Platform>OSX32</Platform>
    <RemoteDebugSymbols>true</RemoteDebugSymbols>
  </PropertyGroup>
  <Import Project="more.props"/>
  <ItemGroup>
    <BuildConfiguration Include="Base"/>
    <BuildConfiguration Include="Release"><Parent>Base</Parent></BuildConfiguration>
    <TargetPlatform Include="Win32"><Profile>lab-pc</Profile></TargetPlatform>
    <TargetPlatform Include="OSX32"><SDK>sdk-10</SDK></TargetPlatform>
    <None Include="readme.txt"/>
  </ItemGroup>
</Project>)";

class TModuleListener final : public deployment::IOTAModuleNotifier {
public:
  void AfterSave() override { Calls += "saved "; }
  void ModuleRenamed(std::string_view /*old*/, std::string_view /*name*/) override {}
  void ModuleRemoved(std::string_view /*name*/) override {}
  void Destroyed() override { Calls += "destroyed "; }

  std::string Calls;
};

class ProjectModule : public testing::TSaveTest {
protected:
  void SetUp() override {
    TSaveTest::SetUp();
    Write(FDirectory / "more.props",
          "<Project><PropertyGroup><Imported>yes</Imported></PropertyGroup></Project>");
    FModule = std::make_unique<TProjectModule>(
        FFile, std::make_unique<TProjectDocument>(Text, FFile.string(), "Deployment"), FPlatforms,
        FSettings);
  }

  TPlatformTable FPlatforms = TPlatformTable::BuiltIn();
  TSettings FSettings{std::filesystem::path()};
  std::unique_ptr<TProjectModule> FModule;
};

TEST_F(ProjectModule, SaysWhichFileItIs) {
  EXPECT_EQ(FModule->GetFileName(), FFile.string());
  EXPECT_EQ(FModule->GetProjectFileName(), FFile.string());
  EXPECT_EQ(FModule->GetModuleName(), "demo");
  EXPECT_TRUE(FModule->IsProjectModule());
  EXPECT_FALSE(FModule->IsWithoutDeployment());
  EXPECT_EQ(FModule->GetProject(), FModule.get());
  EXPECT_EQ(FModule->GetProjectDeployment(), nullptr);
}

TEST_F(ProjectModule, AnswersFromTheProjectsSettings) {
  EXPECT_EQ(FModule->GetPersonality(), "Corvane.Personality");
  EXPECT_EQ(FModule->GetFrameworkType(), "Form");
  EXPECT_EQ(FModule->GetProjectOption("AppType"), "Library");
  EXPECT_EQ(FModule->GetProjectOption("Imported"), "yes");
  EXPECT_EQ(FModule->GetCurrentConfiguration(), "Release");
  EXPECT_EQ(FModule->GetCompleteFileList({}, {}),
            std::vector<std::string>{(FDirectory / "readme.txt").string()});
}

TEST_F(ProjectModule, ListsConfigurationsAndPlatforms) {
  const auto configurations = FModule->GetOptionsConfigurations()->GetConfigurations();
  ASSERT_EQ(configurations.size(), 2U);
  EXPECT_EQ(configurations[0], &FModule->GetOptionsConfigurations()->GetBaseConfiguration());
  EXPECT_EQ(configurations[1]->GetName(), "Release");
  const auto& platforms = *FModule->GetProjectPlatforms();
  EXPECT_EQ(platforms.GetSupportedPlatforms(), (std::vector<std::string>{"Win32", "OSX32"}));
  EXPECT_EQ(platforms.GetProfileName("Win32"), "lab-pc");
  EXPECT_EQ(platforms.GetSDKName("OSX32"), "sdk-10");
  EXPECT_EQ(platforms.GetProfileName("Android"), "");
}

TEST_F(ProjectModule, ChangesTheActivePlatformForThisRunOnly) {
  EXPECT_EQ(FModule->GetCurrentPlatform(), "OSX32");
  EXPECT_TRUE(FModule->GetProjectPlatforms()->SetActivePlatform("Win32"));
  EXPECT_EQ(FModule->GetCurrentPlatform(), "Win32");
  EXPECT_EQ(FModule->GetProjectPlatforms()->GetActivePlatform(), "Win32");
  EXPECT_EQ(FModule->Document().Bytes(), Text);
}

TEST_F(ProjectModule, ShowsAChangedBasePropertyAtOnce) {
  auto& options = *FModule->GetOptionsConfigurations();
  EXPECT_EQ(options.GetBaseProperty("FrameworkType"), "Form");
  options.SetBaseProperty("FrameworkType", "Pane");
  options.SetBaseProperty("Brand", "new");
  EXPECT_EQ(options.GetBaseProperty("FrameworkType"), "Pane");
  EXPECT_EQ(FModule->GetFrameworkType(), "Pane");
  EXPECT_EQ(options.GetOptionValue("Release", "Win32", "Brand"), "new");
}

TEST_F(ProjectModule, AnswersForBuildAndCompiler) {
  EXPECT_TRUE(FModule->GetBuildOptions()->HasRemoteDebugSymbols("Release", "OSX32"));
  EXPECT_EQ(FModule->GetCorvaneCompilerOptions()->GetOSXDirectory(), "");
  EXPECT_NE(FModule->GetPlatformOptions(), nullptr);
}

TEST_F(ProjectModule, TellsItsListenersOfSavesAndOfItsEnd) {
  const auto listener = std::make_shared<TModuleListener>();
  const auto removed = std::make_shared<TModuleListener>();
  FModule->AddNotifier(listener);
  const int index = FModule->AddNotifier(removed);
  FModule->RemoveNotifier(index);
  FModule->RemoveNotifier(index);
  FModule->RemoveNotifier(-1);
  FModule->RemoveNotifier(7);
  FModule->SetModified(true);
  auto pieces = std::make_unique<TTextPieces>();
  pieces->Own("<Project><PropertyGroup><Config>Debug</Config></PropertyGroup></Project>");
  FModule->DocumentWasSaved(std::move(pieces));
  EXPECT_EQ(listener->Calls, "saved ");
  EXPECT_FALSE(FModule->GetModified());
  FModule.reset();
  EXPECT_EQ(listener->Calls, "saved destroyed ");
  EXPECT_EQ(removed->Calls, "");
  EXPECT_EQ(listener.use_count(), 1);
}

TEST_F(ProjectModule, StartsFromWhatWasSaved) {
  auto pieces = std::make_unique<TTextPieces>();
  pieces->Own("<Project><PropertyGroup><Config>Debug</Config></PropertyGroup>");
  pieces->Own("</Project>");
  EXPECT_EQ(FModule->GetCurrentConfiguration(), "Release");
  FModule->DocumentWasSaved(std::move(pieces));
  EXPECT_EQ(FModule->Document().Bytes(),
            "<Project><PropertyGroup><Config>Debug</Config></PropertyGroup></Project>");
  EXPECT_EQ(FModule->Document().LargeSectionName(), "Deployment");
  EXPECT_EQ(FModule->Document().Name(), FFile.string());
  EXPECT_EQ(FModule->GetCurrentConfiguration(), "Debug");
}

} // namespace
} // namespace workbench
