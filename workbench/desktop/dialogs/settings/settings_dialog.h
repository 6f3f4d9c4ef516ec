// The dialog of the user's settings.
#pragma once

#include "workbench/desktop/dialogs/settings/settings_edit.h"

#include <QDialog>
#include <vector>

class QTabWidget;

namespace workbench {

class TSession;
class TSettingsPage;

/// Nothing is written before OK. What cannot be written is said then, and the dialog stays.
class TSettingsDialog final : public QDialog {
  Q_OBJECT

public:
  /// The session must outlive the dialog.
  TSettingsDialog(TSession& session, QWidget* parent);

public slots:
  void accept() override;

private:
  void AddPage(TSettingsPage* page);

  TSettingsEdit FSettings;
  QTabWidget* FTabs;
  std::vector<TSettingsPage*> FPages; // owned by the tabs
};

} // namespace workbench
