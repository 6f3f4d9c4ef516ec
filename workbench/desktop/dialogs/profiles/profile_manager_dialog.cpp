#include "workbench/desktop/dialogs/profiles/profile_manager_dialog.h"

#include "workbench/desktop/dialogs/forms/row_table.h"
#include "workbench/desktop/dialogs/profiles/profile_edit_dialog.h"
#include "workbench/desktop/text/engine_text.h"
#include "workbench/desktop/text/error_text.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/platforms/platform_table.h"
#include "workbench/project/project_settings.h"
#include "workbench/remote/profile/profile_entry.h"
#include "workbench/services/remote_profile_services.h"
#include "workbench/session/session.h"
#include "workbench/text/visible_text.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <exception>
#include <stdexcept>

namespace workbench {
namespace {

QString Shown(std::string_view text) {
  return ToQString(Visible(text));
}

QStringList PlatformNames(const TSession& session) {
  QStringList names;
  for (const std::string& name : session.Platforms().Names())
    names += ToQString(name);
  return names;
}

// The name, or one like it that no profile has.
std::string FreeName(const TProfileModel& model, const QString& name) {
  std::string free = ToStdString(name);
  for (int number = 2; model.Find(free) >= 0; ++number)
    free = ToStdString(QStringLiteral("%1 %2").arg(name).arg(number));
  return free;
}

} // namespace

TProfileManagerDialog::TProfileManagerDialog(TSession& session, TOpenProject* current,
                                             QWidget* parent)
    : QDialog(parent), FSession(session), FProject(current),
      FModel(session.RemoteProfiles().Profiles(), this), FTable(new QTableView(this)),
      FStatus(new QLabel(this)) {
  setWindowTitle(tr("Remote Profiles"));
  MakeTable();
  FStatus->setObjectName(QStringLiteral("status"));
  FStatus->setTextFormat(Qt::PlainText);
  FStatus->setWordWrap(true);
  FStatus->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  auto* content = new QHBoxLayout;
  content->addWidget(FTable, 1);
  content->addLayout(MakeButtons());
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(content, 1);
  layout->addWidget(FStatus);
  resize(fontMetrics().averageCharWidth() * 110, fontMetrics().lineSpacing() * 22);
  Refresh({});
  if (FModel.rowCount() == 0 && FStatus->text().isEmpty())
    Say(tr("There is no profile yet. Add one to say where the files of a platform go."));
}

// The services that a test works with outlive the dialog, and the thread must not outlive them.
TProfileManagerDialog::~TProfileManagerDialog() {
  if (FTester.joinable())
    FTester.join();
}

void TProfileManagerDialog::MakeTable() {
  FTable->setObjectName(QStringLiteral("profiles"));
  FTable->setAccessibleName(tr("Remote profiles"));
  FTable->setModel(&FModel);
  SetUpRowTable(*FTable, TProfileModel::Place);
  connect(FTable->selectionModel(), &QItemSelectionModel::currentChanged, this,
          &TProfileManagerDialog::ShowState);
  connect(FTable, &QTableView::activated, this, &TProfileManagerDialog::Edit);
}

QPushButton* TProfileManagerDialog::AddButton(QVBoxLayout& column, const QString& text,
                                              void (TProfileManagerDialog::*run)()) {
  auto* button = new QPushButton(text, this);
  connect(button, &QPushButton::clicked, this, run);
  column.addWidget(button);
  return button;
}

QVBoxLayout* TProfileManagerDialog::MakeButtons() {
  auto* column = new QVBoxLayout;
  AddButton(*column, tr("&Add\u2026"), &TProfileManagerDialog::Add);
  FEdit = AddButton(*column, tr("&Edit\u2026"), &TProfileManagerDialog::Edit);
  FDuplicate = AddButton(*column, tr("D&uplicate\u2026"), &TProfileManagerDialog::Duplicate);
  FRemove = AddButton(*column, tr("&Remove"), &TProfileManagerDialog::Remove);
  FDefault = AddButton(*column, tr("Make &Default"), &TProfileManagerDialog::ToggleDefault);
  FTest = AddButton(*column, tr("&Test"), &TProfileManagerDialog::Test);
  FAssign = AddButton(*column, tr("A&ssign to Project"), &TProfileManagerDialog::Assign);
  column->addStretch();
  // Enter presses the button that has the focus, and closes from the table.
  AddButton(*column, tr("&Close"), &TProfileManagerDialog::reject)->setDefault(true);
  return column;
}

const TProfile* TProfileManagerDialog::Current() const {
  const QModelIndex index = FTable->currentIndex();
  return index.isValid() ? &FModel.Profile(index.row()) : nullptr;
}

void TProfileManagerDialog::Refresh(std::string_view select) {
  Try([&] { FModel.Refresh(); });
  const int row = std::max(0, FModel.Find(select));
  FTable->setCurrentIndex(FModel.index(row, 0));
  ShowState();
}

void TProfileManagerDialog::ShowState() {
  const TProfile* profile = Current();
  for (QPushButton* button : {FEdit, FDuplicate, FRemove, FDefault})
    button->setEnabled(profile != nullptr);
  FTest->setEnabled(profile && !FIsTesting);
  FDefault->setText(profile && profile->IsDefault ? tr("No Longer &Default") : tr("Make &Default"));
  const TProjectPlatform* platform =
      profile && FProject ? FProject->Settings().FindPlatform(profile->Platform) : nullptr;
  FAssign->setEnabled(platform && platform->Profile != profile->Name);
  if (!FProject)
    FAssign->setToolTip(tr("No project is open."));
  else if (profile && !platform)
    FAssign->setToolTip(
        tr("The project is not set up for the platform %1.").arg(Shown(profile->Platform)));
  else
    FAssign->setToolTip({});
}

void TProfileManagerDialog::Try(const std::function<void()>& work) {
  try {
    Say({});
    work();
  } catch (const std::exception& error) {
    Say(ErrorText(error));
  }
}

void TProfileManagerDialog::Say(const QString& text) {
  FStatus->setText(text);
  FStatus->setVisible(!text.isEmpty());
}

void TProfileManagerDialog::Add() {
  TProfile start;
  if (FProject)
    start.Platform = FProject->Settings().ActivePlatform();
  QString problem;
  TProfileEditDialog dialog(
      PlatformNames(FSession), start,
      [&](const TProfile& profile) {
        FSession.RemoteProfiles().AddProfile(profile);
        problem = Shown(MakeProfileFolder(profile));
      },
      this);
  if (dialog.exec() != Accepted)
    return;
  Refresh(dialog.Profile().Name);
  Say(problem);
}

void TProfileManagerDialog::Edit() {
  const TProfile* profile = Current();
  if (!profile)
    return;
  TProfileEditDialog dialog(
      PlatformNames(FSession), *profile,
      [&, name = profile->Name](const TProfile& changed) {
        FSession.RemoteProfiles().ChangeProfile(name, changed);
      },
      this);
  if (dialog.exec() == Accepted)
    Refresh(dialog.Profile().Name);
}

void TProfileManagerDialog::Duplicate() {
  const TProfile* profile = Current();
  if (!profile)
    return;
  TProfile copy = *profile;
  copy.Name = FreeName(FModel, tr("%1 copy").arg(ToQString(profile->Name)));
  copy.IsDefault = false;
  TProfileEditDialog dialog(
      PlatformNames(FSession), copy,
      [&](const TProfile& added) { FSession.RemoteProfiles().AddProfile(added); }, this);
  if (dialog.exec() == Accepted)
    Refresh(dialog.Profile().Name);
}

void TProfileManagerDialog::Remove() {
  const TProfile* profile = Current();
  if (!profile)
    return;
  QMessageBox box(
      QMessageBox::Question, tr("Remove Profile"),
      tr("Remove the profile %1? What is on the target stays there.").arg(Shown(profile->Name)),
      QMessageBox::NoButton, this);
  box.setTextFormat(Qt::PlainText);
  auto* yes = box.addButton(QMessageBox::Yes);
  auto* no = box.addButton(QMessageBox::No);
  yes->setText(tr("&Yes"));
  no->setText(tr("&No"));
  box.setDefaultButton(no);
  box.setEscapeButton(no);
  if (box.exec() != QMessageBox::Yes)
    return;
  const std::string name = profile->Name;
  const int row = FTable->currentIndex().row();
  const std::string next =
      row + 1 < FModel.rowCount() ? FModel.Profile(row + 1).Name : std::string();
  Try([&] {
    FSession.RemoteProfiles().RemoveProfile(name);
    Refresh(next);
  });
}

void TProfileManagerDialog::ToggleDefault() {
  const TProfile* profile = Current();
  if (!profile)
    return;
  TProfile changed = *profile;
  changed.IsDefault = !changed.IsDefault;
  Try([&] {
    FSession.RemoteProfiles().ChangeProfile(changed.Name, changed);
    Refresh(changed.Name);
  });
}

void TProfileManagerDialog::Test() {
  const TProfile* profile = Current();
  if (!profile || FIsTesting)
    return;
  Try([&] {
    TRemoteProfileServices& services = FSession.RemoteProfiles();
    const auto asked = services.FindProfile(profile->Name);
    if (!asked)
      return Refresh({});
    if (FTester.joinable())
      FTester.join();
    FIsTesting = true;
    ShowState();
    Say(tr("Connecting to %1\u2026").arg(Shown(profile->Name)));
    FTester = std::thread([this, &services, asked, name = Shown(profile->Name)] {
      std::string message;
      bool connected = false;
      try {
        connected = services.Reach(*asked, message);
      } catch (const std::exception& error) {
        message = error.what();
      }
      QMetaObject::invokeMethod(
          this, [this, name, connected, message] { TestDone(name, connected, message); },
          Qt::QueuedConnection);
    });
  });
}

void TProfileManagerDialog::TestDone(const QString& name, bool connected,
                                     const std::string& message) {
  FIsTesting = false;
  ShowState();
  Say(connected ? tr("%1: the connection works.").arg(name)
                : tr("%1: no connection: %2").arg(name, EngineText(message)));
  if (FWantsToLeave)
    done(FResult);
}

void TProfileManagerDialog::done(int result) {
  FWantsToLeave = FIsTesting;
  FResult = result;
  if (FIsTesting)
    Say(tr("The dialog closes when the test has ended."));
  else
    QDialog::done(result);
}

void TProfileManagerDialog::Assign() {
  const TProfile* profile = Current();
  if (!profile || !FProject)
    return;
  Try([&] {
    FProject->AssignProfile(profile->Platform, profile->Name, /*force=*/false);
    Say(tr("%1 is the project's profile for %2 now.")
            .arg(Shown(profile->Name), Shown(profile->Platform)));
  });
  ShowState();
}

bool CreateAndAssignProfile(TSession& session, TOpenProject& project, std::string_view platform,
                            QWidget* parent, std::string_view name) {
  TProfile start;
  start.Name = name;
  start.Platform = platform;
  TProfileEditDialog dialog(
      PlatformNames(session), start,
      [&](const TProfile& profile) {
        if (profile.Platform != platform)
          throw std::invalid_argument(
              ToStdString(TProfileManagerDialog::tr("The project needs a profile for %1.")
                              .arg(ToQString(platform))));
        session.RemoteProfiles().AddProfile(profile);
      },
      parent);
  if (dialog.exec() != QDialog::Accepted)
    return false;
  try {
    const std::string problem = MakeProfileFolder(dialog.Profile());
    if (!problem.empty())
      throw std::invalid_argument(problem);
    project.AssignProfile(platform, dialog.Profile().Name, /*force=*/false);
    return true;
  } catch (const std::exception& error) {
    ShowError(TProfileManagerDialog::tr("Remote Profiles"), ErrorText(error), parent);
    return false;
  }
}

} // namespace workbench
