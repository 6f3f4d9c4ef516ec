// Paints every dialog in light and in dark colours. DIALOG_PICTURES=DIRECTORY keeps the pictures,
// for people to look at.
#include "package/view/revert_to_default_form.h"
#include "package/view/select_form.h"
#include "tests/desktop/dialogs/forms/two_features.h"
#include "tests/desktop/support/dialog_script.h"
#include "tests/desktop/support/pictures.h"
#include "tests/workbench/session/session_fixture.h"
#include "workbench/deploy/deploy_observer.h"
#include "workbench/desktop/controls/qt_dialogs.h"
#include "workbench/desktop/deploy/consent_dialog.h"
#include "workbench/desktop/deploy/deploy_page.h"
#include "workbench/desktop/deploy/deploy_panel.h"
#include "workbench/desktop/dialogs/forms/modal_dialogs.h"
#include "workbench/desktop/dialogs/profiles/profile_edit_dialog.h"
#include "workbench/desktop/dialogs/profiles/profile_manager_dialog.h"
#include "workbench/desktop/dialogs/settings/settings_dialog.h"
#include "workbench/desktop/window/legible_style.h"
#include "workbench/services/remote_profile_services.h"
#include "workbench/settings/command_consent.h"

#include <QPalette>
#include <QTabWidget>

namespace workbench {
namespace {

using testing::OnNextDialog;

QPalette DarkPalette() {
  QPalette palette(QColor(53, 53, 53));
  palette.setColor(QPalette::Base, QColor(35, 35, 35));
  palette.setColor(QPalette::AlternateBase, QColor(45, 45, 45));
  palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, QColor(127, 127, 127));
  return palette;
}

class TDialogPictures : public testing::TSessionTest, public ::testing::WithParamInterface<bool> {
protected:
  void SetUp() override {
    TSessionTest::SetUp();
    QApplication::setStyle(new TLegibleStyle);
    if (GetParam())
      QApplication::setPalette(DarkPalette());
    for (const auto& [key, text] : {std::pair{"sdk.ndk-r21.platform", "Android"},
                                    {"sdk.ndk-r21.ndk-base-path", "/opt/ndk"},
                                    {"sdk-default.Android", "ndk-r21"},
                                    {"library-path.Win32", "/opt/lib/win32;/opt/lib"}})
      Host().Settings().Set(key, text);
    Allow(Host().Settings(), FFile, "bench", {"make resources", "strip bin/demo"});
    Host().RemoteProfiles().AddProfile(
        {.Name = "share", .Platform = "Win32", .Path = "/mnt/share", .IsDefault = true});
    Host().RemoteProfiles().AddProfile({.Name = "mac-mini",
                                        .Platform = "OSX32",
                                        .Kind = TProfileKind::Ssh,
                                        .Path = "~/app",
                                        .Host = "mac.example",
                                        .Port = 2222,
                                        .User = "eva"});
  }
  void TearDown() override {
    QApplication::setPalette(QApplication::style()->standardPalette());
    FSession.reset();
    TSessionTest::TearDown();
  }

  static void Keep(QWidget& widget, const QString& name) {
    testing::KeepPicture(widget, name + (GetParam() ? "-dark" : "-light"), "DIALOG_PICTURES");
  }
  static void KeepNext(const QString& name) {
    OnNextDialog([name](QDialog& dialog) {
      QApplication::processEvents();
      Keep(dialog, name);
    });
  }
};

TEST_P(TDialogPictures, OfTheFormsOfThePackage) {
  TModalDialogs dialogs(nullptr);
  deployment::TSelectForm select;
  for (const char* platform : {"Win32", "Win64", "OSX32", "Android"})
    select.AddPlatform(platform, std::string_view(platform) != "Win64");
  KeepNext("select");
  dialogs.ShowSelectPlatforms(select);
  deployment::TRevertToDefaultForm revert;
  KeepNext("revert");
  dialogs.ShowRevertToDefault(revert);
  testing::TTwoFeatures features;
  features.SetChecked(testing::TTwoFeatures::First, true);
  features.SetChecked(testing::TTwoFeatures::Sound, true);
  KeepNext("features");
  dialogs.ShowFeatureFiles(features);
}

TEST_P(TDialogPictures, OfQuestions) {
  using A = deployment::TMessageAnswer;
  TDialogs dialogs(nullptr);
  KeepNext("message");
  dialogs.ShowMessage({"Are you sure you want to delete file \"data\\levels.dat\"?",
                       {A::Yes, A::YesToAll, A::No, A::Cancel}});
  KeepNext("input");
  std::string value = ".\\";
  dialogs.InputBox("Remote Path", "Enter the new Remote Path", value);
  KeepNext("consent");
  AskConsent({"make resources", "strip bin/demo \xE2\x80\xAE"}, "profile share (/mnt/share)",
             nullptr);
}

TEST_P(TDialogPictures, OfProfiles) {
  TProfileManagerDialog manager(Host(), nullptr, nullptr);
  manager.show();
  Keep(manager, "profiles");
  for (const char* name : {"share", "mac-mini"}) {
    TProfileEditDialog edit({"Win32", "OSX32", "Android"},
                            *Host().RemoteProfiles().Profiles().Find(name), {}, nullptr);
    edit.show();
    Keep(edit, QString("profile-") + name);
  }
  TProfileEditDialog empty({"Win32"}, {}, {}, nullptr);
  empty.show();
  testing::Press(empty, "OK");
  Keep(empty, "profile-problem");
}

TEST_P(TDialogPictures, OfSettings) {
  TSettingsDialog settings(Host(), nullptr);
  settings.show();
  auto& tabs = *settings.findChild<QTabWidget*>();
  for (int page = 0; page < tabs.count(); ++page) {
    tabs.setCurrentIndex(page);
    Keep(settings, QString("settings-%1").arg(page));
  }
}

TEST_P(TDialogPictures, OfADeploy) {
  std::atomic<int> cancelled = 0;
  TDeployReport report;
  TDeployPanel panel;
  TDeployPage& page = panel.Page();
  panel.resize(900, 400);
  page.Begin({"/home/eva/demo.vproj", {"Debug", "Win32"}}, cancelled);
  panel.show();
  std::vector<TDeployRow> rows;
  rows.reserve(30);
  for (int i = 0; i < 30; ++i)
    rows.push_back({.LocalName = "data\\levels" + std::to_string(i) + ".dat",
                    .RemoteFile = "/mnt/share/data/levels" + std::to_string(i) + ".dat",
                    .Action = i % 5 == 0 ? TDeployAction::Unchanged : TDeployAction::Copied,
                    .Bytes = i % 5 == 0 ? 0U : 1500000U});
  page.Observer().Planned(rows);
  for (std::size_t i = 0; i < 12; ++i)
    page.Observer().RowDone(i, rows[i]);
  page.Observer().BytesSent(12000000);
  QTest::qWait(250);
  Keep(panel, "deploy-running");
  rows[3].Action = TDeployAction::Failed;
  rows[3].Error = "Permission denied";
  page.Observer().CommandSaid("resources: 12 files packed");
  report.Rows = rows;
  report.End = TDeployEnd::Failed;
  report.WasCarriedOut = true;
  page.End(report);
  QApplication::processEvents();
  Keep(panel, "deploy-failed");
}

INSTANTIATE_TEST_SUITE_P(Colours, TDialogPictures, ::testing::Bool(), [](const auto& dark) {
  return std::string(dark.param ? "Dark" : "Light");
});

} // namespace
} // namespace workbench
