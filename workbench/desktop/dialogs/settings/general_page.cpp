#include "workbench/desktop/dialogs/settings/general_page.h"

#include "package/common/convert.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/settings/flag_setting.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>

namespace workbench {
namespace {

constexpr std::string_view ProductName = "product-name";
constexpr std::string_view ShowFeatured = "DeploymentManager.ShowFeaturedFormAuto";

bool IsOn(const std::string& text) {
  return deployment::TextToBoolean(text).value_or(true);
}

} // namespace

TGeneralPage::TGeneralPage(TSettingsEdit& settings, QWidget* parent)
    : TSettingsPage(parent), FSettings(settings), FProductName(new QLineEdit(this)),
      FLanguage(new QComboBox(this)),
      FShowFeatured(
          new QCheckBox(tr("Offer &featured files when a file of the project needs them"), this)),
      FDeployUnasked(new QCheckBox(tr("&Deploy without asking when nothing conflicts"), this)) {
  FProductName->setObjectName(QStringLiteral("productName"));
  FProductName->setText(ToQString(settings.Get(ProductName)));
  FProductName->setPlaceholderText(QStringLiteral("Deployment Manager"));
  FProductName->setToolTip(
      tr("Featured files that are meant for another product are not offered."));
  FLanguage->setObjectName(QStringLiteral("language"));
  FLanguage->addItem(tr("as the system"), QString());
  FLanguage->addItem(QStringLiteral("English"), QStringLiteral("en"));
  FLanguage->addItem(QStringLiteral("Deutsch"), QStringLiteral("de"));
  FLanguage->setToolTip(tr("Takes effect when the program is started again."));
  const QString language = ToQString(settings.Get(LanguageSetting));
  if (FLanguage->findData(language) < 0)
    FLanguage->addItem(language, language);
  FLanguage->setCurrentIndex(FLanguage->findData(language));
  FShowFeatured->setObjectName(QStringLiteral("showFeatured"));
  FShowFeatured->setChecked(IsOn(settings.Get(ShowFeatured)));
  FDeployUnasked->setObjectName(QStringLiteral("deployUnasked"));
  FDeployUnasked->setToolTip(tr("Else the plan is shown first."));
  FDeployUnasked->setChecked(
      deployment::TextToBoolean(settings.Get(DeployUnaskedSetting)).value_or(false));
  auto* form = new QFormLayout(this);
  form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
  form->addRow(tr("&Product name:"), FProductName);
  form->addRow(tr("&Language:"), FLanguage);
  form->addRow(FShowFeatured);
  form->addRow(FDeployUnasked);
}

QString TGeneralPage::Title() const {
  return tr("General");
}

// A box that the user left alone stays as it is written, even where that is no Boolean.
void TGeneralPage::Collect() {
  FSettings.Set(ProductName, ToStdString(FProductName->text().trimmed()));
  FSettings.Set(LanguageSetting, ToStdString(FLanguage->currentData().toString()));
  if (FShowFeatured->isChecked() != IsOn(FSettings.Get(ShowFeatured)))
    FSettings.Set(ShowFeatured, std::string(deployment::BooleanToText(FShowFeatured->isChecked())));
  const bool wasUnasked =
      deployment::TextToBoolean(FSettings.Get(DeployUnaskedSetting)).value_or(false);
  if (FDeployUnasked->isChecked() != wasUnasked)
    FSettings.Set(DeployUnaskedSetting,
                  std::string(deployment::BooleanToText(FDeployUnasked->isChecked())));
}

} // namespace workbench
