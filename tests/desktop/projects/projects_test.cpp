#include "tests/desktop/window/window_fixture.h"
#include "workbench/desktop/projects/project_names.h"
#include "workbench/desktop/projects/recovery_question.h"

#include <QHeaderView>
#include <QLabel>
#include <sys/stat.h>
#include <unistd.h>

namespace workbench {
namespace {

using namespace deployment::file_column;

class TWindowProjects : public testing::TWindowTest {
protected:
  std::filesystem::path OtherProject() const {
    std::filesystem::copy(FRoot / "tide", FRoot / "other",
                          std::filesystem::copy_options::recursive);
    return FRoot / "other" / "TideLogger.vproj";
  }
};

TEST_F(TWindowProjects, StandSideBySideAndTheSameOneOnce) {
  OpenExample();
  EXPECT_TRUE(Window().Open(OtherProject()));
  EXPECT_EQ(Window().Tabs().count(), 2);
  EXPECT_TRUE(Window().Open(FProject));
  EXPECT_EQ(Window().Tabs().count(), 2);
  EXPECT_EQ(Window().Tabs().currentIndex(), 0);
}

TEST_F(TWindowProjects, OneWhosePathDiffersByCaseBringsTheFirstForwardAndClosesNothing) {
  OpenExample();
  ClickCheck(Row("levels.dat"));
  Window().Open(OtherProject());
  for (const auto& same : {FRoot / "tide" / "TIDELOGGER.vproj", FRoot / "TIDE" / "TideLogger.vproj",
                           FRoot / "tide" / ".." / "Tide" / "tidelogger.VPROJ"}) {
    if (!std::filesystem::exists(same)) {
      std::filesystem::create_directories(same.parent_path());
      std::filesystem::copy(FProject, same);
    }
    Window().Tabs().setCurrentIndex(1);
    EXPECT_TRUE(Window().Open(same));
    Settle();
    EXPECT_EQ(Window().Tabs().count(), 2);
    EXPECT_EQ(Window().Tabs().currentIndex(), 0);
    EXPECT_EQ(Project().GivenFileName(), FProject);
    EXPECT_FALSE(IsChecked(Row("levels.dat"))) << "the edit is still there";
  }
  Window().Projects().EndSteps();
  Window().Projects().ShowModified();
  AnswerNext("Discard");
  Choose("Close");
  EXPECT_EQ(Window().Tabs().count(), 1);
}

TEST_F(TWindowProjects, OfASolutionOpenOnTabsWhereTheyHaveSomethingToDeploy) {
  const auto other = OtherProject();
  const auto line = [](const std::string& path) {
    return "Project(\"{1}\") = \"p\", \"" + path + "\", \"{" + path + "}\"\nEndProject\n";
  };
  Write(FRoot / "lib.vcxproj",
        R"(<Project xmlns="http://schemas.microsoft.com/developer/msbuild/2003"><ItemGroup>
<ProjectConfiguration Include="Debug|Win32"/></ItemGroup><PropertyGroup>
<ConfigurationType>StaticLibrary</ConfigurationType></PropertyGroup></Project>)");
  Write(FRoot / "all.sln", "Solution File, Format Version 12.00\n" +
                               line("tide\\TideLogger.vproj") + line("lib.vcxproj") +
                               line("other\\TideLogger.vproj") + line("gone.vcxproj"));
  std::string said;
  AnswerNext("OK", &said);
  EXPECT_TRUE(Window().Open(FRoot / "all.sln"));
  EXPECT_EQ(Window().Tabs().count(), 2);
  EXPECT_EQ(Window().Tabs().currentIndex(), 0);
  EXPECT_EQ(Project().GivenFileName(), FProject);
  EXPECT_NE(said.find("all.sln:8"), std::string::npos) << said;
  ASSERT_NE(Project().Solution(), nullptr);
  EXPECT_TRUE(Window().Projects().Reload(0));
  EXPECT_NE(Project().Solution(), nullptr);
  EXPECT_NE(OpenFileFilter().indexOf("*.sln"), -1);
  EXPECT_EQ(ProjectFileFilter().indexOf("*.sln"), -1);
}

TEST_F(TWindowProjects, OneThatCannotBeReadIsNamedWithItsLineAndLeavesTheOthersOpen) {
  OpenExample();
  const auto broken = FRoot / "broken.vproj";
  Write(broken, "<Project>\n<PropertyGroup>\n</Project>\n");
  std::string said;
  AnswerNext("OK", &said);
  EXPECT_FALSE(Window().Open(broken));
  EXPECT_NE(said.find("broken.vproj:3"), std::string::npos) << said;
  EXPECT_EQ(Window().Tabs().count(), 1);
  EXPECT_EQ(Tree().Model().rowCount(), 8);
}

TEST_F(TWindowProjects, OneWhoseTargetCannotBeComputedOpensAndSaysWhyAboveItsRows) {
  const auto file = FRoot / "odd.vproj";
  Write(file, R"(<Project xmlns="http://schemas.microsoft.com/developer/msbuild/2003">
  <PropertyGroup><ProjectPersonality>Ardent.Personality</ProjectPersonality>
    <AppType>Application</AppType><Config>Debug</Config><Platform>iOSDevice64</Platform>
    <PXC_GenerateUniversalBinaryFile>maybe</PXC_GenerateUniversalBinaryFile></PropertyGroup>
  <ItemGroup><BuildConfiguration Include="Base"/>
    <BuildConfiguration Include="Debug"><Parent>Base</Parent></BuildConfiguration>
    <TargetPlatform Include="iOSDevice64"/><TargetPlatform Include="Win32"/></ItemGroup>
  <ProjectExtensions><Deployment Version="2">
    <DeployFile LocalName="mine.txt" Configuration="Debug" Class="File">
      <Platform Name="iOSDevice64"/><Platform Name="Win32"/></DeployFile>
  </Deployment></ProjectExtensions>
</Project>)");
  EXPECT_TRUE(Window().Open(file));
  Settle();
  ASSERT_EQ(Window().Tabs().count(), 1);
  const auto* notice = Window().CurrentControls()->Page()->findChild<QLabel*>("notice");
  ASSERT_NE(notice, nullptr);
  EXPECT_TRUE(notice->isVisible());
  EXPECT_TRUE(notice->text().contains("maybe")) << notice->text().toStdString();
  EXPECT_TRUE(Row("mine.txt").isValid());
  Window().CurrentControls()->TargetsComboBox()->Choose("Debug", "Win32");
  Settle();
  EXPECT_FALSE(notice->isVisible());
  EXPECT_TRUE(Row("mine.txt").isValid());
}

TEST_F(TWindowProjects, ClosingAsksWhenThereAreChanges) {
  OpenExample();
  ClickCheck(Row("levels.dat"));
  const std::string before = Read(FProject);
  AnswerNext("Cancel");
  Choose("Close");
  EXPECT_EQ(Window().Tabs().count(), 1);
  AnswerNext("Save");
  Choose("Close");
  EXPECT_EQ(Window().Tabs().count(), 0);
  EXPECT_NE(Read(FProject), before);
}

TEST_F(TWindowProjects, DiscardedChangesLeaveTheFileAsItWas) {
  OpenExample();
  ClickCheck(Row("levels.dat"));
  const std::string before = Read(FProject);
  AnswerNext("Discard");
  Window().Tabs().tabCloseRequested(0);
  EXPECT_EQ(Window().Tabs().count(), 0);
  EXPECT_EQ(Read(FProject), before);
}

TEST_F(TWindowProjects, OneThatWasChangedOnDiskIsOfferedForReloadOnce) {
  OpenExample();
  Saved();
  ClickCheck(Row("levels.dat"));
  Settle();
  Write(FProject, testing::Replaced(Read(FProject), "my-stations.json", "your-stations.json"));
  AnswerNext("Reload");
  Window().Projects().CheckDisk();
  Settle();
  EXPECT_EQ(Cell(Row("stations.json").row(), RemoteName), "your-stations.json");
  EXPECT_TRUE(IsChecked(Row("levels.dat")));
  ClickCheck(Row("levels.dat"));
  Settle();
  Write(FProject, testing::Replaced(Read(FProject), "your-stations.json", "new.json"));
  AnswerNext("Keep");
  Window().Projects().CheckDisk();
  Window().Projects().CheckDisk(); // asks no more; a dialog would hang here
  EXPECT_EQ(Cell(Row("stations.json").row(), RemoteName), "your-stations.json");
}

TEST_F(TWindowProjects, WatchesTheirFiles) {
  OpenExample();
  Saved();
  ClickCheck(Row("levels.dat"));
  Settle();
  std::string said;
  AnswerNext("Keep", &said);
  Write(FProject, Read(FProject) + "\n");
  EXPECT_TRUE(QTest::qWaitFor([&said] { return !said.empty(); }, 10000));
  EXPECT_NE(said.find("was changed by another program. Reload it?"), std::string::npos);
}

TEST_F(TWindowProjects, SavingOverAForeignChangeAsks) {
  OpenExample();
  Saved();
  ClickCheck(Row("levels.dat"));
  const std::string foreign = Read(FProject) + "\n";
  Write(FProject, foreign);
  AnswerNext("Cancel");
  Choose("Save");
  EXPECT_EQ(Read(FProject), foreign);
  EXPECT_TRUE(Project().HasChanges());
  AnswerNext("Overwrite");
  Choose("Save");
  EXPECT_NE(Read(FProject), foreign);
  EXPECT_FALSE(Project().HasChanges());
}

TEST_F(TWindowProjects, AFileThatCannotBeWrittenKeepsTheChangesInTheWindow) {
  if (::geteuid() == 0)
    ::chmod((FRoot / "tide").c_str(), 0555); // root writes all the same; see below
  OpenExample();
  ClickCheck(Row("levels.dat"));
  // A directory in the place of the file stops root too.
  const std::string before = Read(FProject);
  std::filesystem::remove(FProject);
  std::filesystem::create_directory(FProject);
  std::string said;
  testing::OnNextDialog([&](QDialog& dialog) {
    AnswerNext("OK", &said);
    testing::Press(dialog, "Overwrite");
  });
  Choose("Save");
  EXPECT_NE(said.find("Nothing is lost: the changes are still here."), std::string::npos) << said;
  EXPECT_TRUE(Project().HasChanges());
  std::filesystem::remove(FProject);
  Write(FProject, before);
  ::chmod((FRoot / "tide").c_str(), 0755);
  EXPECT_NE(Saved(), before);
}

TEST_F(TWindowProjects, TheLayoutAndTheOpenProjectsComeBack) {
  OpenExample();
  Saved();
  View().header()->resizeSection(LocalName, 222);
  Window().resize(900, 500);
  EXPECT_TRUE(Window().close());
  Vanish();
  SetUpAgain();
  Window().Restore();
  Settle();
  ASSERT_EQ(Window().Tabs().count(), 1);
  EXPECT_EQ(View().header()->sectionSize(LocalName), 222);
  EXPECT_EQ(Window().size(), QSize(900, 500));
}

TEST_F(TWindowProjects, ClosingTheWindowAsksForEachProjectAndCanBeStopped) {
  OpenExample();
  ClickCheck(Row("levels.dat"));
  AnswerNext("Cancel");
  EXPECT_FALSE(Window().close());
  EXPECT_EQ(Window().Tabs().count(), 1);
  AnswerNext("Discard");
  EXPECT_TRUE(Window().close());
  EXPECT_EQ(Window().Tabs().count(), 0);
}

TEST_F(TWindowProjects, RecentOnesAreListed) {
  OpenExample();
  QMenu* recent = nullptr;
  for (QMenu* menu : Window().findChildren<QMenu*>()) {
    if (menu->title().remove('&') == "Open Recent")
      recent = menu;
  }
  ASSERT_NE(recent, nullptr);
  emit recent->aboutToShow();
  EXPECT_EQ(recent->actions().front()->text().toStdString(), FProject.string());
}

TEST_F(TWindowProjects, LeftWithoutAQuestionIsOfferedItsEditsWhenItComesBack) {
  OpenExample();
  ClickCheck(Row("levels.dat"));
  Window().Projects().Leave(0);
  EXPECT_EQ(Window().Tabs().count(), 0);
  Window().Open(OtherProject());
  OfferRecovery(Window().Projects(), &Window(),
                FRoot / "other" / "TideLogger.vproj"); // asks nobody
  Window().Open(FProject);
  EXPECT_TRUE(IsChecked(Row("levels.dat")));
  AnswerNext("Recover");
  OfferRecovery(Window().Projects(), &Window(), FProject);
  EXPECT_FALSE(IsChecked(Row("levels.dat")));
  EXPECT_TRUE(Window().Projects().IsModified(Window().Tabs().currentIndex()));
}

TEST_F(TWindowProjects, LeftWithNothingToSaveLeavesNothingBehind) {
  OpenExample();
  Window().Projects().Leave(0);
  EXPECT_EQ(Window().Tabs().count(), 0);
  EXPECT_TRUE(FindRecoverable().Found.empty());
}

} // namespace
} // namespace workbench
