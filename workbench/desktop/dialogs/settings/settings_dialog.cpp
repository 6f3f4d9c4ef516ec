#include "workbench/desktop/dialogs/settings/settings_dialog.h"

#include "workbench/desktop/dialogs/settings/consents_page.h"
#include "workbench/desktop/dialogs/settings/general_page.h"
#include "workbench/desktop/dialogs/settings/paths_page.h"
#include "workbench/desktop/dialogs/settings/sdk_page.h"
#include "workbench/desktop/text/engine_text.h"
#include "workbench/desktop/text/error_text.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/platforms/platform_table.h"
#include "workbench/session/session.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace workbench {

TSettingsDialog::TSettingsDialog(TSession& session, QWidget* parent)
    : QDialog(parent), FSettings(session.Settings()), FTabs(new QTabWidget(this)) {
  setWindowTitle(tr("Settings"));
  QStringList platforms;
  for (const std::string& name : session.Platforms().Names())
    platforms += ToQString(name);
  AddPage(new TGeneralPage(FSettings, FTabs));
  AddPage(new TSdkPage(FSettings, platforms, FTabs));
  AddPage(new TPathsPage(FSettings, platforms, FTabs));
  AddPage(new TConsentsPage(FSettings, ListConsents(session.Settings()), FTabs));
  auto* buttons = new QDialogButtonBox(this);
  buttons->addButton(QDialogButtonBox::Ok)->setText(tr("OK"));
  buttons->addButton(QDialogButtonBox::Cancel)->setText(tr("Cancel"));
  connect(buttons, &QDialogButtonBox::accepted, this, &TSettingsDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(FTabs);
  layout->addWidget(buttons);
  resize(fontMetrics().averageCharWidth() * 110, fontMetrics().lineSpacing() * 24);
}

void TSettingsDialog::AddPage(TSettingsPage* page) {
  FTabs->addTab(page, page->Title());
  FPages.push_back(page);
}

void TSettingsDialog::accept() {
  for (TSettingsPage* page : FPages)
    page->Collect();
  const std::vector<std::string> problems = FSettings.Apply();
  if (problems.empty())
    return QDialog::accept();
  QString text = tr("Not every setting could be written:");
  for (const std::string& problem : problems)
    text += QLatin1Char('\n') + EngineText(problem);
  ShowError(tr("Settings"), text, this);
}

} // namespace workbench
