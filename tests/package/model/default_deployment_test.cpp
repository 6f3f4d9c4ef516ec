#include "package/common/application_type.h"
#include "package/model/default_deployment.h"
#include "tests/package/model/stored_deployment.h"

#include <gtest/gtest.h>

#include <utility>

namespace deployment {
namespace {

constexpr const char* DefaultsName = R"(C:\ide\ObjRepos\Deploy\defaults.xml)";

// Shows every variable in the id and the description of a class.
constexpr std::string_view Template =
    R"x(<Deployment Version="2"><DeployClass Name="$(PROJECTNAME)" )x"
    R"x(Description="$(APPTYPE)|$(PERSONALITY)|$(FRAMEWORK)"/></Deployment>)x";

struct TDefaults : TStoredDeployment {
  explicit TDefaults(std::string_view text = Template) { Host.Files[DefaultsName] = text; }

  void Read() { Storage.ReadDefaultDeployment(Project, Deployment()); }
  std::string Description() {
    const auto deploymentClass = Deployment().FindClass("App");
    return deploymentClass ? deploymentClass->GetDescription() : "no such class";
  }
};

TEST(DefaultDeployment, IsFilledInForTheProject) {
  TDefaults defaults;
  defaults.Read();
  EXPECT_EQ(defaults.Description(), "Application|Ardent.Personality|Form");
}

TEST(DefaultDeployment, GetsItsVariablesInOrder) {
  TDefaults defaults;
  defaults.Project.ApplicationType = "CppManagedDynamicLibrary";
  defaults.Read();
  using TVariables = std::vector<std::pair<std::string, std::string>>;
  EXPECT_EQ(defaults.Host.FilterVariables, (TVariables{{"PROJECTNAME", "App"},
                                                       {"APPTYPE", "Library"},
                                                       {"PERSONALITY", "Ardent.Personality"},
                                                       {"FRAMEWORK", "Form"}}));
}

TEST(DefaultDeployment, FallsBackToTheOptionsOfTheProject) {
  TDefaults defaults;
  defaults.Project.ApplicationType = "";
  defaults.Project.FrameworkType = "";
  defaults.Project.ProjectOptions = {{"AppType", "CppPackage"}, {"FrameworkType", "Lean"}};
  defaults.Read();
  EXPECT_EQ(defaults.Description(), "Package|Ardent.Personality|Lean");
}

TEST(DefaultDeployment, PrefersTheProjectToItsOptions) {
  TDefaults defaults;
  defaults.Project.ProjectOptions = {{"AppType", "CppPackage"}, {"FrameworkType", "Lean"}};
  defaults.Read();
  EXPECT_EQ(defaults.Description(), "Application|Ardent.Personality|Form");
}

TEST(DefaultDeployment, LeavesEmptyWhatNeitherProjectNorOptionsSay) {
  TDefaults defaults;
  defaults.Project.ApplicationType = "";
  defaults.Project.FrameworkType = "";
  defaults.Project.Personality = "";
  defaults.Read();
  EXPECT_EQ(defaults.Description(), "||");
}

TEST(DefaultDeployment, PassesAnUnknownApplicationTypeUnchanged) {
  TDefaults defaults;
  defaults.Project.ApplicationType = "rzmguiapplication";
  defaults.Read();
  EXPECT_EQ(defaults.Description(), "rzmguiapplication|Ardent.Personality|Form");
}

TEST(DefaultDeployment, SurvivesNamesThatXMLGivesAMeaningTo) {
  TDefaults defaults;
  defaults.Project.ModuleName = "R&D <1>";
  defaults.Read();
  EXPECT_TRUE(defaults.Deployment().FindClass("R&D <1>"));
}

TEST(DefaultDeployment, WithoutATemplateAddsNothing) {
  TStoredDeployment stored;
  stored.Storage.ReadDefaultDeployment(stored.Project, stored.Deployment());
  EXPECT_TRUE(stored.Deployment().IsEmpty());
  EXPECT_TRUE(stored.Host.FilterVariables.empty());
}

TEST(DefaultDeployment, OfATemplateWithAnotherRootAddsNothing) {
  TDefaults defaults(R"(<Defaults Version="2"><DeployClass Name="App"/></Defaults>)");
  defaults.Read();
  EXPECT_TRUE(defaults.Deployment().IsEmpty());
}

TEST(DefaultDeployment, TakesTheRootInAnyCase) {
  TDefaults defaults(R"(<DEPLOYMENT Version="2"><DeployClass Name="App"/></DEPLOYMENT>)");
  defaults.Read();
  EXPECT_TRUE(defaults.Deployment().FindClass("App"));
}

TEST(DefaultDeployment, MayBringFilesAndRoots) {
  TDefaults defaults(R"(<Deployment Version="2"><DeployFile LocalName="$(PROJECTNAME).dat">
    <Platform Name="Win32"/></DeployFile><ProjectRoot Platform="OSX32" Name="$(PROJECTNAME).app"/>
    </Deployment>)");
  defaults.Read();
  EXPECT_EQ(defaults.LocalNames(), std::vector<std::string>{"App.dat"});
  EXPECT_EQ(defaults.Deployment().GetProjectRoot("OSX32"), "App.app");
}

TEST(DefaultDeployment, PrefersTheTemplateInTheUsersLanguage) {
  TDefaults defaults;
  defaults.Host.AppStrings.LocaleFiles[DefaultsName] = "C:\\ide\\defaults.de.xml";
  defaults.Host.Files["C:\\ide\\defaults.de.xml"] =
      R"(<Deployment Version="2"><DeployClass Name="App" Description="Dateien"/></Deployment>)";
  defaults.Read();
  EXPECT_EQ(defaults.Description(), "Dateien");
  EXPECT_EQ(defaults.Host.XMLDocuments.Loaded,
            std::vector<std::string>{"C:\\ide\\defaults.de.xml"});
}

TEST(DefaultDeployment, AddsNothingWhenTheTemplateOfTheLanguageIsMissing) {
  TDefaults defaults;
  defaults.Host.AppStrings.LocaleFiles[DefaultsName] = "C:\\ide\\defaults.de.xml";
  defaults.Read();
  EXPECT_TRUE(defaults.Deployment().IsEmpty());
}

TEST(DefaultDeployment, IsFoundUnderARootThatEndsInADelimiter) {
  TDefaults defaults;
  defaults.Host.AppStrings.RootDir = "C:\\ide\\";
  defaults.Read();
  EXPECT_EQ(defaults.Description(), "Application|Ardent.Personality|Form");
}

TEST(DefaultDeployment, RefusesATemplateThatIsNotWellFormed) {
  TDefaults defaults("<Deployment Version=\"2\">\n<DeployClass Name=\"App\"></Deployment>");
  EXPECT_EQ(ErrorOf([&] { defaults.Read(); }),
            std::string(DefaultsName) + ":2: the text is not well-formed XML");
}

TEST(DefaultDeployment, PassesOnWhatTheSectionReaderRefuses) {
  TDefaults defaults("<Deployment Version=\"2\">\n<ProjectRoot Name=\"a\"/></Deployment>");
  EXPECT_EQ(ErrorOf([&] { defaults.Read(); }),
            std::string(DefaultsName) +
                ":2: element \"ProjectRoot\" lacks the required attribute \"Platform\"");
}

TEST(DefaultDeployment, IsNotReadForAProjectWithoutADeployment) {
  TDefaults defaults;
  TMemoryProject other;
  defaults.Storage.ReadDefaultDeployment(other, defaults.Deployment());
  EXPECT_TRUE(defaults.Deployment().IsEmpty());
}

TEST(DefaultDeployment, IsReadOnceWhenTheFilesOfANewProjectAreAskedFor) {
  TDefaults defaults;
  defaults.Deployment().GetFiles();
  EXPECT_EQ(defaults.Description(), "Application|Ardent.Personality|Form");
  defaults.Deployment().Clear();
  defaults.Deployment().GetFiles();
  EXPECT_TRUE(defaults.Deployment().IsEmpty());
}

TEST(ApplicationType, MapsEveryRow) {
  constexpr std::pair<std::string_view, std::string_view> Rows[] = {
      {"Console", "Console"},
      {"CppConsoleApplication", "Console"},
      {"CppGuiApplication", "Application"},
      {"CppNWLApplication", "Application"},
      {"KyxGuiApplication", "Application"},
      {"RzmGuiApplication", "Application"},
      {"RziGuiApplication", "Application"},
      {"Application", "Application"},
      {"CppDynamicLibrary", "Library"},
      {"Library", "Library"},
      {"CppManagedDynamicLibrary", "Library"},
      {"CppPackage", "Package"},
      {"Package", "Package"},
  };
  for (const auto& [type, kind] : Rows)
    EXPECT_EQ(MapApplicationType(type), kind) << type;
}

TEST(ApplicationType, KeepsWhatIsInNoRow) {
  for (const std::string_view type : {"", "Service", "console", "PACKAGE", " Library"})
    EXPECT_EQ(MapApplicationType(type), type);
}

} // namespace
} // namespace deployment
