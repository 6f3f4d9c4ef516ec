// The decisions of a reconcile as sentences and as JSON.
#pragma once

#include "package/host/api/reconcilejournal.h"
#include "workbench/json/json.h"

#include <string>

namespace workbench {

/// A sentence without a full stop, such as "the step "artwork" adds it as "iPhone_AppIcon57": the
/// option "iPhone_AppIcon57" is "art\57.png"".
std::string ReasonSentence(const deployment::TReconcileReason& reason);

/// {"step","outcome","class","localName","source","sourceName","sourceValue","cause","text"}.
TJson ReasonAsJson(const deployment::TReconcileReason& reason);

} // namespace workbench
