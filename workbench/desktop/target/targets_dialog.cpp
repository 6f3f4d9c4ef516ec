#include "workbench/desktop/target/targets_dialog.h"

#include "workbench/deploy/parallel_runs.h"
#include "workbench/desktop/controls/guarded.h"
#include "workbench/desktop/text/engine_text.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/remote/profile/profile_entry.h"
#include "workbench/services/remote_profile_services.h"
#include "workbench/session/session.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <exception>
#include <utility>

namespace workbench {
namespace {

constexpr unsigned TargetsAtOnce = 4;
constexpr QSize FirstSize(820, 520);

// Plans for all of them, each on a thread of its own, and carries nothing out.
std::vector<TTargetAnswer> AskTargets(const TDeployService& deploys, const TDeploySubject& subject,
                                      const std::vector<TProfile>& profiles) {
  std::vector<TTargetAnswer> answers(profiles.size());
  const std::atomic<int> cancelled = 0;
  RunParallel({.Count = profiles.size(),
               .AtOnce = TargetsAtOnce,
               .Work =
                   [&](std::size_t i) {
                     TSilentObserver observer;
                     answers[i] = AnswerOfPlan(
                         ToQString(profiles[i].Name),
                         deploys.Deploy(subject, profiles[i],
                                        {.Options = {.DryRun = true, .SkipMissing = true}},
                                        observer));
                   },
               .Ended =
                   [&](std::size_t i, const std::exception_ptr& error) {
                     try {
                       if (error)
                         std::rethrow_exception(error);
                     } catch (const std::exception& reason) {
                       answers[i] = {.Profile = ToQString(profiles[i].Name),
                                     .Problem = EngineText(reason.what())};
                     }
                   },
               .Cancelled = cancelled});
  return answers;
}

} // namespace

TTargetsDialog::TTargetsDialog(TSession& session, TOpenProject& project,
                               const deployment::TDeploymentTarget& target, TWork work,
                               QWidget* parent)
    : QDialog(parent), FSession(session), FProject(project), FTarget(target),
      FWork(std::move(work)), FModel(new TTargetsModel(this)), FProfiles(new QListWidget(this)),
      FGroups(new QComboBox(this)), FAsk(new QPushButton(tr("&Compare"), this)),
      FDifferences(new QCheckBox(tr("Only what &differs"), this)), FTable(new QTableView(this)),
      FSummary(new QLabel(this)) {
  setWindowTitle(
      tr("Targets of %1, %2").arg(ToQString(target.Platform), ToQString(target.Configuration)));
  MakeProfiles();
  MakeTable();
  Place();
  resize(FirstSize);
  ShowButton();
}

void TTargetsDialog::MakeProfiles() {
  FProfiles->setObjectName("profiles");
  FProfiles->setAccessibleName(tr("Profiles"));
  FGroups->setObjectName("groups");
  FGroups->setAccessibleName(tr("Group of profiles"));
  FGroups->setToolTip(FGroups->accessibleName());
  const TProfileStore& store = FSession.RemoteProfiles().Profiles();
  for (const TProfile& profile : store.List()) {
    if (profile.Platform != FTarget.Platform)
      continue;
    auto* item = new QListWidgetItem(ToQString(profile.Name), FProfiles);
    item->setToolTip(ToQString(ProfilePlace(profile)).toHtmlEscaped());
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(Qt::Checked);
  }
  FGroups->addItem(tr("All profiles"));
  for (const TProfileGroup& group : store.Groups())
    FGroups->addItem(ToQString(group.Name), ToQString(group.Name));
  connect(FGroups, qOverload<int>(&QComboBox::activated), this, &TTargetsDialog::ChooseGroup);
  connect(FProfiles, &QListWidget::itemChanged, this, &TTargetsDialog::ShowButton);
  FAsk->setDefault(true);
  FAsk->setObjectName("compareTargets");
  connect(FAsk, &QPushButton::clicked, this, [this] { Guarded([this] { Ask(); }); });
}

void TTargetsDialog::MakeTable() {
  FTable->setObjectName("targets");
  FTable->setAccessibleName(tr("Files on each target"));
  FTable->setModel(FModel);
  FTable->setSelectionBehavior(QAbstractItemView::SelectRows);
  FTable->verticalHeader()->hide();
  FTable->setTabKeyNavigation(false);
  FTable->setTextElideMode(Qt::ElideMiddle);
  FSummary->setObjectName("summary");
  FSummary->setTextFormat(Qt::PlainText);
  FSummary->setWordWrap(true);
  FSummary->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  FDifferences->setObjectName("differences");
  connect(FDifferences, &QCheckBox::toggled, FModel, &TTargetsModel::SetDifferencesOnly);
}

void TTargetsDialog::Place() {
  constexpr int ProfilesWidth = 180;
  auto* left = new QVBoxLayout;
  left->addWidget(FGroups);
  left->addWidget(FProfiles, 1);
  left->addWidget(FAsk);
  FProfiles->setMaximumWidth(ProfilesWidth);
  FGroups->setMaximumWidth(ProfilesWidth);
  auto* close = new QPushButton(tr("C&lose"), this);
  close->setAutoDefault(false);
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  auto* below = new QHBoxLayout;
  below->addWidget(FDifferences);
  below->addStretch();
  below->addWidget(close);
  auto* right = new QVBoxLayout;
  right->addWidget(FTable, 1);
  right->addWidget(FSummary);
  right->addLayout(below);
  auto* layout = new QHBoxLayout(this);
  layout->addLayout(left);
  layout->addLayout(right, 1);
}

void TTargetsDialog::ChooseGroup() {
  const TProfileGroup* group = FSession.RemoteProfiles().Profiles().FindGroup(
      ToStdString(FGroups->currentData().toString()));
  for (int row = 0; row < FProfiles->count(); ++row) {
    const std::string name = ToStdString(FProfiles->item(row)->text());
    const bool isChosen =
        !group || std::ranges::find(group->Profiles, name) != group->Profiles.end();
    FProfiles->item(row)->setCheckState(isChosen ? Qt::Checked : Qt::Unchecked);
  }
}

std::vector<TProfile> TTargetsDialog::Chosen() const {
  std::vector<TProfile> profiles;
  for (int row = 0; row < FProfiles->count(); ++row) {
    const QListWidgetItem& item = *FProfiles->item(row);
    const TProfile* profile = FSession.RemoteProfiles().Profiles().Find(ToStdString(item.text()));
    if (item.checkState() == Qt::Checked && profile)
      profiles.push_back(*profile);
  }
  return profiles;
}

void TTargetsDialog::ShowButton() {
  FAsk->setEnabled(!Chosen().empty());
  FAsk->setToolTip(FProfiles->count() == 0
                       ? tr("There is no profile for this platform. Make one with Tools, Remote "
                            "Profiles.")
                   : FAsk->isEnabled() ? tr("Asks every ticked target; nothing is copied")
                                       : tr("Tick the targets that are to be asked."));
}

void TTargetsDialog::Ask() {
  const std::vector<TProfile> profiles = Chosen();
  const TDeployService& deploys = FSession.RemoteProfiles().Deploys();
  const TDeploySubject subject = deploys.SubjectOf(FProject.Project(), FTarget);
  std::vector<TTargetAnswer> answers;
  FAsk->setEnabled(false);
  FSummary->setText(tr("Comparing…"));
  FWork([&] { answers = AskTargets(deploys, subject, profiles); });
  std::vector<std::string> files;
  files.reserve(subject.Files.size());
  for (const TDeployFile& file : subject.Files)
    files.push_back(file.LocalName);
  FModel->Set(std::move(files), std::move(answers));
  FTable->resizeColumnsToContents();
  FSummary->setText(FModel->Summary().join(u'\n'));
  ShowButton();
}

} // namespace workbench
