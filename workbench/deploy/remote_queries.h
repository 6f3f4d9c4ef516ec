// A run of questions about the files of one machine.
#pragma once

#include "workbench/remote/target/remote_connection.h"
#include "workbench/remote/target/seen_files.h"
#include "workbench/remote/target/target_place.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace workbench {

/// What a machine answered about one file.
struct TFileAnswer {
  bool IsKnown = false; ///< false: it may not be examined, or its path leads nowhere
  std::optional<deployment::TFileTime> Time = {}; ///< of the plain file; nothing: there is none
};

/// Holds a connection as long as it lives. What was asked once is not asked again.
class TRemoteQueries {
public:
  /// What `seen` knows is not asked, and it hears the answers; it must live as long. Null: nobody
  /// shares them.
  TRemoteQueries(std::shared_ptr<IRemoteConnection> connection, const TPlaceRules& rules,
                 TSeenFiles* seen = nullptr)
      : FConnection(std::move(connection)), FRules(rules), FSeen(seen) {}

  /// Asks about all these stored paths at once. Throws TConnectionError; what was not answered is
  /// unknown then.
  void Ask(const std::vector<std::string>& remoteNames);
  bool IsAsked(std::string_view remoteName) const { return FAnswers.contains(remoteName); }
  /// What came back about a stored path; unknown when nothing did.
  TFileAnswer AnswerOf(std::string_view remoteName) const;
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

  void FollowLinks(std::vector<TRemoteName> names, std::vector<TRemoteStatus>& answers);

  std::shared_ptr<IRemoteConnection> FConnection;
  TPlaceRules FRules;
  TSeenFiles FDirectories;
  TSeenFiles* FSeen;
  TByText<TFileAnswer> FAnswers; // by stored path
};

} // namespace workbench
