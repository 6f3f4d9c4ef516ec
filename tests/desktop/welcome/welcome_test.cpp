// The first hour: what stands there without a project, and what a project misses.
#include "tests/desktop/window/window_fixture.h"
#include "workbench/desktop/notices/project_notices.h"
#include "workbench/desktop/welcome/guide_dialog.h"
#include "workbench/desktop/welcome/new_project_dialog.h"
#include "workbench/desktop/welcome/welcome_page.h"
#include "workbench/desktop/window/main_window.h"

#include <QCommandLinkButton>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QTextBrowser>
#include <sys/stat.h>

namespace workbench {
namespace {

using testing::Child;
using testing::FindButton;
using testing::OnNextDialog;
using testing::Press;

class TWindowFirstHour : public testing::TWindowTest {
protected:
  void SetUp() override {
    TWindowTest::SetUp();
    FEnvironment.Set("HOME", (FRoot / "home").string());
    std::filesystem::copy(std::filesystem::current_path() / "examples" / "sky-chart", FRoot / "sky",
                          std::filesystem::copy_options::recursive);
    FSky = FRoot / "sky" / "SkyChart.vproj";
  }
  TWelcomePage& Welcome() { return *Window().findChild<TWelcomePage*>(); }
  TNoticeStrip* Strip(const char* subject) {
    TNoticeBox* box = Window().Notices().BoxOf(Project());
    return box ? box->Find(subject) : nullptr;
  }
  void OfferOptionalFiles() {
    Host().Settings().WriteBool(deployment::FeaturedSettingsSection,
                                deployment::ShowFeaturedFormAuto, true);
  }
  static QAbstractButton* ButtonThatBegins(QWidget& widget, const QString& text) {
    for (auto* button : widget.findChildren<QAbstractButton*>()) {
      if (button->text().remove('&').startsWith(text))
        return button;
    }
    return nullptr;
  }
  static void Enter(QDialog& dialog, const char* name, const std::filesystem::path& path) {
    Child<QLineEdit>(dialog, name).setText(QString::fromStdString(path.string()));
  }

