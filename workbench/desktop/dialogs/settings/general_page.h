// The settings that concern everybody.
#pragma once

#include "workbench/desktop/dialogs/settings/settings_edit.h"
#include "workbench/desktop/dialogs/settings/settings_page.h"

class QCheckBox;
class QComboBox;
class QLineEdit;

namespace workbench {

/// Key of the language of the window, such as "de"; unset: that of the system.
inline constexpr std::string_view LanguageSetting = "language";

class TGeneralPage final : public TSettingsPage {
  Q_OBJECT

public:
  TGeneralPage(TSettingsEdit& settings, QWidget* parent);
  QString Title() const override;
  void Collect() override;

private:
  TSettingsEdit& FSettings;
  QLineEdit* FProductName;
  QComboBox* FLanguage;
  QCheckBox* FShowFeatured;
  QCheckBox* FDeployUnasked;
};

} // namespace workbench
