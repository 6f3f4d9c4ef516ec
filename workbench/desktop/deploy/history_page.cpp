#include "workbench/desktop/deploy/history_page.h"

#include "workbench/desktop/deploy/runs_model.h"
#include "workbench/desktop/text/qt_text.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
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

constexpr std::chrono::milliseconds LookInterval(100);
// Widths of the columns in characters; the last one takes the rest.
constexpr std::array<int, TRunsModel::Revision> RunColumnWidths{24, 28, 14, 10, 10, 17};

} // namespace

THistoryPage::THistoryPage(QWidget* parent)
    : QWidget(parent), FModel(new TRunsModel(this)), FTitle(new QLabel(this)),
      FSummary(new QLabel(this)), FBar(new QProgressBar(this)), FView(new QTreeView(this)) {
  QFont bold = font();
  bold.setBold(true);
  FTitle->setFont(bold);
  FTitle->setTextFormat(Qt::PlainText);
  FSummary->setObjectName(QStringLiteral("historySummary"));
  FSummary->setAccessibleName(tr("State of the history"));
  FSummary->setTextFormat(Qt::PlainText);
  FSummary->setWordWrap(true);
  FSummary->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  FBar->setAccessibleName(tr("Progress"));
  FBar->hide();
  FView->setObjectName(QStringLiteral("runs"));
  FView->setAccessibleName(tr("Deploys that the target remembers"));
  FView->setModel(FModel);
  FView->setRootIsDecorated(false);
  FView->setUniformRowHeights(true);
  FView->setAlternatingRowColors(true);
  FView->setAllColumnsShowFocus(true);
  FView->setMinimumHeight(fontMetrics().lineSpacing() * 5);
  for (std::size_t column = 0; column < RunColumnWidths.size(); ++column)
    FView->setColumnWidth(static_cast<int>(column),
                          RunColumnWidths[column] * fontMetrics().averageCharWidth());
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(FTitle);
  layout->addWidget(FSummary);
  layout->addWidget(FBar);
  layout->addWidget(FView, 1);
  layout->addWidget(MakeButtons());
  connect(FView->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &THistoryPage::Update);
  FTimer.setInterval(LookInterval);
  connect(&FTimer, &QTimer::timeout, this, &THistoryPage::ShowProgress);
  Update();
}

QWidget* THistoryPage::MakeButtons() {
  auto* row = new QWidget(this);
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins({});
  const auto add = [&](const QString& text, const char* name) {
    auto* button = new QPushButton(text, row);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(true);
    layout->addWidget(button);
    return button;
  };
  FUndo = add(tr("&Take Back…"), "undoRun");
  FRefresh = add(tr("&Read Again"), "readRuns");
  layout->addStretch();
  FCancel = add(tr("&Stop"), "cancelUndo");
  FClose = add(tr("Close &Panel"), "closeHistory");
  connect(FUndo, &QPushButton::clicked, this, &THistoryPage::Undo);
  connect(FRefresh, &QPushButton::clicked, this, &THistoryPage::RunsWanted);
  connect(FClose, &QPushButton::clicked, this, &THistoryPage::CloseWanted);
  connect(FCancel, &QPushButton::clicked, this, [this] {
    if (FCancelled)
      *FCancelled = SIGINT;
    FCancel->setEnabled(false);
  });
  return row;
}

void THistoryPage::Begin(const TDeployKey& key, const QString& what, std::atomic<int>& cancelled) {
  FKey = key;
  FCancelled = &cancelled;
  FDone = 0;
  FFiles = 0;
  FTitle->setText(tr("Deploys of %1 for %2 – %3")
                      .arg(PathToQString(key.Project.stem()), ToQString(key.Target.Platform),
                           ToQString(key.Target.Configuration)));
  FSummary->setText(what);
  FBar->setRange(0, 0); // how long it takes is not known yet
  FBar->show();
  FTimer.start();
  Update();
}

void THistoryPage::End(const QString& summary) {
  FTimer.stop();
  FBar->hide();
  FCancelled = nullptr;
  FSummary->setText(summary);
  Update();
}

void THistoryPage::ShowRuns(std::vector<TRecordedRun> runs) {
  FModel->Show(std::move(runs));
  if (FModel->rowCount() > 0)
    FView->setCurrentIndex(FModel->index(0, 0));
  Update();
}

void THistoryPage::Progress(std::size_t done, std::size_t files) {
  FDone = done;
  FFiles = files;
}

void THistoryPage::ShowProgress() {
  const std::size_t files = FFiles;
  if (files == 0)
    return;
  FBar->setRange(0, static_cast<int>(files));
  FBar->setValue(static_cast<int>(FDone));
}

void THistoryPage::Update() {
  const QModelIndex current = FView->currentIndex();
  FUndo->setEnabled(!IsRunning() && current.isValid() && FModel->CanUndo(current.row()));
  FRefresh->setEnabled(!IsRunning());
  FClose->setEnabled(!IsRunning());
  FCancel->setVisible(IsRunning());
  FCancel->setEnabled(IsRunning());
}

void THistoryPage::Undo() {
  const int row = FView->currentIndex().row();
  const int steps = FModel->StepsTo(row);
  const auto cell = [&](int column) { return FModel->index(row, column).data().toString(); };
  QMessageBox box(this);
  box.setIcon(QMessageBox::Question);
  box.setWindowTitle(tr("Take Back"));
  box.setTextFormat(Qt::PlainText);
  box.setText(steps == 1 ? tr("Take back the deploy of %1 by %2?")
                               .arg(cell(TRunsModel::When), cell(TRunsModel::Who))
                         : tr("Take back the deploy of %1 by %2, and the newer ones, %3 in all?")
                               .arg(cell(TRunsModel::When), cell(TRunsModel::Who))
                               .arg(steps));
  box.setInformativeText(
      tr("What was replaced or removed comes back, and what was new goes. A file that somebody "
         "changed since stays as it is. Commands that ran are not taken back."));
  const QPushButton* yes = box.addButton(tr("&Take Back"), QMessageBox::AcceptRole);
  box.setDefaultButton(box.addButton(tr("Cancel"), QMessageBox::RejectRole));
  box.exec();
  if (box.clickedButton() == yes)
    emit UndoWanted(steps);
}

void THistoryPage::FocusRuns() {
  FView->setFocus();
}

} // namespace workbench
