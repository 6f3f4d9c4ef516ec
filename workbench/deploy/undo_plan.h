// What taking back one deploy will do, decided by what stands on the target now.
#pragma once

#include "workbench/deploy/record/undo_store.h"
#include "workbench/remote/target/remote_connection.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace workbench {

/// What happens to one file.
enum class TUndoAction { Restored, Removed, Unchanged, Refused, Failed };

/// How many there are.
inline constexpr std::size_t UndoActionCount = 5;

/// "restored", "removed" and so on: words that scripts read.
std::string_view UndoActionName(TUndoAction action);

/// One file that is to be taken back.
struct TUndoItem {
  TUndoFile File;
  TRemoteName Target = {};      ///< resolved
  bool DirectoryExists = false; ///< that the target is in
  TUndoAction Action = TUndoAction::Unchanged;
  std::string Reason = {}; ///< why it is refused, or failed

  std::string RemoteFile() const { return Target.Path(); }
};

/// What stands under a name, and where it leads when it is a link.
struct TThere {
  TRemoteStatus Status = {};
  std::string Link = {};
};

/// What is there when runs before this one will have been taken back, by path in the record.
using TForeseen = std::unordered_map<std::string, TThere>;

/// Decides about each file of a manifest. Throws TConnectionError.
std::vector<TUndoItem> PlanUndo(IRemoteConnection& connection, const TUndoStore& store,
                                const TUndoManifest& manifest, const TTargetRecord& record,
                                const TForeseen& foreseen);

/// What will be there when these were taken back.
void Foresee(const std::vector<TUndoItem>& items, TForeseen& foreseen);

/// Writes into the record what it said of these files before; of those that are refused or failed
/// it keeps what it says.
void TakeBackInRecord(const std::vector<TUndoItem>& items, TTargetRecord& record);

} // namespace workbench
