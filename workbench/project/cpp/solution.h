// Solutions: which projects belong together, and which of their targets one build takes.
#pragma once

#include <cstddef>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace workbench {

/// A project that a solution names.
struct TSolutionProject {
  std::string Name;
  std::string StoredPath;     ///< as the solution writes it
  std::filesystem::path File; ///< full path on this machine
  std::string Id;             ///< upper case, with its braces
  unsigned Line = 0;
};

/// A configuration and a platform as projects or solutions name them.
struct TSolutionTarget {
  std::string Configuration;
  std::string Platform;

  auto operator<=>(const TSolutionTarget&) const = default;
};

/// What a build of a solution does with a project.
struct TProjectBuild {
  TSolutionTarget Target; ///< as the project names it
  bool IsBuilt = true;
};

/// True for a name such as "All.sln".
bool IsSolutionName(const std::filesystem::path& file);

/// One solution file.
class TSolution {
public:
  /// Throws TInputError with the line of what is no solution.
  static TSolution Read(const std::filesystem::path& file);
  /// The same from a text; `file` is absolute.
  static TSolution Parse(std::string_view text, const std::filesystem::path& file);

  const std::filesystem::path& File() const { return FFile; }
  /// In the order of the file, folders of the solution left out.
  const std::vector<TSolutionProject>& Projects() const { return FProjects; }
  /// Compared ignoring case; null when the solution does not name the file.
  const TSolutionProject* FindProject(const std::filesystem::path& file) const;
  /// The target of another project in the builds of the solution that take `target` of `project`;
  /// nothing when no build does, or when the builds disagree.
  std::optional<TSolutionTarget> TargetOf(const TSolutionProject& other,
                                          const TSolutionProject& project,
                                          const TSolutionTarget& target) const;
  /// What the solution's own build of that target, compared ignoring case, does with a project;
  /// nothing when the solution does not say.
  std::optional<TProjectBuild> BuildOf(const TSolutionProject& project,
                                       const TSolutionTarget& target) const;
  /// Throws TInputError, with the line, when projects wait for each other in a ring or folders lie
  /// in each other: such a solution has no order to be built in.
  void CheckOrder() const;

private:
  class TReader;
  using TTargets = std::map<std::string, TSolutionTarget>; // by the solution's own target

  // One waits for the other, or lies in it.
  struct TLink {
    std::string From; // ids
    std::string To;
    unsigned Line = 0;
  };

  void CheckRing(const std::vector<TLink>& links, std::string_view what) const;

  std::filesystem::path FFile;
  std::vector<TSolutionProject> FProjects;
  std::map<std::string, std::size_t> FByFile;   // full path in upper case
  std::map<std::string, TTargets> FTargetsById; // of projects
  std::map<std::string, TTargets> FBuildsById;  // those of them that are built
  std::map<std::string, std::string> FNameById; // of projects and folders
  std::vector<TLink> FDependencies;
  std::vector<TLink> FNesting;
};

/// The nearest solution upwards that names a project.
struct TFoundSolution {
  std::shared_ptr<const TSolution> Solution; ///< null: none does
  std::vector<std::string> Others; ///< names of further solutions beside it that name it too
};

/// Looks in the project's directory and those above it. Solutions that cannot be read are passed
/// over. Of several in one directory the first by name is taken.
TFoundSolution FindSolutionOf(const std::filesystem::path& project);

} // namespace workbench
