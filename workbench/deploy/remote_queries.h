// A run of questions about the files of one machine.
#pragma once

#include "workbench/remote/target/remote_connection.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace workbench {

/// Holds a connection as long as it lives. What was asked once is not asked again.
class TRemoteQueries {
public:
  TRemoteQueries(std::shared_ptr<IRemoteConnection> connection, bool allowOutside)
      : FConnection(std::move(connection)), FAllowOutside(allowOutside) {}

  /// Asks about all these stored paths at once. A connection that breaks leaves the answers that
  /// did not come unknown, and the files count as not found.
  void Ask(const std::vector<std::string>& remoteNames);
  /// The time stamp of the plain file of that stored path; nothing when there is none that may be
  /// looked at.
  std::optional<deployment::TFileTime> TimeOf(std::string_view remoteName);
  std::chrono::nanoseconds TimeResolution() const { return FConnection->TimeResolution(); }

private:
  struct THash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>()(text);
    }
  };
  template <class TValue>
  using TByText = std::unordered_map<std::string, TValue, THash, std::equal_to<>>;

  void ResolveDirectories(std::vector<std::string> directories);

  std::shared_ptr<IRemoteConnection> FConnection;
  bool FAllowOutside;
  TByText<TRemoteDirectory> FDirectories;
  TByText<std::optional<deployment::TFileTime>> FTimes; // by stored path
};

} // namespace workbench
