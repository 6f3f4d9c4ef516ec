// What the user is asked before a project is saved, closed or read again.
#pragma once

#include <QString>

class QWidget;

namespace workbench {

/// Whether a save may replace what another program wrote.
bool AskOverwrite(const QString& project, QWidget* parent);

enum class TCloseAnswer { Save, Discard, Stay };
/// What becomes of changes when their project is closed.
TCloseAnswer AskClose(const QString& project, QWidget* parent);

enum class TReloadAnswer {
  Reload, ///< changes that were not saved are lost
  Merge,  ///< they are done to what the file holds now
  Keep    ///< the project stays as it is
};
/// What becomes of changes when the file is read again. With `canMerge` they can be kept.
TReloadAnswer AskReload(const QString& question, bool canMerge, QWidget* parent);

} // namespace workbench
