#include "workbench/desktop/dialogs/settings/consents_page.h"

#include "workbench/desktop/text/qt_text.h"
#include "workbench/text/visible_text.h"

#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <memory>

namespace workbench {
namespace {

constexpr int KeyRole = Qt::UserRole;

} // namespace

TConsentsPage::TConsentsPage(TSettingsEdit& settings, const std::vector<TConsent>& consents,
                             QWidget* parent)
    : TSettingsPage(parent), FSettings(settings), FTree(new QTreeWidget(this)),
      FForget(new QPushButton(tr("&Forget"), this)) {
  auto* caption = new QLabel(
      tr("These &commands run, and these files from beyond a project's directory are sent, "
         "without a question when their project is deployed:"),
      this);
  caption->setWordWrap(true);
  caption->setBuddy(FTree);
  FTree->setObjectName(QStringLiteral("consents"));
  FTree->setAccessibleName(tr("Projects with their commands and files"));
  FTree->setHeaderHidden(true);
  FTree->setUniformRowHeights(true);
  for (const TConsent& consent : consents) {
    const std::string place = consent.Place.empty() ? "" : " \u2192 " + consent.Place;
    auto* project = new QTreeWidgetItem(FTree, {ToQString(Visible(consent.Project) + place)});
    project->setData(0, KeyRole, ToQString(consent.Key));
    for (const std::string& text : consent.Texts)
      new QTreeWidgetItem(project, {ToQString(Visible(text))});
  }
  FTree->expandAll();
  FTree->setCurrentItem(FTree->topLevelItem(0));
  FForget->setAutoDefault(false);
  connect(FForget, &QPushButton::clicked, this, &TConsentsPage::Forget);
  connect(FTree, &QTreeWidget::currentItemChanged, this, &TConsentsPage::ShowState);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(caption);
  layout->addWidget(FTree, 1);
  layout->addWidget(FForget, 0, Qt::AlignRight);
  ShowState();
}

QString TConsentsPage::Title() const {
  return tr("Consents");
}

void TConsentsPage::ShowState() {
  FForget->setEnabled(FTree->currentItem() != nullptr);
}

// A yes holds for all commands of a project at a place together, so they are forgotten together.
void TConsentsPage::Forget() {
  QTreeWidgetItem* item = FTree->currentItem();
  if (!item)
    return;
  if (item->parent())
    item = item->parent();
  FSettings.Unset(ToStdString(item->data(0, KeyRole).toString()));
  const std::unique_ptr<QTreeWidgetItem> removed(item); // which takes itself out of the tree
}

} // namespace workbench
