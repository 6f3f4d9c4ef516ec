#include "tests/desktop/support/dialog_script.h"
#include "tests/workbench/session/session_fixture.h"
#include "workbench/desktop/dialogs/settings/paths_page.h"
#include "workbench/desktop/dialogs/settings/sdk_model.h"
#include "workbench/desktop/dialogs/settings/settings_dialog.h"
#include "workbench/settings/command_consent.h"

#include <QAbstractItemModelTester>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTabWidget>
#include <QTableView>
#include <QTreeWidget>

namespace workbench {
namespace {

using testing::Child;
using testing::FindButton;
using testing::OnNextDialog;
using testing::Press;

class TSettingsDialogTest : public testing::TSessionTest {
protected:
  std::filesystem::path SettingsFile() const {
    return FRoot / "config" / "deployment-manager" / "settings.json";
  }
  TSettingsDialog& Show() {
    FDialog = std::make_unique<TSettingsDialog>(Host(), nullptr);
    FDialog->show();
    return *FDialog;
  }
  // What another run finds in settings.json.
  std::string Kept() const {
    const TSettings settings(SettingsFile());
    std::string text;
    for (const auto& [key, value] : settings.List())
      text.append(key).append("=").append(value).append(";");
    return text;
  }
  QWidget& Page(int index) {
    auto& tabs = *FDialog->findChild<QTabWidget*>();
    tabs.setCurrentIndex(index);
    return *tabs.currentWidget();
  }
  void TearDown() override {
    FDialog.reset();
    FSession.reset();
    TSessionTest::TearDown();
  }

  std::unique_ptr<TSettingsDialog> FDialog;
};

TEST_F(TSettingsDialogTest, WritesNothingWhenNothingWasChanged) {
  Host().Settings().Set("DeploymentManager.ShowFeaturedFormAuto", "perhaps");
  Host().Settings().Set("language", "fr");
  const std::string before = Read(SettingsFile());
  Show();
  Press(*FDialog, "OK");
  EXPECT_EQ(FDialog->result(), QDialog::Accepted);
  EXPECT_EQ(Read(SettingsFile()), before);
}

TEST_F(TSettingsDialogTest, WritesGeneralSettingsOnOkOnly) {
  Show();
  const auto enter = [&] {
    QTest::keyClicks(&Child<QLineEdit>(*FDialog, "productName"), "Studio");
    Child<QComboBox>(*FDialog, "language").setCurrentText("Deutsch");
    QTest::keyClick(&Child<QCheckBox>(*FDialog, "showFeatured"), Qt::Key_Space);
  };
  enter();
  Press(*FDialog, "Cancel");
  EXPECT_EQ(Kept(), "");
  Show();
  enter();
  Press(*FDialog, "OK");
  EXPECT_EQ(Kept(),
            "DeploymentManager.ShowFeaturedFormAuto=false;language=de;product-name=Studio;");
  Show();
  EXPECT_FALSE(Child<QCheckBox>(*FDialog, "showFeatured").isChecked());
  Child<QLineEdit>(*FDialog, "productName").clear();
  Child<QComboBox>(*FDialog, "language").setCurrentIndex(0);
  Press(*FDialog, "OK");
  EXPECT_EQ(Kept(), "DeploymentManager.ShowFeaturedFormAuto=false;");
}

TEST_F(TSettingsDialogTest, AddsAnSdkAndMakesItTheDefault) {
  Show();
  QWidget& page = Page(1);
  EXPECT_FALSE(FindButton(page, "Edit\u2026")->isEnabled());
  OnNextDialog([](QDialog& sdk) {
    Press(sdk, "OK");
    EXPECT_EQ(Child<QLabel>(sdk, "problem").text(), "Enter a name for the SDK.");
    QTest::keyClicks(&Child<QLineEdit>(sdk, "name"), "ndk-r21");
    EXPECT_FALSE(Child<QLineEdit>(sdk, "ndk").isEnabled());
    Child<QComboBox>(sdk, "platform").setCurrentText("Android");
    QTest::keyClicks(&Child<QLineEdit>(sdk, "ndk"), "/opt/ndk");
    QTest::keyClicks(&Child<QLineEdit>(sdk, "server"), "/opt/ndk/gdbserver");
    Press(sdk, "OK");
  });
  Press(page, "Add\u2026");
  Press(page, "Make Default");
  EXPECT_EQ(Kept(), "");
  Press(*FDialog, "OK");
  EXPECT_EQ(Kept(), "sdk-default.Android=ndk-r21;sdk.ndk-r21.debugger-server=/opt/ndk/gdbserver;"
                    "sdk.ndk-r21.ndk-base-path=/opt/ndk;sdk.ndk-r21.platform=Android;");
}

TEST_F(TSettingsDialogTest, ChangesAndRemovesSdks) {
  Host().Settings().Set("sdk.a.platform", "Android");
  Host().Settings().Set("sdk.a.ndk-base-path", "/a");
  Host().Settings().Set("sdk-default.Android", "a");
  Host().Settings().Set("sdk.b.c.platform", "OSX32");
  Show();
  QWidget& page = Page(1);
  auto& table = Child<QTableView>(page, "sdks");
  ASSERT_EQ(table.model()->rowCount(), 2);
  OnNextDialog([](QDialog& sdk) {
    auto& name = Child<QLineEdit>(sdk, "name");
    name.setText("b.c");
    Press(sdk, "OK");
    EXPECT_EQ(Child<QLabel>(sdk, "problem").text(),
              "There is an SDK of this name already. Enter another name.");
    name.setText("z");
    Press(sdk, "OK");
  });
  Press(page, "Edit\u2026");
  EXPECT_EQ(table.currentIndex().siblingAtColumn(0).data().toString(), "z");
  table.setCurrentIndex(table.model()->index(0, 0));
  Press(page, "Remove");
  Press(*FDialog, "OK");
  EXPECT_EQ(Kept(), "sdk-default.Android=z;sdk.z.ndk-base-path=/a;sdk.z.platform=Android;");
}

TEST_F(TSettingsDialogTest, EditsPathsInPlace) {
  Show();
  QWidget& page = Page(2);
  auto& table = Child<QTableView>(page, "paths");
  const QModelIndex cell = table.model()->index(0, TPathModel::LibraryPath);
  const std::string platform =
      table.model()->index(0, TPathModel::Platform).data().toString().toStdString();
  const QPoint place = table.visualRect(cell).center();
  QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, place);
  QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, place);
  auto* editor = table.viewport()->findChild<QLineEdit*>();
  ASSERT_NE(editor, nullptr);
  QTest::keyClicks(editor, "/a;/b");
  QTest::keyClick(editor, Qt::Key_Return);
  QCoreApplication::processEvents(); // the editor hands its text on by an event
  EXPECT_TRUE(FDialog->isVisible());
  QTest::keyClicks(&Child<QLineEdit>(page, "osxDirectory"), "/osx");
  Press(*FDialog, "OK");
  EXPECT_EQ(Kept(), "library-path." + platform + "=/a;/b;toolchain-osx-directory=/osx;");
}

