#include "workbench/desktop/target/targets_page.h"

#include "workbench/desktop/controls/guarded.h"
#include "workbench/desktop/target/targets_question.h"
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
#include <QLocale>
#include <QPushButton>
#include <QTableView>
#include <QTime>
#include <QVBoxLayout>
#include <algorithm>
#include <csignal>
#include <utility>

namespace workbench {

TTargetsPage::TTargetsPage(TSession& session, TUses uses, QWidget* parent)
    : QWidget(parent), FSession(session), FUses(std::move(uses)), FModel(new TTargetsModel(this)),
      FTitle(new QLabel(this)), FProfiles(new QListWidget(this)), FGroups(new QComboBox(this)),
      FAsk(new QPushButton(this)), FDifferences(new QCheckBox(tr("Only what &differs"), this)),
      FTable(new QTableView(this)), FSummary(new QLabel(this)) {
  QFont bold = font();
  bold.setBold(true);
  FTitle->setFont(bold);
  FTitle->setTextFormat(Qt::PlainText);
  MakeProfiles();
  MakeTable();
  Place();
  Update();
}

void TTargetsPage::MakeProfiles() {
  FProfiles->setObjectName("profiles");
  FProfiles->setAccessibleName(tr("Profiles"));
  FGroups->setObjectName("groups");
  FGroups->setAccessibleName(tr("Group of profiles"));
  FGroups->setToolTip(FGroups->accessibleName());
  FAsk->setObjectName("compareTargets");
  FAsk->setAutoDefault(true);
  connect(FGroups, qOverload<int>(&QComboBox::activated), this, &TTargetsPage::ChooseGroup);
  connect(FProfiles, &QListWidget::itemChanged, this, &TTargetsPage::Update);
  connect(FProfiles, &QListWidget::itemActivated, FAsk, &QPushButton::click);
  connect(FAsk, &QPushButton::clicked, this, [this] { Guarded([this] { Press(); }); });
}

void TTargetsPage::MakeTable() {
  FTable->setObjectName("targets");
  FTable->setAccessibleName(tr("Files on each target"));
  FTable->setModel(FModel);
  FTable->setSelectionBehavior(QAbstractItemView::SelectRows);
  FTable->setSelectionMode(QAbstractItemView::SingleSelection);
  FTable->setAlternatingRowColors(true);
  FTable->verticalHeader()->hide();
  FTable->verticalHeader()->setDefaultSectionSize(fontMetrics().lineSpacing() + 6);
  FTable->setTabKeyNavigation(false);
  FTable->setTextElideMode(Qt::ElideMiddle);
  FTable->setMinimumHeight(fontMetrics().lineSpacing() * 5);
  connect(FTable, &QTableView::activated, this, [this](const QModelIndex& index) {
    emit EntryWanted(index.siblingAtColumn(0).data().toString());
  });
  FSummary->setObjectName("targetsSummary");
  FSummary->setAccessibleName(tr("State of the targets"));
  FSummary->setTextFormat(Qt::PlainText);
  FSummary->setWordWrap(true);
  FSummary->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  FDifferences->setObjectName("differences");
  connect(FDifferences, &QCheckBox::toggled, FModel, &TTargetsModel::SetDifferencesOnly);
}

void TTargetsPage::Place() {
  const int profilesWidth = 24 * fontMetrics().averageCharWidth();
  FProfiles->setFixedWidth(profilesWidth);
  FGroups->setFixedWidth(profilesWidth);
  auto* left = new QVBoxLayout;
  left->addWidget(FGroups);
  left->addWidget(FProfiles, 1);
  auto* middle = new QHBoxLayout;
  middle->addLayout(left);
  middle->addWidget(FTable, 1);
  middle->addStretch(); // while there is no table
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(FTitle);
  layout->addWidget(FSummary);
  layout->addLayout(middle, 1);
  layout->addWidget(MakeButtons());
  setTabOrder(FGroups, FProfiles);
  setTabOrder(FProfiles, FTable);
}

QWidget* TTargetsPage::MakeButtons() {
  auto* row = new QWidget(this);
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins({});
  auto* close = new QPushButton(tr("C&lose"), row);
  close->setAutoDefault(true);
  connect(close, &QPushButton::clicked, this, &TTargetsPage::CloseWanted);
  layout->addWidget(FAsk);
  layout->addWidget(FDifferences);
  layout->addStretch();
  layout->addWidget(close);
  return row;
}

void TTargetsPage::Show(const TTargetsKey& key) {
  if (FCancelled)
    return;
  const bool isOther = key != FKey;
  FKey = key;
  ReadProfiles();
  if (isOther)
    Update();
}

void TTargetsPage::SetBusy(bool busy) {
  FIsBusy = busy;
  Update();
}

void TTargetsPage::Focus() {
  (FAsk->isEnabled() ? static_cast<QWidget*>(FAsk) : FProfiles)->setFocus();
}

// What the user ticked stays as it is when a profile comes or goes.
void TTargetsPage::ReadProfiles() {
  const TProfileStore& store = FSession.RemoteProfiles().Profiles();
  QStringList names;
  for (const TProfile& profile : store.List()) {
    if (profile.Platform == FKey.Target.Platform)
      names += ToQString(profile.Name);
  }
  QStringList groups{tr("All profiles")};
  for (const TProfileGroup& group : store.Groups())
    groups += ToQString(group.Name);
  QStringList shownGroups;
  for (int i = 0; i < FGroups->count(); ++i)
    shownGroups += FGroups->itemText(i);
  if (groups != shownGroups) {
    FGroups->clear();
    FGroups->addItems(groups);
  }
  QStringList shown;
  QStringList unticked;
  for (int row = 0; row < FProfiles->count(); ++row) {
    shown += FProfiles->item(row)->text();
    if (FProfiles->item(row)->checkState() == Qt::Unchecked)
      unticked += shown.back();
  }
  if (names == shown)
    return;
  FProfiles->clear();
  for (const QString& name : names) {
    auto* item = new QListWidgetItem(name, FProfiles);
    item->setToolTip(ToQString(ProfilePlace(*store.Find(ToStdString(name)))).toHtmlEscaped());
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(unticked.contains(name) ? Qt::Unchecked : Qt::Checked);
  }
  Update();
}

// The first one stands for all profiles.
void TTargetsPage::ChooseGroup() {
  const TProfileGroup* group =
      FGroups->currentIndex() == 0
          ? nullptr
          : FSession.RemoteProfiles().Profiles().FindGroup(ToStdString(FGroups->currentText()));
  for (int row = 0; row < FProfiles->count(); ++row) {
    const std::string name = ToStdString(FProfiles->item(row)->text());
    const bool isChosen =
        !group || std::ranges::find(group->Profiles, name) != group->Profiles.end();
    FProfiles->item(row)->setCheckState(isChosen ? Qt::Checked : Qt::Unchecked);
  }
}

std::vector<TProfile> TTargetsPage::Chosen() const {
  std::vector<TProfile> profiles;
  for (int row = 0; row < FProfiles->count(); ++row) {
    const QListWidgetItem& item = *FProfiles->item(row);
    const TProfile* profile = FSession.RemoteProfiles().Profiles().Find(ToStdString(item.text()));
    if (item.checkState() == Qt::Checked && profile)
      profiles.push_back(*profile);
  }
  return profiles;
}

void TTargetsPage::Update() {
  const bool isAnswered = FKey == FAnswered && !FWhen.isEmpty();
  FTable->setVisible(isAnswered);
  FDifferences->setEnabled(isAnswered);
  FTitle->setText(
      FKey.Project.isEmpty()
          ? tr("Targets")
          : tr("Targets of %1, %2")
                    .arg(ToQString(FKey.Target.Platform), ToQString(FKey.Target.Configuration)) +
                (isAnswered ? tr(", as of %1").arg(FWhen) : QString()));
  FAsk->setText(FCancelled ? tr("&Stop") : tr("&Compare"));
  FAsk->setEnabled(FCancelled || (!FIsBusy && !FKey.Project.isEmpty() && !Chosen().empty()));
  const QString hint =
      FProfiles->count() == 0
          ? tr("There is no profile for this platform. Make one with Tools, Remote Profiles.")
      : FAsk->isEnabled() ? tr("Asks every ticked target; nothing is copied")
                          : tr("Tick the targets that are to be asked.");
  FAsk->setToolTip(FCancelled ? QString() : hint);
  if (FCancelled)
    FSummary->setText(tr("Comparing…"));
  else
    FSummary->setText(isAnswered ? FModel->Summary().join(QStringLiteral(" · ")) : hint);
}

void TTargetsPage::Press() {
  if (FCancelled)
    *FCancelled = SIGINT;
  else
    Ask();
}

void TTargetsPage::Ask() {
  const std::vector<TProfile> profiles = Chosen();
  const std::unique_ptr<TDeploySubject> subject = FUses.Subject();
  if (!subject)
    return;
  const auto cancelled = std::make_shared<std::atomic<int>>(0);
  std::vector<TTargetAnswer> answers;
  FCancelled = cancelled;
  Update();
  const bool asked = Guarded([&] {
    FUses.Work([&] {
      answers = AskTargets(FSession.RemoteProfiles().Deploys(), *subject, profiles, *cancelled);
    });
  });
  FCancelled.reset();
  if (asked) {
    std::vector<std::string> files;
    files.reserve(subject->Files.size());
    for (const TDeployFile& file : subject->Files)
      files.push_back(file.LocalName);
    FModel->Set(std::move(files), std::move(answers));
    FAnswered = FKey;
    FWhen = locale().toString(QTime::currentTime(), QLocale::ShortFormat);
    FTable->resizeColumnsToContents();
  }
  Update();
  if (asked && isVisible())
    FTable->setFocus();
}

} // namespace workbench
