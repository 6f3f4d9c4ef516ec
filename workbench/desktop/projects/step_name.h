// Names of steps that can be undone.
#pragma once

#include "workbench/desktop/controls/form_controls.h"
#include "workbench/list/list_snapshot.h"

#include <QString>

namespace workbench {

/// What was done, to which files and where, such as "Untick levels.dat (Win64 – Debug)". `target`
/// is what was shown; empty for nothing.
QString StepName(const TFormCommand& command, const QString& target, const TListChange& change);
/// The name of what a reconcile did.
QString ReconcileName(const QString& target);

} // namespace workbench
