// Asks what to do with edits that an earlier run left behind.
#pragma once

#include "workbench/history/recovery.h"

class QWidget;

namespace workbench {

enum class TRecoveryAnswer { Recover, Discard, Later };

/// Enter recovers; Escape and closing leave the edits for the next start.
TRecoveryAnswer AskRecovery(const TRecoverable& recoverable, QWidget* parent);

} // namespace workbench
