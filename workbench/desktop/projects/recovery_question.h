// Asks what to do with edits that an earlier run left behind.
#pragma once

#include "workbench/history/recovery.h"

#include <filesystem>

class QWidget;

namespace workbench {

class TProjectTabs;

enum class TRecoveryAnswer { Recover, Discard, Later };

/// Enter recovers; Escape and closing leave the edits for the next start.
TRecoveryAnswer AskRecovery(const TRecoverable& recoverable, QWidget* parent);

/// Asks about all edits that are found, or about those of one project alone, and does as the user
/// says.
void OfferRecovery(TProjectTabs& projects, QWidget* parent,
                   const std::filesystem::path& project = {});

} // namespace workbench
