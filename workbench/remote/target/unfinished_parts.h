// What earlier runs left behind on a machine and can be gone on with. Shared by the connections.
#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <utility>

namespace workbench {

/// An unfinished file that sending can go on from.
struct TUnfinishedPart {
  std::string Name;
  std::uint64_t Size = 0; ///< bytes of it that are those of the local file
};

/// Parts by directory and by the mark of the local file. May be used by several threads.
class TUnfinishedParts {
public:
  void Add(const std::string& directory, const std::string& mark, TUnfinishedPart part) {
    const std::lock_guard lock(FMutex);
    FParts.insert_or_assign({directory, mark}, std::move(part));
  }
  /// Each part is given out once.
  std::optional<TUnfinishedPart> Take(const std::string& directory, const std::string& mark) {
    const std::lock_guard lock(FMutex);
    const auto node = FParts.extract({directory, mark});
    return node ? std::optional(std::move(node.mapped())) : std::nullopt;
  }

private:
  std::mutex FMutex;
  std::map<std::pair<std::string, std::string>, TUnfinishedPart> FParts;
};

} // namespace workbench
