#include "workbench/desktop/window/window_status.h"

#include "workbench/desktop/projects/project_names.h"
#include "workbench/desktop/projects/project_tabs.h"
#include "workbench/desktop/text/engine_text.h"
#include "workbench/desktop/text/qt_text.h"

#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMessageBox>
#include <QStatusBar>
#include <QToolButton>

namespace workbench {

TWindowStatus::TWindowStatus(QMainWindow& window, TProjectTabs& projects, TEditorTabs& tabs)
    : QObject(&window), FWindow(window), FProjects(projects), FTabs(tabs),
      FCounts(new QLabel(&window)), FWarnings(new QToolButton(&window)) {
  FWarnings->setAutoRaise(true);
  FWarnings->hide();
  connect(FWarnings, &QToolButton::clicked, this, &TWindowStatus::ShowWarnings);
  FWindow.statusBar()->addPermanentWidget(FWarnings);
  FWindow.statusBar()->addPermanentWidget(FCounts);
}

void TWindowStatus::Update() {
  UpdateProblem();
  UpdateTitle();
  UpdateCounts();
  UpdateWarnings();
}

void TWindowStatus::Say(const QString& text) {
  FWindow.statusBar()->showMessage(text);
}

void TWindowStatus::UpdateTitle() {
  const TOpenProject* project = FProjects.ProjectAt(FTabs.currentIndex());
  FWindow.setWindowTitle(
      project ? QStringLiteral("%1[*] – %2").arg(NameOf(*project), QApplication::applicationName())
              : QApplication::applicationName());
  FWindow.setWindowModified(project && FProjects.IsModified(FTabs.currentIndex()));
}

void TWindowStatus::UpdateCounts() {
  const TFormControls* controls = FTabs.ControlsAt(FTabs.currentIndex());
  QString text;
  if (controls && controls->Tree()) {
    const int selected = static_cast<int>(controls->Tree()->SelectedCount());
    text = tr("%n file(s)", nullptr, controls->Tree()->Model().ShownCount());
    if (selected > 0)
      text += tr(", %n selected", nullptr, selected);
  }
  FCounts->setText(text);
}

void TWindowStatus::UpdateWarnings() {
  const TOpenProject* project = FProjects.ProjectAt(FTabs.currentIndex());
  const int warnings = project ? static_cast<int>(project->Warnings().size()) : 0;
  FWarnings->setVisible(warnings > 0);
  FWarnings->setText(tr("%n warning(s)", nullptr, warnings));
}

// Said once: editing goes on all the same.
void TWindowStatus::UpdateProblem() {
  const TProjectEdits* edits = FProjects.EditsAt(FTabs.currentIndex());
  const QString problem = edits ? edits->Problem() : QString();
  if (!problem.isEmpty() && problem != FProblem)
    Say(EngineText(problem.toStdString()));
  FProblem = problem;
}

void TWindowStatus::ShowWarnings() {
  const TOpenProject* project = FProjects.ProjectAt(FTabs.currentIndex());
  if (!project)
    return;
  QStringList lines;
  for (const TWarning& warning : project->Warnings()) {
    QString place = ToQString(warning.File);
    if (warning.Line > 0)
      place += QStringLiteral(":%1").arg(warning.Line);
    lines += (place.isEmpty() ? QString() : place + ": ") + EngineText(warning.Text);
  }
  QMessageBox box(QMessageBox::Warning, tr("Warnings"), lines.join(QStringLiteral("\n\n")),
                  QMessageBox::Ok, &FWindow);
  box.setTextFormat(Qt::PlainText);
  box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  box.exec();
}

} // namespace workbench
