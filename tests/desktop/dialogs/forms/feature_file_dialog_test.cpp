#include "tests/desktop/dialogs/forms/two_features.h"
#include "tests/desktop/support/dialog_script.h"
#include "workbench/desktop/dialogs/forms/feature_file_dialog.h"
#include "workbench/desktop/dialogs/forms/feature_tree_model.h"
#include "workbench/desktop/dialogs/forms/modal_dialogs.h"

#include <QAbstractItemModelTester>
#include <QCheckBox>
#include <QMessageBox>
#include <QTreeView>

namespace workbench {
namespace {

using deployment::TCheckState;
using testing::Child;
using testing::ClickCheckBox;
using testing::OnNextDialog;
using testing::Press;
using testing::TTwoFeatures;

QModelIndex At(const QAbstractItemModel& model, std::initializer_list<int> rows) {
  QModelIndex index;
  for (const int row : rows)
    index = model.index(row, 0, index);
  return index;
}

int StateAt(const QAbstractItemModel& model, std::initializer_list<int> rows) {
  return At(model, rows).data(Qt::CheckStateRole).toInt();
}

TEST(FeatureTreeModel, IsAProperModel) {
  TTwoFeatures form;
  TFeatureTreeModel model(form, nullptr);
  const QAbstractItemModelTester tester(&model,
                                        QAbstractItemModelTester::FailureReportingMode::Fatal);
  EXPECT_EQ(model.rowCount(), 2);
  EXPECT_EQ(model.rowCount(At(model, {0, 0})), 2);
  EXPECT_EQ(At(model, {0, 1, 0}).data().toString(), "libclient.dylib");
  EXPECT_EQ(At(model, {0, 1, 0}).parent().parent().data().toString(), "Database client");
  EXPECT_TRUE(model.setData(At(model, {0, 0}), Qt::Checked, Qt::CheckStateRole));
  EXPECT_FALSE(model.setData(At(model, {0, 0}), "x", Qt::EditRole));
}

TEST(FeatureTreeModel, SaysWhereAFileGoes) {
  TTwoFeatures form;
  const TFeatureTreeModel model(form, nullptr);
  EXPECT_EQ(At(model, {0, 0, 0}).data(Qt::ToolTipRole).toString(),
            "<p>client.dll</p><p>Win32: to bin\\</p>");
  EXPECT_EQ(At(model, {0, 0, 1}).data(Qt::ToolTipRole).toString(),
            "<p>client.msg</p><p>Win32: to the base directory</p>");
  EXPECT_TRUE(At(model, {0}).data(Qt::ToolTipRole).toString().isEmpty());
}

TEST(FeatureFileDialog, ShowsTheStateOfParentsAfterEachClick) {
  TTwoFeatures form;
  TModalDialogs dialogs(nullptr);
  OnNextDialog([](QDialog& dialog) {
    auto& tree = Child<QTreeView>(dialog, "vtFiles");
    const auto& model = *tree.model();
    ClickCheckBox(tree, At(model, {0, 0, 1}));
    EXPECT_EQ(StateAt(model, {0, 0}), Qt::PartiallyChecked);
    EXPECT_EQ(StateAt(model, {0}), Qt::PartiallyChecked);
    ClickCheckBox(tree, At(model, {0}));
    EXPECT_EQ(StateAt(model, {0, 1, 0}), Qt::Checked);
    ClickCheckBox(tree, At(model, {0, 1}));
    EXPECT_EQ(StateAt(model, {0}), Qt::PartiallyChecked);
    tree.setCurrentIndex(At(model, {1}));
    QTest::keyClick(&tree, Qt::Key_Space);
    Press(dialog, "OK");
  });
  EXPECT_EQ(dialogs.ShowFeatureFiles(form), deployment::TModalResult::OK);
  EXPECT_EQ(form.GetCheckState(TTwoFeatures::First), TCheckState::Checked);
  EXPECT_EQ(form.GetCheckState(TTwoFeatures::Third), TCheckState::Unchecked);
  EXPECT_EQ(form.GetCheckState(TTwoFeatures::Fourth), TCheckState::Checked);
}

TEST(FeatureFileDialog, PassesOnTheBoxAndTheCancel) {
  TTwoFeatures form;
  TModalDialogs dialogs(nullptr);
  OnNextDialog([](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Featured Files");
    auto& box = Child<QCheckBox>(dialog, "cbShowAuto");
    EXPECT_TRUE(box.isChecked());
    QTest::mouseClick(&box, Qt::LeftButton, {}, {8, box.height() / 2});
    Press(dialog, "Cancel");
  });
  EXPECT_EQ(dialogs.ShowFeatureFiles(form), deployment::TModalResult::Cancel);
  EXPECT_FALSE(form.GetShowAuto());
}

TEST(FeatureFileDialog, HelpsAndStaysOpen) {
  TTwoFeatures form;
  TModalDialogs dialogs(nullptr);
  OnNextDialog([](QDialog& dialog) {
    QString help;
    OnNextDialog([&](QDialog& box) { help = dynamic_cast<QMessageBox&>(box).text(); });
    Press(dialog, "Help");
    EXPECT_TRUE(help.startsWith("Features are sets of optional files")) << help.toStdString();
    EXPECT_TRUE(dialog.isVisible());
  });
  EXPECT_EQ(dialogs.ShowFeatureFiles(form), deployment::TModalResult::Cancel);
}

TEST(FeatureFileDialog, StandsInTheMiddleOfTheWindowAlsoWhenThatIsMovedLater) {
  QWidget window;
  window.setGeometry(100, 50, 700, 500);
  window.show();
  TTwoFeatures form;
  TModalDialogs dialogs(&window);
  for (const QPoint place : {QPoint(100, 50), QPoint(20, 10)}) {
    window.move(place);
    OnNextDialog([&](QDialog& dialog) {
      const QPoint off = dialog.frameGeometry().center() - window.frameGeometry().center();
      EXPECT_LE(off.manhattanLength(), 2);
    });
    dialogs.ShowFeatureFiles(form);
  }
  EXPECT_EQ(dialogs.AnswerCount(), 2U);
}

} // namespace
} // namespace workbench
