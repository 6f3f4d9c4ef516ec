// Gathers the files of install rules and refuses what no deployment can hold.
#pragma once

#include "workbench/project/build_import/install_plan.h"

#include <set>
#include <string_view>

namespace workbench {

/// What a rule says of all its files.
struct TInstallRule {
  std::string Configuration;
  std::string Destination; ///< a directory; relative to the install prefix, or absolute
  std::string Component;
  bool IsProgram = false;
  bool IsOptional = false;         ///< a file that is not there is left out
  bool IsExcluded = false;         ///< of an installation that names no components
  bool IsForAllComponents = false; ///< of every component
  deployment::TErrorPlace Place;
};

/// Collects for the components that are wanted.
class TInstallCollector {
public:
  /// `prefix` is the build's install prefix, empty when it is not known; no components: all.
  TInstallCollector(std::string tool, std::filesystem::path prefix,
                    std::vector<std::string> components);

  /// Adds a file that is installed under the name, which may have directories of its own. Throws
  /// TInputError, with the rule's place, for a destination outside the prefix and for names that a
  /// project cannot hold.
  void AddFile(const TInstallRule& rule, const std::filesystem::path& localFile,
               std::string_view name);
  /// Adds every file below the directory under the same names below `name` ("." for none). Those
  /// whose path below the directory `isLeftOut` says yes to are not added. Throws as AddFile.
  template <class TLeftOut>
  void AddTree(const TInstallRule& rule, const std::filesystem::path& directory,
               std::string_view name, TLeftOut isLeftOut);
  void AddTree(const TInstallRule& rule, const std::filesystem::path& directory,
               std::string_view name);
  /// Says that no entry is made from the rule, unless its component is not wanted.
  void LeaveOut(const TInstallRule& rule, const std::string& why);
  void Warn(const deployment::TErrorPlace& place, const std::string& text);

  /// Throws TInputError when a component that is wanted did not come up.
  TInstallPlan Take(std::vector<std::string> configurations);

private:
  bool Wants(const TInstallRule& rule);
  std::string DirectoryOf(const TInstallRule& rule, const std::filesystem::path& below) const;
  std::vector<std::filesystem::path> FilesBelow(const TInstallRule& rule,
                                                const std::filesystem::path& directory);

  TInstallPlan FPlan;
  std::filesystem::path FPrefix;
  std::vector<std::string> FComponents;
  std::set<std::string> FSeen; // components that rules name
};

template <class TLeftOut>
void TInstallCollector::AddTree(const TInstallRule& rule, const std::filesystem::path& directory,
                                std::string_view name, TLeftOut isLeftOut) {
  if (!Wants(rule))
    return;
  for (const std::filesystem::path& file : FilesBelow(rule, directory)) {
    const std::filesystem::path below = file.lexically_relative(directory);
    if (!isLeftOut(below))
      AddFile(rule, file, (std::filesystem::path(name) / below).generic_string());
  }
}

} // namespace workbench
