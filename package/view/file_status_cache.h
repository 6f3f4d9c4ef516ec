// What is known of each local file, by its local name as stored.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace deployment {

/// The local file compared with the one on the remote machine.
enum class TRemoteState : std::int32_t {
  Same = 0,
  LocalOlder = 1,
  LocalNewer = 2,
  NotFound = 3, ///< there is no remote file
  NotQueried = 4,
};

/// Status of one local file.
struct TFileState {
  TRemoteState RemoteState = TRemoteState::NotQueried;
  bool LocalFileExists = false;
};

/// States by local name, compared exactly. Entries with one name share one state. Beside it the
/// cache counts the checked rows whose local file exists, so that nobody has to walk the rows for
/// it.
class TFileStatusCache {
public:
  /// What the cache keeps for one local name. Rows refer to it; it stays in its place as long as
  /// rows are attached to it.
  struct TEntry {
    TFileState State;
    bool HasState = false;
    std::size_t CheckedRows = 0;
  };

  /// Null when nothing is known.
  const TFileState* Find(std::string_view localName) const;
  /// The state stored last holds.
  void Store(std::string_view localName, const TFileState& state);
  /// Forgets all states.
  void Clear();
  /// Makes room for that many names.
  void Reserve(std::size_t count) { FEntries.reserve(count); }

  /// A row for the local name comes up; it is not checked.
  TEntry& AttachRow(std::string_view localName);
  /// An attached row goes away.
  void DetachRow(TEntry& entry, bool checked);
  /// The box of an attached row changed.
  void SetRowChecked(TEntry& entry, bool checked);
  /// Number of checked rows whose local file exists.
  std::size_t DeployableRows() const { return FDeployableRows; }

private:
  struct THash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>()(text);
    }
  };

  TEntry& EntryOf(std::string_view localName);
  static std::size_t Deployable(const TEntry& entry) {
    return entry.HasState && entry.State.LocalFileExists ? entry.CheckedRows : 0;
  }

  std::unordered_map<std::string, TEntry, THash, std::equal_to<>> FEntries;
  std::size_t FAttachedRows = 0;
  std::size_t FDeployableRows = 0;
};

} // namespace deployment
