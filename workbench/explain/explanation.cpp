#include "workbench/explain/explanation.h"

#include "package/common/case_fold.h"
#include "package/common/class_names.h"
#include "package/common/path_text.h"
#include "package/host/api/platformapi.h"
#include "package/host/api/platforms.h"
#include "workbench/explain/build_reasons.h"
#include "workbench/explain/reason_text.h"
#include "workbench/files/machine_path.h"
#include "workbench/text/quoted_text.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <system_error>

namespace workbench {
namespace {

using deployment::IProjectDeploymentFile;
using deployment::SameFileName;
using deployment::SameText;
using deployment::TReconcileReason;

// Keeps what the steps tell.
class TJournal final : public deployment::IReconcileJournal {
public:
  explicit TJournal(std::vector<TReconcileReason>& reasons) : FReasons(reasons) {}
  void Record(const TReconcileReason& reason) override { FReasons.push_back(reason); }

private:
  std::vector<TReconcileReason>& FReasons;
};

bool IsAbout(const TReconcileReason& reason, const std::string& name) {
  return (!reason.LocalName.empty() && SameFileName(reason.LocalName, name)) ||
         SameText(reason.ClassName, name) ||
         (reason.Source == deployment::TReasonSource::Option &&
          SameFileName(reason.SourceValue, name));
}

// A name without a directory may be meant for any directory.
bool HasFileName(const TReconcileReason& reason, const std::string& name) {
  return !reason.LocalName.empty() &&
         SameFileName(deployment::FileNamePart(reason.LocalName), name);
}

// A step that did not run at all says something about every file that is not in the list; that it
// works for other platforms only says nothing.
bool IsGate(const TReconcileReason& reason) {
  return reason.ClassName.empty() && reason.LocalName.empty() &&
         reason.Cause != deployment::TReasonCause::WrongPlatform;
}

template <class TMatches>
std::vector<TReconcileReason> Select(const std::vector<TReconcileReason>& reasons,
                                     TMatches matches) {
  std::vector<TReconcileReason> selected;
  std::copy_if(reasons.begin(), reasons.end(), std::back_inserter(selected), matches);
  return selected;
}

std::vector<TReconcileReason> DecisionsOn(const std::vector<TReconcileReason>& reasons,
                                          const std::string& name) {
  auto selected =
      Select(reasons, [&](const TReconcileReason& reason) { return IsAbout(reason, name); });
  if (selected.empty())
    selected =
        Select(reasons, [&](const TReconcileReason& reason) { return HasFileName(reason, name); });
  return selected;
}

bool IsOf(const TReconcileReason& reason, const IProjectDeploymentFile& entry) {
  return reason.LocalName == entry.GetLocalName() &&
         SameText(reason.ClassName, entry.GetDeploymentClass());
}

bool IsMeant(std::string_view localName, std::string_view className,
             const TExplanation& explanation) {
  if (SameFileName(localName, explanation.Name) || SameText(className, explanation.Name))
    return true;
  return std::ranges::any_of(explanation.Journal, [&](const TReconcileReason& reason) {
    return !reason.LocalName.empty() && SameFileName(reason.LocalName, localName);
  });
}

std::string_view ConfigurationOf(const IProjectDeploymentFile& file) {
  return file.GetConfiguration().empty() ? deployment::BaseConfiguration
                                         : std::string_view(file.GetConfiguration());
}

// Does one configuration inherit from the other?
bool Inherits(deployment::ICustomProject& project, std::string_view heir, std::string_view from) {
  auto* options = project.GetOptionsConfigurations();
  if (!options)
    return false;
  for (const auto* configuration : options->GetConfigurations()) {
    if (!SameText(configuration->GetName(), heir))
      continue;
    while (configuration && !SameText(configuration->GetName(), from))
      configuration = configuration->GetParent();
    return configuration != nullptr;
  }
  return false;
}

std::string KeyOf(const TSavedEntry& entry) {
  std::string name = entry.LocalName;
  std::replace(name.begin(), name.end(), '/', '\\');
  return deployment::UpperCase(name + '\n' + entry.ClassName + '\n' + entry.Configuration);
}

TSavedEntry SavedNamesOf(const IProjectDeploymentFile& file) {
  return {file.GetLocalName(), file.GetDeploymentClass(), std::string(ConfigurationOf(file))};
}

} // namespace

TExplainer::TExplainer(TSession& session, TOpenProject& project,
                       const deployment::TDeploymentTarget& target)
    : FSession(session), FProject(project), FDeployment(project.Deployment()), FTarget(target),
      FEntries(project.Project(), target) {
  TakeSaved();
  if (IsNoTarget())
    return;
  TJournal journal(FJournal);
  FResult = FDeployment.Reconcile(FTarget.Configuration, FTarget.Platform,
                                  /*reconcileInternally=*/false, journal);
}

// Nothing is built for these two, so no step runs for them.
bool TExplainer::IsNoTarget() const {
  return FTarget.Platform == deployment::sAllPlatforms ||
         SameText(FTarget.Configuration, deployment::BaseConfiguration);
}

void TExplainer::TakeSaved() {
  for (const auto& file : FDeployment.GetFiles()) {
    if (!FEntries.IsListed(*file))
      continue;
    FSaved.push_back(SavedNamesOf(*file));
    FSavedKeys.insert(KeyOf(FSaved.back()));
  }
}

TExplanation TExplainer::Explain(const std::string& name) {
  TExplanation explanation;
  explanation.Name = name;
  explanation.Journal = DecisionsOn(FJournal, name);
  FindEntries(explanation);
  FindLeaving(explanation);
  if (explanation.Entries.empty())
    ExplainAbsence(explanation);
  return explanation;
}

void TExplainer::FindEntries(TExplanation& explanation) {
  for (const auto& file : FDeployment.GetFiles()) {
    if (!IsMeant(file->GetLocalName(), file->GetDeploymentClass(), explanation))
      continue;
    if (FEntries.IsListed(*file))
      explanation.Entries.push_back(ExplainEntry(file, explanation));
    else
      explanation.Elsewhere.push_back(file);
  }
}

void TExplainer::FindLeaving(TExplanation& explanation) const {
  std::unordered_set<std::string> present;
  for (const TExplainedEntry& entry : explanation.Entries)
    present.insert(KeyOf(SavedNamesOf(*entry.File)));
  for (const TSavedEntry& saved : FSaved) {
    if (IsMeant(saved.LocalName, saved.ClassName, explanation) && !present.contains(KeyOf(saved)))
      explanation.Leaving.push_back(saved);
  }
}

TExplainedEntry TExplainer::ExplainEntry(const std::shared_ptr<IProjectDeploymentFile>& file,
                                         const TExplanation& explanation) {
  TExplainedEntry entry;
  entry.File = file;
  entry.IsSaved = FSavedKeys.contains(KeyOf(SavedNamesOf(*file)));
  entry.IsDeployed = FEntries.IsDeployed(*file);
  AddLandings(*file, entry);
  std::error_code ignored;
  entry.IsThere = std::filesystem::exists(entry.LocalFile, ignored);
  AddReasons(*file, explanation, entry);
  return entry;
}

void TExplainer::AddReasons(const IProjectDeploymentFile& file, const TExplanation& explanation,
                            TExplainedEntry& entry) const {
  const auto add = [&](std::string sentence) { entry.Reasons.push_back(std::move(sentence)); };
  for (const TReconcileReason& reason : explanation.Journal) {
    if (IsOf(reason, file))
      add(ReasonSentence(reason));
  }
  for (std::string& sentence : BuildReasons(FProject, file))
    add(std::move(sentence));
  if (entry.Reasons.empty())
    add(WithoutReason(file));
  if (!SameText(ConfigurationOf(file), FTarget.Configuration))
    add(OfConfiguration(file));
  if (FTarget.Platform != deployment::sAllPlatforms && !file.GetEnabled(FTarget.Platform))
    add("it is switched off for " + FTarget.Platform + ", so a deploy leaves it out");
  if (!file.GetCondition().empty())
    add("builds take it under the condition " + file.GetCondition());
  if (!entry.IsThere)
    add("there is no such file now: " + entry.LocalFile);
}

// Only the class of users' files says who put an entry there.
std::string TExplainer::WithoutReason(const IProjectDeploymentFile& file) const {
  if (file.GetDeploymentClass() == deployment::class_names::File)
    return "it was added by hand";
  if (FTarget.Platform == deployment::sAllPlatforms)
    return "a reconcile has nothing to say about all platforms at once; ask for one of them";
  if (IsNoTarget())
    return "no step of a reconcile works for \"Base\": what stands there was put there";
  if (FResult == deployment::TReconcileResult::CannotReconcile)
    return "the project cannot be reconciled here, so the list is what was saved";
  return SameText(ConfigurationOf(file), FTarget.Configuration)
             ? "no step of a reconcile asks for it any more; what put it there leaves it in"
             : "no step of a reconcile for this target asks for it";
}

std::string TExplainer::OfConfiguration(const IProjectDeploymentFile& file) const {
  const std::string own = Quoted(ConfigurationOf(file));
  if (SameText(ConfigurationOf(file), deployment::BaseConfiguration))
    return "it is an entry of " + own + ", which every configuration inherits from";
  return Inherits(FProject.Project(), FTarget.Configuration, ConfigurationOf(file))
             ? "it is an entry of " + own + ", which " + Quoted(FTarget.Configuration) +
                   " inherits from"
             : "it is an entry of " + own + ", which inherits from " +
                   Quoted(FTarget.Configuration) + ": it is shown here and deployed there";
}

const deployment::TEntryPaths& TExplainer::PathsOf(const std::string& platform) {
  for (const auto& [known, paths] : FPaths) {
    if (known == platform)
      return paths;
  }
  FPaths.emplace_back(platform, FSession.PathsOf(FProject, {FTarget.Configuration, platform}));
  return FPaths.back().second;
}

void TExplainer::AddLandings(const IProjectDeploymentFile& file, TExplainedEntry& entry) {
  std::vector<std::string> platforms{FTarget.Platform};
  if (FTarget.Platform == deployment::sAllPlatforms)
    platforms = file.GetPlatforms();
  for (const std::string& platform : platforms) {
    const deployment::TEntryPaths& paths = PathsOf(platform);
    if (entry.LocalFile.empty())
      entry.LocalFile = ToMachinePath(paths.LocalFile(file)).string();
    entry.Landings.emplace_back(platform, deployment::CanonicalizePath(paths.RemoteFile(file)));
  }
}

void TExplainer::ExplainAbsence(TExplanation& explanation) const {
  const auto add = [&](std::string sentence) {
    explanation.Reasons.push_back(std::move(sentence));
  };
  for (const TReconcileReason& reason : explanation.Journal) {
    const bool isClear =
        reason.LocalName.empty() || SameFileName(reason.LocalName, explanation.Name);
    add(ReasonSentence(reason) + (isClear ? "" : " (" + reason.LocalName + ")"));
  }
  if (!explanation.Journal.empty())
    return;
  if (FTarget.Platform == deployment::sAllPlatforms)
    return add("no platform has it; \"deploymgr add -p all\" puts it on the list of every one");
  if (IsNoTarget())
    return add(
        "no step of a reconcile works for \"Base\"; \"deploymgr add -c Base\" puts it on the "
        "list of every configuration");
  if (FResult == deployment::TReconcileResult::CannotReconcile)
    add("the project cannot be reconciled here");
  for (const TReconcileReason& reason : Select(FJournal, IsGate))
    add(ReasonSentence(reason));
  add("no step of a reconcile asks for it; \"deploymgr add\" puts it on the list");
}

} // namespace workbench
