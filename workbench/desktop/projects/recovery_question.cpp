#include "workbench/desktop/projects/recovery_question.h"

#include "workbench/desktop/controls/guarded.h"
#include "workbench/desktop/projects/project_tabs.h"
#include "workbench/desktop/text/engine_text.h"
#include "workbench/desktop/text/error_text.h"
#include "workbench/desktop/text/qt_text.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>

namespace workbench {
namespace {

QString Tr(const char* text, int n = -1) {
  return QCoreApplication::translate("RecoveryQuestion", text, nullptr, n);
}

QString StateText(const TRecoverable& recoverable) {
  QString text;
  if (recoverable.State == TProjectState::Changed)
    text = Tr(QT_TRANSLATE_NOOP("RecoveryQuestion",
                                "The project file was changed since; the edits are done to what "
                                "it holds now."));
  if (recoverable.State == TProjectState::Gone)
    text = Tr(QT_TRANSLATE_NOOP("RecoveryQuestion", "The project file is gone."));
  if (recoverable.IsDamaged)
    text += (text.isEmpty() ? QString() : QStringLiteral("\n")) +
            Tr(QT_TRANSLATE_NOOP("RecoveryQuestion", "The last edits cannot be read any more."));
  return text;
}

} // namespace

TRecoveryAnswer AskRecovery(const TRecoverable& recoverable, QWidget* parent) {
  const auto when =
      std::chrono::duration_cast<std::chrono::milliseconds>(recoverable.When.time_since_epoch());
  QMessageBox box(parent);
  box.setIcon(QMessageBox::Question);
  box.setWindowTitle(Tr(QT_TRANSLATE_NOOP("RecoveryQuestion", "Unsaved Edits")));
  box.setTextFormat(Qt::PlainText);
  box.setText(Tr(QT_TRANSLATE_NOOP("RecoveryQuestion",
                                   "The program ended before edits of %1 were saved. They concern "
                                   "%2 entries; the last one was made on %3."))
                  .arg(PathToQString(recoverable.Project),
                       QString::number(recoverable.ChangedEntries),
                       QLocale().toString(QDateTime::fromMSecsSinceEpoch(when.count()),
                                          QLocale::ShortFormat)));
  box.setInformativeText(StateText(recoverable));
  QPushButton* recover = nullptr;
  if (recoverable.State != TProjectState::Gone)
    recover = box.addButton(Tr(QT_TRANSLATE_NOOP("RecoveryQuestion", "&Recover")),
                            QMessageBox::AcceptRole);
  QPushButton* discard = box.addButton(Tr(QT_TRANSLATE_NOOP("RecoveryQuestion", "&Discard")),
                                       QMessageBox::DestructiveRole);
  QPushButton* later = box.addButton(Tr(QT_TRANSLATE_NOOP("RecoveryQuestion", "Ask &Later")),
                                     QMessageBox::RejectRole);
  box.setDefaultButton(recover ? recover : later);
  box.setEscapeButton(later);
  box.exec();
  if (recover && box.clickedButton() == recover)
    return TRecoveryAnswer::Recover;
  return box.clickedButton() == discard ? TRecoveryAnswer::Discard : TRecoveryAnswer::Later;
}

void OfferRecovery(TProjectTabs& projects, QWidget* parent, const std::filesystem::path& project) {
  const TRecoverySearch search = FindRecoverable();
  for (const std::string& problem : search.Problems) {
    if (project.empty())
      ShowError(Tr("Unsaved Edits"), EngineText(problem), parent);
  }
  for (const TRecoverable& recoverable : search.Found) {
    if (!project.empty() && !IsOfProject(recoverable, project))
      continue;
    switch (AskRecovery(recoverable, parent)) {
    case TRecoveryAnswer::Recover:
      projects.Recover(recoverable);
      break;
    case TRecoveryAnswer::Discard:
      Guarded([&] { Discard(recoverable); });
      break;
    case TRecoveryAnswer::Later:
      break;
    }
  }
}

} // namespace workbench
