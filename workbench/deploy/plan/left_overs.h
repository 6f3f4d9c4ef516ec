// Files that were deployed and are not in the list any more; and how the sides of a comparison are
// read.
#pragma once

#include "workbench/deploy/plan/deploy_plan.h"

#include <optional>
#include <string_view>
#include <vector>

namespace workbench {

/// Stand for the hash of a file that cannot be read: it is a content of its own.
inline constexpr std::string_view UnreadableHere = "unreadable here";
inline constexpr std::string_view UnreadableThere = "unreadable there";

/// What the target says of a file, as content; nothing where nothing is.
std::optional<TContent> ContentOf(const TRemoteStatus& remote);
/// What the record says of a file, as content; nothing without one.
std::optional<TContent> ContentOf(const TRecordedFile* recorded);
/// Asks for the hashes of these files at once, each for the content that stands at its place.
/// Throws TConnectionError.
void ReadHashesThere(IRemoteConnection& connection, const std::vector<TRemoteName>& names,
                     const std::vector<TContent*>& contents);

/// Reads at once what those of the names store that the target says are links, each for the content
/// that stands at its place; null contents and targets without links are passed over. Throws
/// TConnectionError.
void ReadLinksThere(IRemoteConnection& connection, const std::vector<TRemoteName>& names,
                    const std::vector<TRemoteStatus>& answers,
                    const std::vector<TContent*>& contents);

/// The row of a plan that removes the file, or that refuses to where others changed it.
TPlannedFile RemovalOf(const TLeftOver& leftOver);

/// Finds the files of the record that are not in the plan, though they were deployed to the same
/// platform and configuration, and removes them by the plan where the options say so. Throws
/// TConnectionError.
void FindLeftOvers(IRemoteConnection& connection, const TTargetRecord& record,
                   const TPlanOptions& options, TDeployPlan& plan);

} // namespace workbench
