// What several deploys that run at once do once for all of them.
#pragma once

#include <filesystem>
#include <functional>
#include <future>
#include <mutex>
#include <string>
#include <unordered_map>

namespace workbench {

/// May be used by several threads.
class TSharedWork {
public:
  /// Does the work of that name when it was not begun yet, else waits for its end. Returns what the
  /// work did, and throws what it threw.
  std::string Once(const std::string& name, const std::function<std::string()>& work);
  /// The revision of the working copy that the directory belongs to, as RevisionOf.
  std::string Revision(const std::filesystem::path& directory);

private:
  std::mutex FMutex;
  std::unordered_map<std::string, std::shared_future<std::string>> FDone; // or being done
};

} // namespace workbench
