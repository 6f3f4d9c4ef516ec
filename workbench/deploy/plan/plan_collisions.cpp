#include "workbench/deploy/plan/plan_collisions.h"

#include "package/common/case_fold.h"

#include <unordered_map>
#include <unordered_set>

namespace workbench {
namespace {

using TFilesByPath = std::unordered_map<std::string, const TPlannedFile*>;

class TCollisions {
public:
  explicit TCollisions(bool ignoresCase) : FIgnoresCase(ignoresCase) {}

  void FindSharedPlaces(std::span<const TPlannedFile> files);
  // A directory that files go to is no file, and neither are those above it.
  void FindFilesAmongDirectories(std::span<const TPlannedFile> files);

  std::vector<std::string> Problems;

private:
  std::string Key(const std::string& path) const {
    return FIgnoresCase ? deployment::UpperCase(path) : path;
  }
  void Refuse(const TPlannedFile& file, const std::string& reason) {
    Problems.push_back("\"" + file.File.LocalName + "\": it lands on " + file.RemoteFile() +
                       reason);
  }

  const bool FIgnoresCase;
  TFilesByPath FByPath;
};

void TCollisions::FindSharedPlaces(std::span<const TPlannedFile> files) {
  for (const TPlannedFile& file : files) {
    if (file.Target.Name.empty())
      continue;
    const auto [entry, isNew] = FByPath.emplace(Key(file.RemoteFile()), &file);
    if (!isNew)
      Refuse(file, ", and so does \"" + entry->second->File.LocalName + "\"");
  }
}

void TCollisions::FindFilesAmongDirectories(std::span<const TPlannedFile> files) {
  std::unordered_set<std::string> looked;
  for (const TPlannedFile& file : files) {
    std::string directory = Key(file.Target.Directory);
    while (!file.Target.Name.empty() && directory.size() > 1 && looked.insert(directory).second) {
      if (const auto found = FByPath.find(directory); found != FByPath.end())
        Refuse(*found->second, ", which is a directory for \"" + file.File.LocalName + "\"");
      directory.resize(directory.find_last_of('/'));
    }
  }
}

} // namespace

std::vector<std::string> FindCollisions(std::span<const TPlannedFile> files, bool ignoresCase) {
  TCollisions collisions(ignoresCase);
  collisions.FindSharedPlaces(files);
  collisions.FindFilesAmongDirectories(files);
  return std::move(collisions.Problems);
}

} // namespace workbench
