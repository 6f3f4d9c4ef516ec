#include "workbench/desktop/target/target_bar.h"

#include "package/host/api/platformapi.h"
#include "package/host/api/platforms.h"
#include "package/host/api/view_buttons.h"
#include "workbench/desktop/controls/elided_label.h"
#include "workbench/desktop/controls/guarded.h"
#include "workbench/desktop/controls/wheel_guard.h"
#include "workbench/desktop/target/state_chips.h"
#include "workbench/desktop/text/engine_text.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/remote/profile/profile_entry.h"
#include "workbench/services/remote_profile_services.h"
#include "workbench/session/session.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

namespace workbench {
namespace {

constexpr int AgeInterval = 30000; // milliseconds

// Makes the box hold these items, of which one is shown; the same items are left alone.
void Fill(QComboBox& box, const std::vector<std::pair<QString, QString>>& items,
          const QString& current) {
  const QSignalBlocker quiet(box);
  bool isSame = box.count() == static_cast<int>(items.size());
  for (int i = 0; isSame && i < box.count(); ++i)
    isSame = box.itemData(i).toString() == items[static_cast<std::size_t>(i)].second;
  if (!isSame) {
    box.clear();
    for (const auto& [text, data] : items)
      box.addItem(text, data);
  }
  box.setCurrentIndex(box.findData(current));
}

} // namespace

TTargetBar::TTargetBar(TSession& session, TOpenProject& project, TFormControls& controls,
                       TRowList& rows)
    : FSession(session), FProject(project), FControls(&controls), FRows(&rows),
      FPlatform(MakeBox("targetPlatform", tr("Platform"))),
      FConfiguration(MakeBox("targetConfiguration", tr("Configuration"))),
      FProfile(new TElidedLabel(this)), FConnection(new TElidedLabel(this)),
      FButton(new QToolButton(this)), FProfiles(new QToolButton(this)),
      FChips(new TStateChips(rows, this)) {
  setObjectName("targetBar");
  setAccessibleName(tr("Target"));
  FProfile->setObjectName("targetProfile");
  FConnection->setObjectName("connection");
  MakeButton();
  Place();
  FSoon.setSingleShot(true);
  FSoon.setInterval(0);
  connect(&FSoon, &QTimer::timeout, this, [this] { Guarded([this] { Update(); }); });
  connect(&FAge, &QTimer::timeout, &FSoon, qOverload<>(&QTimer::start));
  FAge.start(AgeInterval);
  connect(FRows, &TRowList::Changed, &FSoon, qOverload<>(&QTimer::start));
  connect(FControls, &TFormControls::CommandDone, &FSoon, qOverload<>(&QTimer::start));
  if (TTargetsComboBox* box = controls.TargetsComboBox())
    connect(box, &TTargetsComboBox::Changed, &FSoon, qOverload<>(&QTimer::start));
  if (QAction* action = ConnectAction()) {
    connect(action, &QAction::toggled, &FSoon, qOverload<>(&QTimer::start));
    connect(action, &QAction::changed, &FSoon, qOverload<>(&QTimer::start));
  }
  FSoon.start();
}

QComboBox* TTargetBar::MakeBox(const char* name, const QString& label) {
  auto* box = new QComboBox(this);
  box->setObjectName(name);
  box->setAccessibleName(label);
  box->setToolTip(label);
  box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  box->setFocusPolicy(Qt::TabFocus);
  box->installEventFilter(new TWheelGuard(box));
  connect(box, qOverload<int>(&QComboBox::activated), this, &TTargetBar::ChooseTarget);
  return box;
}

void TTargetBar::MakeButton() {
  FButton->setObjectName("connectButton");
  FButton->setFocusPolicy(Qt::TabFocus);
  connect(FButton, &QToolButton::clicked, this, &TTargetBar::Press);
  FProfiles->setObjectName("profilesButton");
  FProfiles->setText(tr("Profiles…"));
  FProfiles->setToolTip(tr("Make a profile, or assign one to the project"));
  FProfiles->setFocusPolicy(Qt::TabFocus);
  connect(FProfiles, &QToolButton::clicked, this, &TTargetBar::ProfilesWanted);
}

void TTargetBar::Place() {
  constexpr int Margin = 4;
  auto* line = new QHBoxLayout;
  line->setSpacing(Margin * 2);
  line->addWidget(FPlatform);
  line->addWidget(FConfiguration);
  line->addWidget(FProfile);
  line->addWidget(FProfiles);
  line->addWidget(FConnection);
  line->addStretch();
  line->addWidget(FButton);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(Margin, Margin, Margin, 0);
  layout->setSpacing(0);
  layout->addLayout(line);
  layout->addWidget(FChips);
}

QAction* TTargetBar::ConnectAction() const {
  return FControls && FControls->ToolBar()
             ? FControls->ToolBar()->Find(deployment::view_button::Connect)
             : nullptr;
}

std::string TTargetBar::Platform() const {
  return FControls && FControls->TargetsComboBox()
             ? FControls->TargetsComboBox()->GetSelectedPlatform()
             : std::string();
}

std::string TTargetBar::ProfileName() const {
  const auto* platforms = FProject.Project().GetProjectPlatforms();
  const std::string platform = Platform();
  return platforms && !platform.empty() ? platforms->GetProfileName(platform) : std::string();
}

// Rows that another thread has, or that are being made, are shown when they are there.
void TTargetBar::Update() {
  if (!FRows || !FControls || !FControls->TargetsComboBox() || !FRows->Index())
    return;
  ShowTargets();
  ShowProfile();
  ShowConnection();
  FChips->Update(!Platform().empty());
}

void TTargetBar::ShowTargets() {
  const TTargetsComboBox& box = *FControls->TargetsComboBox();
  std::vector<std::pair<QString, QString>> platforms;
  std::vector<std::pair<QString, QString>> configurations;
  for (const auto& [configuration, platform] : box.Listed()) {
    const QString name = ToQString(platform);
    const std::pair item{platform.empty() ? tr("All Platforms") : name, name};
    if (std::ranges::find(platforms, item) == platforms.end())
      platforms.push_back(item);
    const QString ownName = ToQString(configuration);
    if (platform == box.Selected().Platform)
      configurations.emplace_back(ownName, ownName);
  }
  Fill(*FPlatform, platforms, ToQString(box.Selected().Platform));
  Fill(*FConfiguration, configurations, ToQString(box.Selected().Configuration));
}

// A platform that lacks the configuration is shown with its first one.
void TTargetBar::ChooseTarget() {
  if (!FControls || !FControls->TargetsComboBox())
    return;
  TTargetsComboBox& box = *FControls->TargetsComboBox();
  const std::string platform = ToStdString(FPlatform->currentData().toString());
  TTargetsComboBox::TTarget wanted{ToStdString(FConfiguration->currentData().toString()), platform};
  const auto& listed = box.Listed();
  if (std::ranges::find(listed, wanted) == listed.end()) {
    const auto first = std::ranges::find(listed, platform, &TTargetsComboBox::TTarget::Platform);
    if (first != listed.end())
      wanted = *first;
  }
  if (wanted != box.Selected())
    box.Choose(wanted.Configuration, wanted.Platform);
  FSoon.start();
}

void TTargetBar::ShowProfile() {
  const std::string name = ProfileName();
  const TProfile* profile = nullptr;
  if (!name.empty())
    profile = FSession.RemoteProfiles().Profiles().Find(name);
  const QAction* action = ConnectAction();
  const bool needsProfile = action && action->isEnabled();
  if (profile)
    FProfile->SetText(tr("Profile %1: %2").arg(ToQString(name), ToQString(ProfilePlace(*profile))));
  else if (!name.empty())
    FProfile->SetText(tr("The profile %1 is not on this machine.").arg(ToQString(name)));
  else if (Platform().empty())
    FProfile->SetText(tr("Choose one platform to see where its files go."));
  else if (needsProfile)
    FProfile->SetText(tr("No profile says where the files go."));
  else
    FProfile->SetText(tr("The files are put together beside the program; no profile is needed."));
  FProfiles->setVisible(!profile && needsProfile);
}

void TTargetBar::ShowConnection() {
  const QAction* action = ConnectAction();
  TRowIndex& index = *FRows->Index();
  FWatch.Look({.IsButtonDown = action && action->isChecked(),
               .HasAnswers = index.IsConnected(),
               .HasRows = index.RowCount() > 0,
               .Revision = FRows->Tree().Model().Revision()},
              QDateTime::currentDateTime());
  const QString profile = ToQString(ProfileName());
  FConnection->SetText(ConnectionWords(FWatch, profile, QDateTime::currentDateTime()));
  ShowButton(action && action->isEnabled(), profile);
}

void TTargetBar::ShowButton(bool mayConnect, const QString& profile) {
  const TConnectionLook state = FWatch.State();
  const bool isConnecting = state == TConnectionLook::Connecting;
  const bool isConnected = state == TConnectionLook::Connected || state == TConnectionLook::Lost;
  FButton->setText(isConnecting ? tr("Cancel") : isConnected ? tr("Disconnect") : tr("Connect"));
  FButton->setEnabled(isConnecting || isConnected || (mayConnect && !profile.isEmpty()));
  if (FButton->isEnabled())
    FButton->setToolTip(isConnecting  ? tr("Gives the attempt up")
                        : isConnected ? tr("Lets the machine go (F8)")
                                      : tr("Compares the files with those on the machine (F8)"));
  else if (Platform().empty())
    FButton->setToolTip(tr("There is no machine for all platforms at once: choose one platform."));
  else if (mayConnect)
    FButton->setToolTip(tr("There is nowhere to connect to: the platform has no profile."));
  else
    FButton->setToolTip(tr("Files for this platform go to no machine."));
}

void TTargetBar::Press() {
  if (FWatch.State() == TConnectionLook::Connecting) {
    FSession.RemoteProfiles().CancelConnect(ProfileName());
    return;
  }
  if (QAction* action = ConnectAction())
    action->trigger();
}

void TTargetBar::ConnectionLost(const std::string& profile, const std::string& reason) {
  if (profile != ProfileName())
    return;
  FWatch.Lose(EngineText(reason));
  FSoon.start();
}

} // namespace workbench
