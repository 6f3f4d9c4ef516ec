// The DLLs of the projects that a C++ project refers to.
#pragma once

#include "workbench/project/cpp/cpp_dialect.h"

#include <set>

namespace workbench {

/// Walks through the references of one project.
class TReferencedLibraries {
public:
  /// All must outlive the object. Paths are made relative to the directory of `project`.
  TReferencedLibraries(TCppDialect& dialect, std::filesystem::path project, TEvaluationNotes& notes)
      : FDialect(dialect), FProject(std::move(project)), FNotes(notes) {}

  /// Stored paths seen from the project, each once, nearest references first.
  std::vector<std::string> Collect(const TProjectSettings& settings, const TProjectTarget& target);

private:
  void Walk(const TProjectSettings& settings, const TProjectTarget& target, unsigned depth);
  void Follow(const TProjectSettings& settings, const TProjectTarget& target,
              const TProjectItem& reference, unsigned depth);
  std::optional<TProjectTarget> TargetIn(const TProjectSettings& settings,
                                         const TProjectTarget& target,
                                         const TProjectSettings& referenced);
  void Note(const TProjectItem& reference, const std::string& text);

  TCppDialect& FDialect;
  const std::filesystem::path FProject;
  TEvaluationNotes& FNotes;
  std::set<std::pair<std::filesystem::path, TProjectTarget>> FSeen;
  std::vector<std::string> FLibraries;
};

} // namespace workbench
