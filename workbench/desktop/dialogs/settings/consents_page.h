// The page of the settings with the commands of projects that the user said yes to.
#pragma once

#include "workbench/desktop/dialogs/settings/settings_edit.h"
#include "workbench/desktop/dialogs/settings/settings_page.h"
#include "workbench/settings/command_consent.h"

#include <vector>

class QPushButton;
class QTreeWidget;

namespace workbench {

class TConsentsPage final : public TSettingsPage {
  Q_OBJECT

public:
  TConsentsPage(TSettingsEdit& settings, const std::vector<TConsent>& consents, QWidget* parent);
  QString Title() const override;

private:
  void Forget();
  void ShowState();

  TSettingsEdit& FSettings;
  QTreeWidget* FTree;
  QPushButton* FForget;
};

} // namespace workbench