  std::filesystem::path FSky;
};

TEST_F(TWindowFirstHour, RecentProjectsAreOneClickAwayAndThoseThatAreGoneStayAway) {
  OpenExample();
  Choose("Close");
  QAbstractButton* recent = ButtonThatBegins(Welcome(), "TideLogger.vproj");
  ASSERT_NE(recent, nullptr);
  QTest::mouseClick(recent, Qt::LeftButton);
  Settle();
  EXPECT_EQ(Window().Tabs().count(), 1);
  Choose("Close");
  std::filesystem::rename(FProject, FRoot / "tide" / "Gone.vproj");
  Vanish();
  SetUpAgain();
  EXPECT_EQ(ButtonThatBegins(Welcome(), "TideLogger.vproj"), nullptr);
}

TEST_F(TWindowFirstHour, ExamplesOpenInPlaceWhereTheyCanBeWritten) {
  const std::vector<TExampleProject> examples = FindExamples(std::filesystem::current_path());
  ASSERT_EQ(examples.size(), 3U);
  for (const TExampleProject& example : examples)
    EXPECT_NE(ButtonThatBegins(Welcome(), example.Name), nullptr) << example.Name.toStdString();
  EXPECT_EQ(WritableExample(examples.front()), examples.front().File);
  EXPECT_TRUE(FindExamples(FRoot / "nothing").empty());
}

TEST_F(TWindowFirstHour, AnExampleOpensOnAClickFromTheFirstPage) {
  TMainWindow& window = Window();
  emit Welcome().ExampleWanted({"Sky", "", FSky});
  Settle();
  EXPECT_EQ(window.Tabs().count(), 1);
  EXPECT_EQ(Project().GivenFileName(), FSky);
}

TEST_F(TWindowFirstHour, TheGuideShowsBesideTheWindow) {
  Press(Welcome(), "User Guide");
  Settle();
  auto* guide = Window().findChild<TGuideDialog*>();
  ASSERT_NE(guide, nullptr);
  EXPECT_FALSE(guide->isModal());
  EXPECT_TRUE(guide->findChild<QTextBrowser*>()->toPlainText().contains("Remote"));
  guide->close();
}

TEST_F(TWindowFirstHour, ANewProjectHasTheTickedPlatformsAndTheConfigurations) {
  const auto file = FRoot / "made" / "First.vproj";
  std::filesystem::create_directory(file.parent_path());
  std::string refused;
  OnNextDialog([&](QDialog& dialog) {
    QTest::keyClick(&dialog, Qt::Key_Return); // without a name
    refused = dialog.findChildren<QLabel*>().last()->text().toStdString();
    Enter(dialog, "file", FRoot / "made" / "First");
    auto& platforms = *dialog.findChild<QListWidget*>();
    for (int row = 0; row < platforms.count(); ++row) {
      QListWidgetItem* item = platforms.item(row);
      item->setCheckState(item->text() == "Win64" || item->text() == "Linux64" ? Qt::Checked
                                                                               : Qt::Unchecked);
    }
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  Press(Welcome(), "New Project…");
  Settle();
  ASSERT_TRUE(std::filesystem::exists(file)) << refused;
  ASSERT_EQ(Window().Tabs().count(), 1);
  const std::string text = Read(file);
  EXPECT_NE(text.find("<TargetPlatform Include=\"Win64\"/>"), std::string::npos) << text;
  EXPECT_NE(text.find("<TargetPlatform Include=\"Linux64\"/>"), std::string::npos);
  EXPECT_EQ(text.find("Include=\"Win32\""), std::string::npos);
  EXPECT_NE(text.find("Include=\"Release\""), std::string::npos);
}

TEST_F(TWindowFirstHour, AProjectThatIsThereAlreadyIsNotReplaced) {
  const std::string before = Read(FProject);
  std::string said;
  OnNextDialog([&](QDialog& dialog) {
    Enter(dialog, "file", FProject);
    Press(dialog, "Make Project");
    for (const auto* label : dialog.findChildren<QLabel*>())
      said += label->text().toStdString() + "|";
  });
  Choose("New");
  EXPECT_NE(said.find("TideLogger.vproj exists already."), std::string::npos) << said;
  EXPECT_EQ(Read(FProject), before);
  EXPECT_EQ(Window().Tabs().count(), 0);
}

TEST_F(TWindowFirstHour, ADirectoryThatNoBuildMadeIsNamedAndNothingIsWritten) {
  std::string said;
  OnNextDialog([&](QDialog& dialog) {
    Enter(dialog, "file", FRoot / "Built.vproj");
    for (auto* choice : dialog.findChildren<QRadioButton*>()) {
      if (choice->text().contains("rules"))
        choice->click();
    }
    Enter(dialog, "build", FRoot / "tide");
    Press(dialog, "Make Project");
    for (const auto* label : dialog.findChildren<QLabel*>())
      said += label->text().toStdString() + "|";
  });
  Choose("New");
  EXPECT_NE(said.find("tide"), std::string::npos) << said;
  EXPECT_FALSE(std::filesystem::exists(FRoot / "Built.vproj"));
}

TEST_F(TWindowFirstHour, OptionalFilesAreOfferedByAStripAndNotByADialog) {
  OfferOptionalFiles();
  ASSERT_TRUE(Window().Open(FSky)); // a dialog would hang here
  Settle();
  ASSERT_NE(Strip("features"), nullptr);
  EXPECT_NE(Strip("features")->Text().indexOf("fit this project: "), -1);
  EXPECT_FALSE(Window().isWindowModified());
  int opened = 0;
  OnNextDialog([&opened](QDialog& dialog) {
    ++opened;
    Press(dialog, "Cancel");
  });
  QTest::mouseClick(FindButton(*Strip("features"), "Choose…"), Qt::LeftButton);
  Settle();
  EXPECT_EQ(opened, 1);
  EXPECT_EQ(Strip("features"), nullptr);
}

TEST_F(TWindowFirstHour, NotNowIsRememberedForThePersonAndLeavesTheProjectAlone) {
  OfferOptionalFiles();
  const std::string before = Read(FSky);
  ASSERT_TRUE(Window().Open(FSky));
  Settle();
  ASSERT_NE(Strip("features"), nullptr);
  QTest::mouseClick(FindButton(*Strip("features"), "Not Now"), Qt::LeftButton);
  Settle();
  EXPECT_EQ(Strip("features"), nullptr);
  Choose("Close"); // a question would hang here
  EXPECT_EQ(Read(FSky), before);
  Vanish();
  OfferOptionalFiles();
  ASSERT_TRUE(Window().Open(FSky));
  Settle();
  EXPECT_EQ(Strip("features"), nullptr);
}

TEST_F(TWindowFirstHour, AProfileThatIsNotHereIsMadeAFolderByOneClickAndTheExampleDeploys) {
  ASSERT_TRUE(Window().Open(FSky));
  Window().ChooseTarget("Debug", "Win32");
  Settle();
  ASSERT_NE(Strip("profile"), nullptr);
  EXPECT_EQ(
      Strip("profile")->Text().toStdString(),
      "The project goes to Win32 by the remote profile lab-pc, which is not on this machine.");
  QAbstractButton* use = ButtonThatBegins(*Strip("profile"), "Use the Folder ");
  ASSERT_NE(use, nullptr);
  EXPECT_EQ(use->text().remove('&').toStdString(), "Use the Folder ~/Deployed/lab-pc");
  QTest::mouseClick(use, Qt::LeftButton);
  Settle();
  EXPECT_EQ(Strip("profile"), nullptr);
  ASSERT_NE(Host().RemoteProfiles().FindProfile("lab-pc"), nullptr);
  EXPECT_TRUE(std::filesystem::is_directory(FRoot / "home" / "Deployed" / "lab-pc"));
  Window().ChooseTarget("Debug", "Win64");
  Settle();
  EXPECT_EQ(Strip("profile"), nullptr);
}

TEST_F(TWindowFirstHour, AnOutputThatIsNotBuiltIsNamedAndItsRowIsOneClickAway) {
  std::filesystem::remove(FRoot / "tide" / "Win64" / "Debug" / "TideLogger.dll");
  OpenExample();
  ASSERT_NE(Strip("output"), nullptr);
  EXPECT_NE(Strip("output")->Text().indexOf("Win64\\Debug\\TideLogger.dll"), -1);
  Press(*Strip("output"), "Go to Row");
  EXPECT_EQ(View().currentIndex().row(), Row("TideLogger.dll").row());
  Write(FRoot / "tide" / "Win64" / "Debug" / "TideLogger.dll", "built");
  Window().Projects().Reload(0);
  Settle();
  EXPECT_EQ(Strip("output"), nullptr);
}

TEST_F(TWindowFirstHour, SettingsThatOtherProgramsChangedAreKnown) {
  OpenExample();
  TSettings others(Host().Settings().File());
  others.Set("undo-runs", "7");
  EXPECT_TRUE(QTest::qWaitFor(
      [this] { return Host().Settings().Get("undo-runs") == std::optional<std::string>("7"); },
      10000));
}

} // namespace
} // namespace workbench
