#include "workbench/desktop/projects/project_questions.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>

namespace workbench {
namespace {

struct TTexts {
  Q_DECLARE_TR_FUNCTIONS(workbench::TProjectTabs)
};

} // namespace

bool AskOverwrite(const QString& project, QWidget* parent) {
  QMessageBox box(
      QMessageBox::Warning, TTexts::tr("Save Project"),
      TTexts::tr("%1 was changed by another program since it was read here.").arg(project),
      QMessageBox::Cancel, parent);
  box.setTextFormat(Qt::PlainText);
  box.setInformativeText(TTexts::tr("Saving replaces what the other program wrote. A copy of it is "
                                    "kept beside the other backups."));
  QPushButton* overwrite = box.addButton(TTexts::tr("&Overwrite"), QMessageBox::DestructiveRole);
  box.setDefaultButton(QMessageBox::Cancel);
  box.exec();
  return box.clickedButton() == overwrite;
}

TCloseAnswer AskClose(const QString& project, QWidget* parent) {
  QMessageBox box(QMessageBox::Question, TTexts::tr("Close Project"),
                  TTexts::tr("Save the changes to %1?").arg(project), QMessageBox::NoButton,
                  parent);
  box.setTextFormat(Qt::PlainText);
  const QPushButton* save = box.addButton(TTexts::tr("&Save"), QMessageBox::AcceptRole);
  const QPushButton* discard = box.addButton(TTexts::tr("&Discard"), QMessageBox::DestructiveRole);
  box.addButton(TTexts::tr("Cancel"), QMessageBox::RejectRole);
  box.setDefaultButton(const_cast<QPushButton*>(save));
  box.exec();
  if (box.clickedButton() == save)
    return TCloseAnswer::Save;
  return box.clickedButton() == discard ? TCloseAnswer::Discard : TCloseAnswer::Stay;
}

TReloadAnswer AskReload(const QString& question, bool canMerge, QWidget* parent) {
  QMessageBox box(QMessageBox::Question, TTexts::tr("Reload Project"), question,
                  QMessageBox::NoButton, parent);
  box.setTextFormat(Qt::PlainText);
  box.setInformativeText(
      canMerge ? TTexts::tr("Changes that were not saved can be done to what the file holds now.")
               : TTexts::tr("The changes that were not saved are lost then."));
  const QPushButton* merge =
      canMerge ? box.addButton(TTexts::tr("Reload and Keep My &Edits"), QMessageBox::AcceptRole)
               : nullptr;
  const QPushButton* reload = box.addButton(
      TTexts::tr("&Reload"), canMerge ? QMessageBox::DestructiveRole : QMessageBox::AcceptRole);
  QPushButton* keep = box.addButton(TTexts::tr("&Keep"), QMessageBox::RejectRole);
  box.setDefaultButton(keep);
  box.setEscapeButton(keep);
  box.exec();
  if (merge && box.clickedButton() == merge)
    return TReloadAnswer::Merge;
  return box.clickedButton() == reload ? TReloadAnswer::Reload : TReloadAnswer::Keep;
}

} // namespace workbench
