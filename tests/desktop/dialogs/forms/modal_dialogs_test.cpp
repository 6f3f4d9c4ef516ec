#include "package/view/revert_to_default_form.h"
#include "package/view/select_form.h"
#include "tests/desktop/support/dialog_script.h"
#include "workbench/desktop/dialogs/forms/modal_dialogs.h"

#include <QCheckBox>
#include <QLabel>
#include <QListView>
#include <QRadioButton>

namespace workbench {
namespace {

using deployment::TModalResult;
using deployment::TRevertScope;
using testing::Child;
using testing::ClickCheckBox;
using testing::OnNextDialog;
using testing::Press;

deployment::TSelectForm TwoOfThree() {
  deployment::TSelectForm form;
  form.AddPlatform("Win32", true);
  form.AddPlatform("OSX32", false);
  form.AddPlatform("Android", true);
  return form;
}

TEST(SelectDialog, TicksAndUnticksPlatforms) {
  auto form = TwoOfThree();
  TModalDialogs dialogs(nullptr);
  OnNextDialog([](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Select Platforms");
    auto& list = Child<QListView>(dialog, "cbPlatforms");
    ClickCheckBox(list, list.model()->index(1, 0));
    ClickCheckBox(list, list.model()->index(0, 0));
    Press(dialog, "OK");
  });
  EXPECT_EQ(dialogs.ShowSelectPlatforms(form), TModalResult::OK);
  EXPECT_FALSE(form.IsChecked(0));
  EXPECT_TRUE(form.IsChecked(1));
  EXPECT_TRUE(form.IsChecked(2));
}

TEST(SelectDialog, ShowsThatTheLastTickCameBack) {
  deployment::TSelectForm form;
  form.AddPlatform("Win32", true);
  form.AddPlatform("OSX32", false);
  TModalDialogs dialogs(nullptr);
  OnNextDialog([](QDialog& dialog) {
    auto& list = Child<QListView>(dialog, "cbPlatforms");
    const QModelIndex first = list.model()->index(0, 0);
    ClickCheckBox(list, first);
    EXPECT_EQ(first.data(Qt::CheckStateRole).toInt(), Qt::Checked);
    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&list, Qt::Key_Space);
    ClickCheckBox(list, first);
    EXPECT_EQ(first.data(Qt::CheckStateRole).toInt(), Qt::Unchecked);
    Press(dialog, "OK");
  });
  EXPECT_EQ(dialogs.ShowSelectPlatforms(form), TModalResult::OK);
  EXPECT_FALSE(form.IsChecked(0));
  EXPECT_TRUE(form.IsChecked(1));
}

TEST(SelectDialog, HasTheSizeThatTheFormAsksFor) {
  auto form = TwoOfThree();
  TModalDialogs dialogs(nullptr);
  OnNextDialog([](QDialog& dialog) {
    EXPECT_EQ(dialog.size(), QSize(295, 273));
    EXPECT_EQ(dialog.minimumSize(), dialog.maximumSize());
  });
  EXPECT_EQ(dialogs.ShowSelectPlatforms(form), TModalResult::Cancel);
}

TEST(SelectDialog, StandsInTheMiddleOfTheWindow) {
  QWidget window;
  window.setGeometry(100, 50, 600, 500);
  window.show();
  auto form = TwoOfThree();
  TModalDialogs dialogs(&window);
  OnNextDialog([&](QDialog& dialog) {
    const QPoint off = dialog.frameGeometry().center() - window.frameGeometry().center();
    EXPECT_LE(off.manhattanLength(), 2);
  });
  dialogs.ShowSelectPlatforms(form);
}

TEST(SelectDialog, TakesEnterForOkUnlessAnotherButtonHasTheFocus) {
  auto form = TwoOfThree();
  TModalDialogs dialogs(nullptr);
  OnNextDialog([](QDialog& dialog) {
    QTest::keyClick(&Child<QListView>(dialog, "cbPlatforms"), Qt::Key_Return);
  });
  EXPECT_EQ(dialogs.ShowSelectPlatforms(form), TModalResult::OK);
  OnNextDialog([](QDialog& dialog) {
    auto* button = testing::FindButton(dialog, "Cancel");
    button->setFocus();
    QTest::keyClick(button, Qt::Key_Return);
  });
  EXPECT_EQ(dialogs.ShowSelectPlatforms(form), TModalResult::Cancel);
}

TEST(RevertDialog, PassesOnScopeAndKeptFiles) {
  deployment::TRevertToDefaultForm form;
  TModalDialogs dialogs(nullptr);
  OnNextDialog([](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Please specify the action");
    EXPECT_TRUE(Child<QRadioButton>(dialog, "RBActivePlatform").isChecked());
    EXPECT_TRUE(Child<QCheckBox>(dialog, "chkKeepAddedFiles").isChecked());
    EXPECT_TRUE(dialog.findChild<QLabel*>()->text().startsWith("Warning: This action could"));
    QTest::mouseClick(&Child<QRadioButton>(dialog, "RBAllPlatforms"), Qt::LeftButton, {}, {8, 8});
    QTest::keyClick(&Child<QCheckBox>(dialog, "chkKeepAddedFiles"), Qt::Key_Space);
    Press(dialog, "OK");
  });
  EXPECT_EQ(dialogs.ShowRevertToDefault(form), TModalResult::OK);
  EXPECT_EQ(form.GetScope(), TRevertScope::AllPlatforms);
  EXPECT_FALSE(form.GetKeepAddedFiles());
}

TEST(RevertDialog, IsCancelledByEnterAndByEscape) {
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
    deployment::TRevertToDefaultForm form;
    TModalDialogs dialogs(nullptr);
    OnNextDialog([key](QDialog& dialog) { QTest::keyClick(dialog.focusWidget(), key); });
    EXPECT_EQ(dialogs.ShowRevertToDefault(form), TModalResult::Cancel);
  }
}

} // namespace
} // namespace workbench
