#include "workbench/deploy/plan/outside_sources.h"

#include "workbench/deploy/plan/source_roots.h"

#include <unordered_set>

namespace workbench {

std::vector<std::string> FindOutsideSources(std::span<const TPlannedFile> files,
                                            const std::vector<std::filesystem::path>& roots) {
  std::vector<std::string> outside;
  TSourceRoots known(roots);
  std::unordered_set<std::string> taken;
  for (const TPlannedFile& file : files) {
    const bool isRead = file.File.Operation != deployment::TDeployOperation::Remove &&
                        file.State != TFileState::MissingHere && file.Link.empty();
    const std::string path = file.File.LocalFile.string();
    if (isRead && !known.Holds(file.File.LocalFile) && taken.insert(path).second)
      outside.push_back(path);
  }
  return outside;
}

std::vector<std::string> OutsideOf(const std::vector<TDeployFile>& files,
                                   const std::vector<std::filesystem::path>& roots) {
  TSourceRoots held(roots);
  std::vector<std::string> outside;
  std::unordered_set<std::string> known;
  for (const TDeployFile& file : files) {
    std::error_code error;
    if (file.Operation != deployment::TDeployOperation::Remove &&
        std::filesystem::exists(file.LocalFile, error) && !held.Holds(file.LocalFile) &&
        known.insert(file.LocalFile.string()).second)
      outside.push_back(file.LocalFile.string());
  }
  return outside;
}

} // namespace workbench
