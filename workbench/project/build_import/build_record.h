// What a project remembers of the build that its list came from: items of the project file that
// builds read past.
#pragma once

#include "package/common/errors.h"
#include "workbench/project/build_import/install_plan.h"
#include "workbench/project/labelled_items.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// Label of the group that holds the items.
inline constexpr std::string_view BuildItemsLabel = "BuildInstall";

/// An entry as the build asked for it when it was taken. Texts as the list stores them.
struct TTakenFile {
  std::string Configuration;
  std::string LocalName;
  std::string RemoteDir;
  std::string RemoteName;
  std::string Component;
  bool IsProgram = false;

  bool operator==(const TTakenFile&) const = default;
};

/// Everything that is remembered.
struct TBuildRecord {
  std::string Directory;               ///< of the build, as a stored path, seen from the project
  std::string Platform;                ///< that the build is for
  std::vector<std::string> Components; ///< that are taken; empty: all
  std::vector<TTakenFile> Files;
};

/// The record as items, and back. Throws TInputError, with the place, for items that say nothing of
/// a build.
std::vector<TLabelledItem> ItemsOf(const TBuildRecord& record);
TBuildRecord RecordFrom(const std::vector<TLabelledItem>& items,
                        const deployment::TErrorPlace& place);

/// The file or directory as a project in that directory stores it. Links on the way to it are
/// resolved, it itself is not.
std::string StoredFromProject(const std::filesystem::path& path,
                              const std::filesystem::path& projectDirectory);

/// The plan's files as entries of a project in that directory. A file that is installed twice is
/// taken once, since one file has one entry; that is said in a warning.
std::vector<TTakenFile> TakenFiles(const TInstallPlan& plan,
                                   const std::filesystem::path& projectDirectory,
                                   std::vector<TWarning>& warnings);

} // namespace workbench
