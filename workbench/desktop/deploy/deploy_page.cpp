#include "workbench/desktop/deploy/deploy_page.h"

#include "workbench/desktop/deploy/options_button.h"
#include "workbench/desktop/deploy/run_progress.h"
#include "workbench/desktop/text/deploy_words.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/text/visible_text.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <csignal>
#include <utility>

namespace workbench {
namespace {

constexpr int LinesKept = 10000;
constexpr int OutputLines = 6;
// Widths of the columns in characters; the last one takes the rest.
constexpr std::array<int, TDeployRowsModel::Reason> ColumnWidths{29, 25, 14, 26, 24};

QLabel* MakeLabel(const char* name, const QString& accessible, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setObjectName(QLatin1String(name));
  label->setAccessibleName(accessible);
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  label->setWordWrap(true);
  return label;
}

} // namespace

TDeployPage::TDeployPage(QWidget* parent)
    : QWidget(parent), FModel(new TDeployRowsModel(this)),
      FTitle(MakeLabel("title", tr("What is deployed where to"), this)),
      FSummary(MakeLabel("summary", tr("State of the deploy"), this)),
      FOutput(new QPlainTextEdit(this)), FProgress(new TRunProgress(*FModel, *FOutput, this)) {
  QFont bold = font();
  bold.setBold(true);
  FTitle->setFont(bold);
  FOutput->setObjectName(QStringLiteral("output"));
  FOutput->setAccessibleName(tr("Output of the commands"));
  FOutput->setReadOnly(true);
  FOutput->setTabChangesFocus(true);
  FOutput->setMaximumBlockCount(LinesKept);
  FOutput->setMaximumHeight(fontMetrics().lineSpacing() * OutputLines);
  FOutput->hide();
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(FTitle);
  layout->addWidget(FSummary);
  layout->addWidget(FProgress);
  layout->addWidget(MakeTools());
  layout->addWidget(MakeRows(), 1);
  layout->addWidget(FOutput);
  layout->addWidget(MakeButtons());
  connect(FProgress, &TRunProgress::Started, this, [this] {
    if (FCancelled && *FCancelled == 0)
      FSummary->setText(tr("Deploying…"));
  });
  connect(FModel, &TDeployRowsModel::TicksChanged, this, &TDeployPage::ShowSummary);
  ShowPhase();
}

QPushButton* TDeployPage::AddButton(QWidget& row, const QString& text, const char* name) {
  auto* button = new QPushButton(text, &row);
  button->setObjectName(QLatin1String(name));
  button->setAutoDefault(true);
  row.layout()->addWidget(button);
  return button;
}

QWidget* TDeployPage::MakeTools() {
  auto* row = new QWidget(this);
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins({});
  auto* label = new QLabel(tr("&Show:"), row);
  FFilter = new QComboBox(row);
  FFilter->setObjectName(QStringLiteral("filter"));
  FFilter->setAccessibleName(tr("Which rows are shown"));
  FFilter->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  label->setBuddy(FFilter);
  connect(FFilter, QOverload<int>::of(&QComboBox::activated), this, [this](int index) {
    const QVariant kind = FFilter->itemData(index);
    FModel->SetFilter(kind.isValid() ? std::optional(static_cast<TRowKind>(kind.toInt()))
                                     : std::nullopt);
    UpdateRowButtons();
  });
  layout->addWidget(label);
  layout->addWidget(FFilter);
  layout->addSpacing(12);
  FTake = AddButton(*row, tr("Take &Ours"), "takeOurs");
  FKeep = AddButton(*row, tr("&Keep Theirs"), "keepTheirs");
  FDifference = AddButton(*row, tr("Show Di&fference…"), "difference");
  FRetry = AddButton(*row, tr("Ret&ry"), "retry");
  FSkip = AddButton(*row, tr("S&kip"), "skip");
  FNewProfile = AddButton(*row, tr("&New Profile…"), "newProfile");
  FProfiles = AddButton(*row, tr("Remote &Profiles…"), "profiles");
  FGoTo = AddButton(*row, tr("&Go to Entry"), "goToEntry");
  layout->addStretch();
  FOptions = new TOptionsButton(row);
  layout->addWidget(FOptions);
  connect(FTake, &QPushButton::clicked, this, [this] { TickSelected(true); });
  connect(FKeep, &QPushButton::clicked, this, [this] { TickSelected(false); });
  connect(FRetry, &QPushButton::clicked, this, [this] {
    FIsRetry = true;
    emit DeployWanted();
    FIsRetry = false;
  });
  connect(FSkip, &QPushButton::clicked, this, &TDeployPage::SkipSelected);
  connect(FNewProfile, &QPushButton::clicked, this, &TDeployPage::NewProfileWanted);
  connect(FProfiles, &QPushButton::clicked, this, &TDeployPage::ProfilesWanted);
  connect(FDifference, &QPushButton::clicked, this,
          [this] { emit DifferenceWanted(FModel->Row(FView->currentIndex().row()).Row); });
  connect(FGoTo, &QPushButton::clicked, this, [this] {
    const std::vector<int> rows = SelectedRows();
    if (!rows.empty())
      emit EntryWanted(ToQString(FModel->Row(rows.front()).Row.LocalName));
  });
  connect(FOptions, &TOptionsButton::Changed, this, [this] {
    if (FIsAsking)
      emit PlanWanted();
  });
  return row;
}

QWidget* TDeployPage::MakeRows() {
  FView = new QTreeView(this);
  FView->setObjectName(QStringLiteral("log"));
  FView->setAccessibleName(tr("Files of the deploy"));
  FView->setModel(FModel);
  FView->setRootIsDecorated(false);
  FView->setUniformRowHeights(true);
  FView->setAlternatingRowColors(true);
  FView->setAllColumnsShowFocus(true);
  FView->setTextElideMode(Qt::ElideMiddle); // paths begin alike
  FView->setSelectionMode(QAbstractItemView::ExtendedSelection);
  FView->setMinimumHeight(fontMetrics().lineSpacing() * 5);
  const int character = FView->fontMetrics().averageCharWidth();
  for (std::size_t column = 0; column < ColumnWidths.size(); ++column)
    FView->setColumnWidth(static_cast<int>(column), ColumnWidths[column] * character);
  connect(FView, &QTreeView::activated, this, &TDeployPage::Explain);
  connect(FView->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &TDeployPage::UpdateRowButtons);
  return FView;
}

QWidget* TDeployPage::MakeButtons() {
  auto* row = new QWidget(this);
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins({});
  auto* copy = AddButton(*row, tr("Copy as &Text"), "copy");
  layout->addStretch();
  FCancel = AddButton(*row, tr("&Cancel"), "cancel");
  FDeploy = AddButton(*row, tr("&Deploy"), "deploy");
  FClose = AddButton(*row, tr("C&lose"), "close");
  connect(copy, &QPushButton::clicked, this,
          [this] { QApplication::clipboard()->setText(AsText()); });
  connect(FCancel, &QPushButton::clicked, this, &TDeployPage::Cancel);
  connect(FDeploy, &QPushButton::clicked, this, &TDeployPage::DeployWanted);
  connect(FClose, &QPushButton::clicked, this, &TDeployPage::CloseWanted);
  return row;
}

IDeployObserver& TDeployPage::Observer() {
  return *FProgress;
}

QString TDeployPage::TargetText() const {
  return tr("%1 for %2 – %3")
      .arg(PathToQString(FKey.Project.stem()), ToQString(FKey.Target.Platform),
           ToQString(FKey.Target.Configuration));
}

void TDeployPage::Begin(const TDeployKey& key, std::atomic<int>& cancelled) {
  const bool isSame = key == FKey;
  if (!FIsRetry) // choices are for one run, and for plans that are made anew before it
    FChoices = isSame && FIsAsking ? FModel->Choices() : TRowChoices();
  FCancelled = &cancelled;
  FKey = key;
  FIsAsking = false;
  FIsOther = false;
  FTitle->setText(TargetText());
  FSummary->setText(tr("Comparing with the target…"));
  FModel->Lock(); // what was confirmed stays until the run has its own rows
  if (!isSame)
    FModel->Clear();
  FProgress->Begin();
  ShowPhase();
  FCancel->setFocus();
}

void TDeployPage::ShowPlan(TDeployReport report, bool isOther) {
  FProgress->End();
  FCancelled = nullptr;
  FIsAsking = true;
  FIsOther = isOther;
  FReport = std::move(report);
  FModel->ShowPlan(std::exchange(FReport.Rows, {}), FReport.LeftOvers, FChoices);
  ShowPhase();
}

void TDeployPage::End(TDeployReport report) {
  if (!FCancelled)
    return;
  FProgress->End();
  FCancelled = nullptr;
  FReport = std::move(report);
  FSummaryText = DeploySummary(FReport, /*dryRun=*/false);
  // A plan that was not carried out would read as if its files had been copied.
  if (FReport.WasCarriedOut || FReport.End == TDeployEnd::Interrupted)
    FModel->ShowEnded(std::exchange(FReport.Rows, {}));
  else
    FModel->Clear();
  ShowPhase();
}

void TDeployPage::Withdraw() {
  if (!FIsAsking)
    return;
  FIsAsking = false;
  FModel->Lock();
  FSummaryText = tr("The target changed since this plan was made. Deploy makes it anew.");
  ShowPhase();
}

void TDeployPage::Cancel() {
  if (!FCancelled)
    return;
  int running = 0;
  FCancelled->compare_exchange_strong(running, SIGINT);
  FCancel->setEnabled(false);
  FSummary->setText(tr("Cancelling…"));
}

} // namespace workbench
