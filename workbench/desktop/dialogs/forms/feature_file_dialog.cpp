#include "workbench/desktop/dialogs/forms/feature_file_dialog.h"

#include "workbench/desktop/dialogs/forms/dialog_place.h"
#include "workbench/desktop/dialogs/forms/feature_tree_model.h"
#include "workbench/desktop/text/help_topics.h"
#include "workbench/desktop/text/package_texts.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QShortcut>
#include <QTreeView>
#include <QVBoxLayout>

namespace workbench {
namespace {

constexpr QSize SmallestTree(525, 286);

} // namespace

TFeatureFileDialog::TFeatureFileDialog(deployment::IFeatureFileForm& form, QWidget* parent)
    : QDialog(parent), FForm(form), FTree(new QTreeView(this)) {
  setWindowTitle(PackageText(form.GetCaption()));
  MakeTree();
  auto* showAuto = new QCheckBox(tr("&Show automatically when required"), this);
  showAuto->setObjectName(QStringLiteral("cbShowAuto"));
  showAuto->setChecked(form.GetShowAuto());
  connect(showAuto, &QCheckBox::toggled, this, [this](bool on) { FForm.SetShowAuto(on); });
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(FTree);
  layout->addWidget(showAuto);
  layout->addWidget(MakeButtons());
  FTree->setFocus();
}

void TFeatureFileDialog::MakeTree() {
  FTree->setObjectName(QStringLiteral("vtFiles"));
  FTree->setAccessibleName(tr("Featured files"));
  FTree->setModel(new TFeatureTreeModel(FForm, FTree));
  FTree->setHeaderHidden(true);
  FTree->setUniformRowHeights(true);
  FTree->setMinimumSize(SmallestTree);
  FTree->expandAll();
  FTree->setCurrentIndex(FTree->model()->index(0, 0));
}

QWidget* TFeatureFileDialog::MakeButtons() {
  auto* buttons = new QDialogButtonBox(this);
  buttons->addButton(QDialogButtonBox::Ok)->setText(PackageText("OK"));
  buttons->addButton(QDialogButtonBox::Cancel)->setText(PackageText("Cancel"));
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  if (HasHelpTopic(FForm.GetHelpContext())) {
    buttons->addButton(QDialogButtonBox::Help)->setText(tr("&Help"));
    connect(buttons, &QDialogButtonBox::helpRequested, this, &TFeatureFileDialog::ShowHelp);
    connect(new QShortcut(QKeySequence::HelpContents, this), &QShortcut::activated, this,
            &TFeatureFileDialog::ShowHelp);
  }
  return buttons;
}

void TFeatureFileDialog::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  CenterOn(*this, parentWidget());
}

void TFeatureFileDialog::ShowHelp() {
  ShowHelpTopic(FForm.GetHelpContext(), this);
}

} // namespace workbench
