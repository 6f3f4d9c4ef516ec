#include "workbench/deploy/plan/plan_check.h"

#include "workbench/deploy/plan/left_overs.h"
#include "workbench/deploy/plan/link_texts.h"
#include "workbench/deploy/record/record_place.h"
#include "workbench/remote/target/file_times.h"

#include <algorithm>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unordered_map>

namespace workbench {
namespace {

std::string LocalProblem(const TPlannedFile& file, const std::atomic<int>* cancelled) {
  struct stat status = {};
  const bool isThere = ::stat(file.File.LocalFile.c_str(), &status) == 0;
  const std::string name = "the local file " + file.File.LocalFile.string();
  if (file.Local.Hash.empty())
    return isThere && file.State == TFileState::MissingHere ? name + " was missing and is there now"
                                                            : std::string();
  if (!isThere)
    return name + " is missing";
  std::error_code ignored;
  if (!file.Link.empty())
    return std::filesystem::is_symlink(file.File.LocalFile, ignored) ? "" : name + " is no link";
  if (RightsFor(status.st_mode, file.File.Executable) != file.Mode)
    return name + " has other rights";
  if (static_cast<std::uint64_t>(status.st_size) != file.Local.Size ||
      HashHere(file.File.LocalFile, cancelled) != file.Local.Hash)
    return name + " has another content";
  return {};
}

// Compares the files of a plan with what stands on the target.
class TTargetCheck {
public:
  TTargetCheck(IRemoteConnection& connection, const TPlaceRules& rules, TDeployPlan& plan)
      : FConnection(connection), FRules(rules), FPlan(plan) {}

  void CheckDirectories();
  void CheckLinksHere();
  void CheckFiles();
  void CheckOwed(const TTargetRecord& record);
  std::vector<std::string> Problems;

private:
  void CheckPlace(TPlannedFile& file, const TRemoteDirectory& directory);
  std::string StatusProblem(const TPlannedFile& file, const TRemoteStatus& now);
  void CheckHashes(const std::vector<std::size_t>& asked);
  void CheckLinksThere(const std::vector<std::size_t>& asked);

