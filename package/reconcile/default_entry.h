// What a step wants of one entry, and why.
#pragma once

#include "package/host/api/reconcilejournal.h"

#include <optional>
#include <string>

namespace deployment {

/// Why a step does what it does about an entry.
struct TEntryReason {
  TReconcileStep Step = TReconcileStep::ProjectOutput;
  TReasonSource Source = TReasonSource::Gate;
  std::string SourceName = {};
  std::string SourceValue = {};
  TReasonCause Cause = TReasonCause::None;
};

/// A default entry as a step wants it. The configuration and platform are those of the target.
struct TDefaultEntry {
  std::string ClassName;
  std::string LocalName;
  TEntryReason Reason;
  /// Written when the entry is made; one that exists stays as the user left it.
  bool EnabledOnCreation = true;
  /// Written when the entry is made; one that exists keeps the name that the user may have given.
  std::optional<std::string> RemoteNameOnCreation = std::nullopt;
  std::optional<std::string> RemoteDirOnCreation = std::nullopt;
  /// Written in any case.
  std::optional<std::string> RemoteName = std::nullopt;
  std::optional<std::string> RemoteDir = std::nullopt;
};

} // namespace deployment
