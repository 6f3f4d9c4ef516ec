#include "workbench/desktop/deploy/run_progress.h"

#include "workbench/desktop/text/deploy_words.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/text/visible_text.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <utility>

namespace workbench {
namespace {

constexpr std::chrono::milliseconds FlushInterval(100);
constexpr int BarSteps = 1000;

} // namespace

TRunProgress::TRunProgress(TDeployRowsModel& model, QPlainTextEdit& output, QWidget* parent)
    : QWidget(parent), FModel(model), FOutput(output), FBar(new QProgressBar(this)),
      FStatus(new QLabel(this)) {
  FBar->setAccessibleName(tr("Progress"));
  FStatus->setObjectName(QStringLiteral("status"));
  FStatus->setAccessibleName(tr("Files, bytes, rate and time left"));
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins({});
  layout->addWidget(FBar, 1);
  layout->addWidget(FStatus);
  FTimer.setInterval(FlushInterval);
  connect(&FTimer, &QTimer::timeout, this, &TRunProgress::Flush);
  hide();
}

void TRunProgress::Begin() {
  {
    const std::lock_guard lock(FMutex);
    FHeard = {};
  }
  FRate.Start(0, std::chrono::steady_clock::now());
  FOutput.clear();
  FOutput.hide();
  FStatus->clear();
  FBar->setRange(0, 0); // how long it takes is not known yet
  FTimer.start();
  show();
}

void TRunProgress::End() {
  FTimer.stop();
  Flush();
  hide();
}

void TRunProgress::Planned(const std::vector<TDeployRow>& rows) {
  const std::lock_guard lock(FMutex);
  FHeard.Planned = rows;
  FHeard.PlannedAt = std::chrono::steady_clock::now();
}

void TRunProgress::BytesSent(std::uint64_t count) {
  const std::lock_guard lock(FMutex);
  FHeard.Bytes += count;
}

void TRunProgress::RowDone(std::size_t index, const TDeployRow& row) {
  const std::lock_guard lock(FMutex);
  FHeard.Done.emplace_back(index, row);
}

void TRunProgress::CommandSaid(const std::string& line) {
  const std::lock_guard lock(FMutex);
  FHeard.Lines.push_back(line);
}

void TRunProgress::Flush() {
  THeard heard;
  {
    const std::lock_guard lock(FMutex);
    heard = std::exchange(FHeard, {});
  }
  if (heard.Planned) {
    std::uint64_t wanted = 0;
    for (const TDeployRow& row : *heard.Planned)
      wanted += row.Bytes;
    FRate.Start(wanted, heard.PlannedAt);
    FModel.ShowWaiting(*std::move(heard.Planned));
    FBar->setRange(0, BarSteps);
    emit Started();
  }
  if (heard.Bytes > 0)
    FRate.Add(heard.Bytes, std::chrono::steady_clock::now());
  FModel.Finish(std::move(heard.Done));
  for (const std::string& line : heard.Lines)
    FOutput.appendPlainText(ToQString(Visible(line)));
  FOutput.setVisible(FOutput.isVisibleTo(this) || !heard.Lines.empty());
  ShowFigures();
}

void TRunProgress::ShowFigures() {
  if (FBar->maximum() == 0)
    return;
  const std::size_t files = FModel.Count();
  const auto now = std::chrono::steady_clock::now();
  const double done =
      files == 0 ? 1 : static_cast<double>(FModel.DoneCount()) / static_cast<double>(files);
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

} // namespace workbench