  IRemoteConnection& FConnection;
  const TPlaceRules& FRules;
  TDeployPlan& FPlan;
};

void TTargetCheck::CheckDirectories() {
  std::vector<std::string> directories;
  std::unordered_map<std::string, std::size_t> indexOf;
  for (const TPlannedFile& file : FPlan.Files) {
    if (indexOf.emplace(file.Target.Directory, directories.size()).second)
      directories.push_back(file.Target.Directory.empty() ? "/" : file.Target.Directory);
  }
  const std::vector<TRemoteDirectory> found = FConnection.Resolve(directories);
  for (TPlannedFile& file : FPlan.Files)
    CheckPlace(file, found[indexOf.at(file.Target.Directory)]);
}

void TTargetCheck::CheckPlace(TPlannedFile& file, const TRemoteDirectory& directory) {
  const std::string path = directory.Path == "/" ? std::string() : directory.Path;
  std::string problem = DirectoryProblem(directory, FRules);
  if (problem.empty() && path != file.Target.Directory)
    problem = "its directory is another one now";
  if (problem.empty())
    problem = NameProblem(file.Target.Name, FRules.Names);
  const std::string root = FConnection.Root() + "/";
  const std::string whole = file.RemoteFile();
  file.RecordPath = whole.starts_with(root) ? whole.substr(root.size()) : std::string();
  if (problem.empty() && IsRecordPath(file.RecordPath))
    problem = "deploys keep there what they remember";
  if (!problem.empty())
    Problems.push_back(whole + ": " + problem);
}

// What a link is to store follows from where the others of the plan go.
void TTargetCheck::CheckLinksHere() {
  const bool hasLinks =
      std::ranges::any_of(FPlan.Files, [](const TPlannedFile& file) { return !file.Link.empty(); });
  if (!hasLinks)
    return;
  const std::vector<std::string> texts = LinkTextsOf(FPlan);
  std::error_code ignored;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const TPlannedFile& file = FPlan.Files[i];
    if (!file.Link.empty() && texts[i] != file.Link &&
        std::filesystem::is_symlink(file.File.LocalFile, ignored))
      Problems.push_back("the local file " + file.File.LocalFile.string() + " leads elsewhere");
  }
}

void TTargetCheck::CheckFiles() {
  std::vector<TRemoteName> names;
  names.reserve(FPlan.Files.size());
  for (const TPlannedFile& file : FPlan.Files)
    names.push_back(file.Target);
  const std::vector<TRemoteStatus> answers = FConnection.Examine(names);
  std::vector<std::size_t> asked;
  std::vector<std::size_t> links;
  for (std::size_t i = 0; i < answers.size(); ++i) {
    TPlannedFile& file = FPlan.Files[i];
    const std::string problem = StatusProblem(file, answers[i]);
    if (problem == "?")
      asked.push_back(i);
    else if (!problem.empty())
      Problems.push_back(file.RemoteFile() + problem);
    else if (answers[i].Kind == TRemoteKind::Link && !file.HashThere.empty())
      links.push_back(i);
    file.There = answers[i];
  }
  CheckHashes(asked);
  CheckLinksThere(links);
}

// "?" where its content has to say.
std::string TTargetCheck::StatusProblem(const TPlannedFile& file, const TRemoteStatus& now) {
  const TRemoteStatus& then = file.There;
  if (!now.Problem.empty())
    return " cannot be examined: " + now.Problem;
  if (then.Kind == TRemoteKind::None && now.Kind != TRemoteKind::None)
    return " was not on the target and is there now";
  if (then.Kind != TRemoteKind::None && now.Kind == TRemoteKind::None)
    return " was on the target and is not there now";
  if (now.Kind != then.Kind)
    return " is something else on the target now";
  if (now.Kind != TRemoteKind::File)
    return {};
  if (FConnection.KeepsModes() && now.Mode != then.Mode)
    return " has other rights on the target now";
  const auto resolution = FConnection.TimeResolution();
  if (now.Size != then.Size)
    return " has another content on the target now";
  if (Truncated(now.Modified, resolution) == Truncated(then.Modified, resolution))
    return {};
  return file.HashThere.empty() ? " was changed on the target" : "?";
}

void TTargetCheck::CheckHashes(const std::vector<std::size_t>& asked) {
  std::vector<TRemoteName> names;
  names.reserve(asked.size());
  for (const std::size_t i : asked)
    names.push_back(FPlan.Files[i].Target);
  if (names.empty())
    return;
  const std::vector<std::string> hashes = FConnection.Hashes(names);
  for (std::size_t i = 0; i < asked.size(); ++i) {
    const TPlannedFile& file = FPlan.Files[asked[i]];
    if ((hashes[i].empty() ? UnreadableThere : hashes[i]) != file.HashThere)
      Problems.push_back(file.RemoteFile() + " has another content on the target now");
  }
}

void TTargetCheck::CheckLinksThere(const std::vector<std::size_t>& asked) {
  if (asked.empty())
    return;
  std::vector<TRemoteName> names;
  names.reserve(asked.size());
  for (const std::size_t i : asked)
    names.push_back(FPlan.Files[i].Target);
  const std::vector<TRemoteLink> links = FConnection.ReadLinks(names);
  for (std::size_t i = 0; i < asked.size(); ++i) {
    const TPlannedFile& file = FPlan.Files[asked[i]];
    if (LinkHash(links[i].Text) != file.HashThere)
      Problems.push_back(file.RemoteFile() + " leads elsewhere on the target now");
  }
}

// What is owed runs once: a plan that would run it again does not fit any more.
void TTargetCheck::CheckOwed(const TTargetRecord& record) {
  for (const TPlannedFile& file : FPlan.Files) {
    if (file.Action == TDeployAction::Copied || file.Steps.empty())
      continue;
    const auto owed = record.Owed.find(file.RecordPath);
    if (owed == record.Owed.end() || OwedSteps(file.Steps, owed->second) != file.Steps)
      Problems.push_back(file.RemoteFile() + ": other commands are still to be run than were then");
  }
  if (!FPlan.AfterDeploy.empty() && !ChangesFiles(FPlan) && record.OwedAfterDeploy.empty())
    Problems.push_back("the command \"" + FPlan.AfterDeploy + "\" is not to be run any more");
}

} // namespace

std::vector<std::string> CheckLocalFiles(const TDeployPlan& plan,
                                         const std::atomic<int>* cancelled) {
  std::vector<std::string> problems;
  for (const TPlannedFile& file : plan.Files) {
    std::string problem = LocalProblem(file, cancelled);
    if (!problem.empty())
      problems.push_back(std::move(problem));
  }
  return problems;
}

std::vector<std::string> CheckTargetFiles(IRemoteConnection& connection,
                                          const TTargetRecord& record, const TPlaceRules& rules,
                                          TDeployPlan& plan) {
  TTargetCheck check(connection, rules, plan);
  check.CheckDirectories();
  if (check.Problems.empty()) {
    check.CheckLinksHere();
    check.CheckFiles();
    check.CheckOwed(record);
  }
  return std::move(check.Problems);
}

} // namespace workbench
