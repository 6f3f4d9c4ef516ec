#include "workbench/project/cpp/referenced_libraries.h"

#include "package/common/case_fold.h"
#include "workbench/files/machine_path.h"
#include "workbench/msbuild/values/project_paths.h"
#include "workbench/xml/short_text.h"

#include <algorithm>

namespace workbench {
namespace {

namespace fs = std::filesystem;

constexpr unsigned DeepestReference = 64;
constexpr std::size_t MostReferences = 2'000;

bool HasTarget(const TProjectSettings& settings, const TProjectTarget& target) {
  const TBuildConfiguration* configuration = settings.FindConfiguration(target.Configuration);
  if (!configuration)
    return false;
  const std::vector<std::string> platforms = configuration->GetPlatforms();
  return std::ranges::find(platforms, target.Platform) != platforms.end();
}

} // namespace

void TCppDialect::Forget() {
  FSolutions.clear();
  FReferences.clear();
}

const TProjectSettings* TCppDialect::Referenced(const fs::path& file, TEvaluationNotes& notes) {
  const auto [found, isNew] = FReferences.try_emplace(file);
  std::unique_ptr<TReference>& reference = found->second;
  if (isNew) {
    reference = std::make_unique<TReference>();
    try {
      reference->Document = FImports.Load(file);
      if (reference->Document)
        reference->Settings = std::make_unique<TProjectSettings>(
            reference->Document->DocumentElement(), file, FImports, FPlatforms,
            TProjectSurroundings{ProcessEnvironment(), FProperties, this});
      else
        reference->Trouble = "there is no such file";
    } catch (const deployment::TInputError& error) {
      reference->Trouble = error.what();
    }
  }
  if (!reference->Trouble.empty())
    notes.push_back({TNoteKind::MissingImport,
                     "the project that is referred to cannot be read: " + reference->Trouble,
                     {file.string(), 0}});
  return reference->Settings.get();
}

std::vector<std::string> TReferencedLibraries::Collect(const TProjectSettings& settings,
                                                       const TProjectTarget& target) {
  FSeen.emplace(settings.ProjectFile(), target);
  Walk(settings, target, 0);
  return std::move(FLibraries);
}

void TReferencedLibraries::Walk(const TProjectSettings& settings, const TProjectTarget& target,
                                unsigned depth) {
  for (const TProjectItem& item : settings.Items(target.Configuration, target.Platform)) {
    if (deployment::SameText(item.Type, "ProjectReference"))
      Follow(settings, target, item, depth);
  }
}

void TReferencedLibraries::Follow(const TProjectSettings& settings, const TProjectTarget& target,
                                  const TProjectItem& reference, unsigned depth) {
  if (reference.Unknown)
    return Note(reference, UnknownSentence(*reference.Unknown));
  if (IsForeignPath(reference.Include))
    return Note(reference, "it is not a file of this machine");
  if (depth >= DeepestReference || FSeen.size() >= MostReferences)
    return Note(reference, "the references go too far");
  const fs::path file = ResolvePath(reference.Include, settings.ProjectFile().parent_path());
  const TProjectSettings* referenced = FDialect.Referenced(file, FNotes);
  if (!referenced)
    return;
  const auto theirs = TargetIn(settings, target, *referenced);
  if (!theirs)
    return Note(reference, "it is not known which of its targets is built with " +
                               target.Configuration + ", " + target.Platform);
  if (!FSeen.emplace(file, *theirs).second)
    return;
  if (referenced->ApplicationType(theirs->Configuration, theirs->Platform) == "Library") {
    const fs::path output = referenced->OutputFileName(theirs->Configuration, theirs->Platform);
    if (!output.empty())
      FLibraries.push_back(ToStoredPath(output.lexically_relative(FProject.parent_path())));
    else
      Note(reference, referenced->NothingToDeploy(theirs->Configuration, theirs->Platform));
  }
  Walk(*referenced, *theirs, depth + 1);
}

// The target that the solution builds together with this one, else the one of the same names.
std::optional<TProjectTarget> TReferencedLibraries::TargetIn(const TProjectSettings& settings,
                                                             const TProjectTarget& target,
                                                             const TProjectSettings& referenced) {
  if (HasTarget(referenced, target))
    return target;
  const TFoundSolution& found = FDialect.SolutionOf(FProject);
  if (!found.Solution)
    return std::nullopt;
  const TSolutionProject* own = found.Solution->FindProject(settings.ProjectFile());
  const TSolutionProject* other = found.Solution->FindProject(referenced.ProjectFile());
  if (!own || !other)
    return std::nullopt;
  const auto built = found.Solution->TargetOf(
      *other, *own, {target.Configuration, PlatformToCpp(target.Platform)});
  if (!built)
    return std::nullopt;
  const TProjectTarget theirs{built->Configuration, PlatformFromCpp(built->Platform)};
  return HasTarget(referenced, theirs) ? std::optional(theirs) : std::nullopt;
}

void TReferencedLibraries::Note(const TProjectItem& reference, const std::string& text) {
  FNotes.push_back({TNoteKind::UnknownValue,
                    "nothing of the project \"" + ShortText(reference.Include) +
                        "\" is deployed with this one: " + text,
                    reference.Node->Place()});
}

} // namespace workbench