TEST_F(TSettingsDialogTest, ForgetsAConsent) {
  Write(FFile, "x");
  Allow(Host().Settings(), FFile, "box", {"make \x1b[2J", "strip"});
  Allow(Host().Settings(), FDirectory / "other.vproj", "box", {"make"});
  Show();
  QWidget& page = Page(3);
  auto& tree = Child<QTreeWidget>(page, "consents");
  ASSERT_EQ(tree.topLevelItemCount(), 2);
  EXPECT_EQ(tree.topLevelItem(0)->child(0)->text(0), "make \\x1B[2J");
  tree.setCurrentItem(tree.topLevelItem(0)->child(1));
  Press(page, "Forget");
  EXPECT_EQ(tree.topLevelItemCount(), 1);
  EXPECT_TRUE(IsAllowed(Host().Settings(), FFile, "box", {"make \x1b[2J", "strip"}));
  Press(*FDialog, "OK");
  EXPECT_FALSE(IsAllowed(Host().Settings(), FFile, "box", {"make \x1b[2J", "strip"}));
  EXPECT_TRUE(IsAllowed(Host().Settings(), FDirectory / "other.vproj", "box", {"make"}));
}

TEST_F(TSettingsDialogTest, SaysWhatCouldNotBeWrittenAndStays) {
  Show();
  QTest::keyClicks(&Child<QLineEdit>(*FDialog, "productName"), "Studio");
  std::filesystem::create_directories(SettingsFile().parent_path());
  Write(SettingsFile(), "{");
  QString text;
  OnNextDialog([&](QDialog& box) { text = dynamic_cast<QMessageBox&>(box).text(); });
  Press(*FDialog, "OK");
  EXPECT_TRUE(text.startsWith("Not every setting could be written:\nproduct-name: "))
      << text.toStdString();
  EXPECT_TRUE(FDialog->isVisible());
  EXPECT_EQ(Read(SettingsFile()), "{");
  std::filesystem::remove(SettingsFile());
  Press(*FDialog, "OK");
  EXPECT_EQ(Kept(), "product-name=Studio;");
}

TEST_F(TSettingsDialogTest, HasProperModels) {
  using TMode = QAbstractItemModelTester::FailureReportingMode;
  TSettingsEdit edit(Host().Settings());
  TSdkModel sdks(edit, nullptr);
  TPathModel paths(edit, {"Win32", "OSX32"}, nullptr);
  const QAbstractItemModelTester sdkTester(&sdks, TMode::Fatal);
  const QAbstractItemModelTester pathTester(&paths, TMode::Fatal);
  sdks.Put({}, {.Name = "a", .Platform = "Android", .IsDefault = true});
  sdks.Put("a", {.Name = "b", .Platform = "OSX32"});
  EXPECT_EQ(sdks.rowCount(), 1);
  EXPECT_EQ(sdks.index(0, TSdkModel::Platform).data().toString(), "OSX32");
  EXPECT_FALSE(sdks.Sdk(0).IsDefault);
  sdks.Remove("b");
  EXPECT_FALSE(edit.HasChanges());
  EXPECT_FALSE(paths.setData(paths.index(0, 0), "x", Qt::EditRole));
  EXPECT_TRUE(paths.setData(paths.index(1, TPathModel::ToolChainPath), "/x", Qt::EditRole));
  EXPECT_EQ(edit.Get("toolchain-path.OSX32"), "/x");
}

} // namespace
} // namespace workbench
