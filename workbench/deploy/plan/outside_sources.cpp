#include "workbench/deploy/plan/outside_sources.h"

#include "workbench/deploy/plan/source_roots.h"

#include <unordered_set>

namespace workbench {

std::vector<std::size_t> FindOutsideFiles(std::span<const TPlannedFile> files,
                                          const std::vector<std::filesystem::path>& roots) {
  std::vector<std::size_t> outside;
  TSourceRoots known(roots);
  for (std::size_t i = 0; i < files.size(); ++i) {
    const TPlannedFile& file = files[i];
    const bool isRead = file.File.Operation != deployment::TDeployOperation::Remove &&
                        file.State != TFileState::MissingHere;
    if (isRead && !known.Holds(file.File.LocalFile, file.IsLinkHere))
      outside.push_back(i);
  }
  return outside;
}

std::vector<std::string> PathsToRead(std::span<const TPlannedFile> files,
                                     std::span<const std::size_t> outside) {
  std::vector<std::string> paths;
  std::unordered_set<std::string> taken;
  for (const std::size_t i : outside) {
    const std::string path = files[i].File.LocalFile.string();
    if (files[i].Link.empty() && taken.insert(path).second)
      paths.push_back(path);
  }
  return paths;
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
