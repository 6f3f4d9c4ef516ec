#include "workbench/desktop/dialogs/deploy/deploy_panel.h"

#include "workbench/desktop/text/deploy_words.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/text/visible_text.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>
#include <array>
#include <chrono>
#include <csignal>
#include <utility>

namespace workbench {
namespace {

constexpr std::chrono::milliseconds FlushInterval(100);
constexpr int BarSteps = 1000;
constexpr int LinesKept = 10000;
// Widths of the columns in characters; the last one takes the rest.
constexpr std::array<int, TDeployLogModel::Reason> ColumnWidths{36, 20, 12, 44};

} // namespace

TDeployPanel::TDeployPanel(QWidget* parent)
    : QWidget(parent), FSummary(new QLabel(this)), FBar(new QProgressBar(this)),
      FStatus(new QLabel(this)), FOutput(new QPlainTextEdit(this)), FModel(this), FFilter(this) {
  setWindowTitle(tr("Deploy"));
  FSummary->setObjectName(QStringLiteral("summary"));
  FSummary->setAccessibleName(tr("State of the deploy"));
  FSummary->setTextFormat(Qt::PlainText);
  FSummary->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  FSummary->setWordWrap(true);
  FBar->setAccessibleName(tr("Progress"));
  FStatus->setObjectName(QStringLiteral("status"));
  FStatus->setAccessibleName(tr("Files, bytes, rate and time left"));
  FOutput->setObjectName(QStringLiteral("output"));
  FOutput->setAccessibleName(tr("Output of the commands"));
  FOutput->setReadOnly(true);
  FOutput->setMaximumBlockCount(LinesKept);
  FOutput->setMaximumHeight(fontMetrics().lineSpacing() * 8);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(FSummary);
  layout->addWidget(FBar);
  layout->addWidget(FStatus);
  layout->addWidget(MakeLog(), 1);
  layout->addWidget(FOutput);
  layout->addWidget(MakeButtons());
  FTimer.setInterval(FlushInterval);
  connect(&FTimer, &QTimer::timeout, this, &TDeployPanel::Flush);
  SetRunning(false);
}

QWidget* TDeployPanel::MakeLog() {
  FFilter.setSourceModel(&FModel);
  FLog = new QTreeView(this);
  FLog->setObjectName(QStringLiteral("log"));
  FLog->setAccessibleName(tr("Files of the deploy"));
  FLog->setModel(&FFilter);
  FLog->setRootIsDecorated(false);
  FLog->setUniformRowHeights(true);
  FLog->setAlternatingRowColors(true);
  FLog->setAllColumnsShowFocus(true);
  FLog->setSelectionMode(QAbstractItemView::ExtendedSelection);
  const int character = FLog->fontMetrics().averageCharWidth();
  for (std::size_t column = 0; column < ColumnWidths.size(); ++column)
    FLog->setColumnWidth(static_cast<int>(column), ColumnWidths[column] * character);
  connect(FLog, &QTreeView::activated, this, &TDeployPanel::Explain);
  return FLog;
}

QWidget* TDeployPanel::MakeButtons() {
  auto* row = new QWidget(this);
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins({});
  FFailedOnly = new QCheckBox(tr("Show &failed files only"), row);
  connect(FFailedOnly, &QCheckBox::toggled, &FFilter, &TDeployLogFilter::SetFailedOnly);
  auto* copy = new QPushButton(tr("Copy as &Text"), row);
  connect(copy, &QPushButton::clicked, this,
          [this] { QApplication::clipboard()->setText(AsText()); });
  FCancel = new QPushButton(tr("&Cancel"), row);
  connect(FCancel, &QPushButton::clicked, this, &TDeployPanel::Cancel);
  FClose = new QPushButton(tr("C&lose"), row);
  connect(FClose, &QPushButton::clicked, this, &QWidget::close);
  layout->addWidget(FFailedOnly);
  layout->addStretch();
  for (QPushButton* button : {copy, FCancel, FClose}) {
    button->setAutoDefault(true);
    layout->addWidget(button);
  }
  return row;
}

void TDeployPanel::SetRunning(bool running) {
  FBar->setVisible(running);
  FStatus->setVisible(running);
  FCancel->setEnabled(running);
  FClose->setEnabled(!running);
}

void TDeployPanel::Begin(std::atomic<int>& cancelled) {
  FCancelled = &cancelled;
  {
    const std::lock_guard lock(FMutex);
    FHeard = {};
  }
  FRate.Start(0, std::chrono::steady_clock::now());
  FModel.SetWaiting({});
  FFailedOnly->setChecked(false);
  FOutput->clear();
  FOutput->hide();
  FSummary->setText(tr("Comparing with the target\u2026"));
  FStatus->clear();
  FBar->setRange(0, 0); // how long it takes is not known yet
  SetRunning(true);
  FTimer.start();
  show();
  FCancel->setFocus();
}

void TDeployPanel::End(const TDeployReport& report, bool dryRun) {
  if (!FCancelled)
    return;
  FTimer.stop();
  Flush();
  const bool nothingDone =
      report.End == TDeployEnd::Refused || report.End == TDeployEnd::NoConsent ||
      report.End == TDeployEnd::NoSourceConsent || report.End == TDeployEnd::NoConnection ||
      report.End == TDeployEnd::NotStarted;
  // A plan that was not carried out would read as if its files had been copied.
  if (nothingDone)
    FModel.SetWaiting({});
  else
    FModel.SetDone(report.Rows);
  FSummary->setText(DeploySummary(report, dryRun));
  FCancelled = nullptr;
  SetRunning(false);
  FClose->setFocus();
}

void TDeployPanel::Planned(const std::vector<TDeployRow>& rows) {
  const std::lock_guard lock(FMutex);
  FHeard.Planned = rows;
  FHeard.PlannedAt = std::chrono::steady_clock::now();
}

void TDeployPanel::BytesSent(std::uint64_t count) {
  const std::lock_guard lock(FMutex);
  FHeard.Bytes += count;
}

void TDeployPanel::RowDone(std::size_t index, const TDeployRow& row) {
  const std::lock_guard lock(FMutex);
  FHeard.Done.emplace_back(index, row);
}

void TDeployPanel::CommandSaid(const std::string& line) {
  const std::lock_guard lock(FMutex);
  FHeard.Lines.push_back(line);
}

void TDeployPanel::Flush() {
  THeard heard;
  {
    const std::lock_guard lock(FMutex);
    heard = std::exchange(FHeard, {});
  }
  const auto now = std::chrono::steady_clock::now();
  if (heard.Planned) {
    std::uint64_t wanted = 0;
    for (const TDeployRow& row : *heard.Planned)
      wanted += row.Bytes;
    FRate.Start(wanted, heard.PlannedAt);
    FModel.SetWaiting(*std::move(heard.Planned));
    FBar->setRange(0, BarSteps);
    if (FCancelled && *FCancelled == 0)
      FSummary->setText(tr("Deploying\u2026"));
  }
  if (heard.Bytes > 0)
    FRate.Add(heard.Bytes, now);
  FModel.Finish(heard.Done);
  for (const std::string& line : heard.Lines)
    FOutput->appendPlainText(ToQString(Visible(line)));
  FOutput->setVisible(FOutput->isVisibleTo(this) || !heard.Lines.empty());
  ShowProgress();
}

void TDeployPanel::ShowProgress() {
  const int files = FModel.rowCount();
  if (files == 0)
    return;
  const auto now = std::chrono::steady_clock::now();
  const double done = static_cast<double>(FModel.DoneCount()) / files;
  const double share = FRate.Wanted() > 0 ? FRate.Share() : done;
  FBar->setValue(static_cast<int>(share * BarSteps));
  QString text = tr("%1 of %2 files, %3 of %4, %5/s")
                     .arg(FModel.DoneCount())
                     .arg(files)
                     .arg(SizeText(FRate.Sent()), SizeText(FRate.Wanted()),
                          SizeText(static_cast<std::uint64_t>(FRate.BytesPerSecond(now))));
  if (const auto left = FRate.TimeLeft(now))
    text += tr(", %1 left").arg(ToQString(DurationText(*left)));
  FStatus->setText(text);
}

void TDeployPanel::Cancel() {
  if (!FCancelled)
    return;
  int running = 0;
  FCancelled->compare_exchange_strong(running, SIGINT);
  FCancel->setEnabled(false);
  FSummary->setText(tr("Cancelling\u2026"));
}

void TDeployPanel::Explain(const QModelIndex& shown) {
  if (!shown.data(TDeployLogModel::FailedRole).toBool())
    return;
  const TDeployRow& row = FModel.Row(FFilter.mapToSource(shown).row());
  QMessageBox box(this);
  box.setIcon(QMessageBox::Warning);
  box.setWindowTitle(tr("Failed File"));
  box.setTextFormat(Qt::PlainText);
  box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  box.setText(tr("%1 was not deployed: %2")
                  .arg(ToQString(Visible(row.LocalName)), ToQString(Visible(row.Error))));
  box.setInformativeText(
      tr("It belongs to %1.\n\n%2").arg(ToQString(Visible(row.RemoteFile)), FailureAdvice(row)));
  box.addButton(QMessageBox::Ok)->setText(tr("OK"));
  box.exec();
}

QString TDeployPanel::AsText() const {
  QString text = FSummary->text() + QLatin1Char('\n');
  for (int row = 0; row < FFilter.rowCount(); ++row) {
    QStringList cells;
    for (const int column : {TDeployLogModel::Result, TDeployLogModel::File,
                             TDeployLogModel::Target, TDeployLogModel::Reason})
      cells += FFilter.index(row, column).data().toString();
    text += cells.join(QLatin1Char('\t')).trimmed() + QLatin1Char('\n');
  }
  return text;
}

void TDeployPanel::closeEvent(QCloseEvent* event) {
  if (IsRunning()) {
    event->ignore();
    return;
  }
  event->accept();
  emit Closed();
}

} // namespace workbench
