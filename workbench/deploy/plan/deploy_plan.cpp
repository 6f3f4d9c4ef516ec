#include "workbench/deploy/plan/deploy_plan.h"

#include "package/common/case_fold.h"
#include "workbench/deploy/plan/left_overs.h"
#include "workbench/deploy/plan/link_texts.h"
#include "workbench/deploy/plan/local_files.h"
#include "workbench/deploy/plan/outside_sources.h"
#include "workbench/deploy/plan/plan_collisions.h"
#include "workbench/deploy/record/record_place.h"
#include "workbench/remote/target/file_times.h"
#include "workbench/remote/target/remote_path.h"

#include <algorithm>
#include <filesystem>
#include <future>
#include <system_error>
#include <unordered_map>
#include <utility>

namespace workbench {
namespace {

using deployment::TDeployOperation;

constexpr std::size_t LongestPath = 4095; // bytes
constexpr unsigned LinkRights = 0777;
constexpr std::size_t ManyFiles = 1000;

class TPlanner {
public:
  TPlanner(std::vector<TDeployFile> files, const TPlanOptions& options) : FOptions(options) {
    FPlan.Commands = CommandsOf(files, options.Places, options.AfterDeploy);
    FPlan.Files.reserve(files.size());
    for (TDeployFile& file : files)
      FPlan.Files.push_back({.File = std::move(file)});
  }

  TDeployPlan Make(const std::function<IRemoteConnection&()>& connect,
                   const std::function<const TTargetRecord&()>& readRecord) {
    FindTargets();
    ExamineLocalFiles();
    const std::vector<std::size_t> outside = FindOutsideFiles(FPlan.Files, FOptions.SourceRoots);
    FConnection = &connect();
    ResolveDirectories();
    const bool keepsLinks = FOptions.KeepLinks && FConnection->KnowsLinks();
    std::future<std::vector<TRemoteStatus>> examined = BeginToExamine();
    if (keepsLinks)
      FindLinks();
    FPlan.Outside = PathsToRead(FPlan.Files, outside);
    for (std::string& collision : FindCollisions(FPlan.Files, FOptions.Places.Names.IgnoresCase))
      FPlan.Problems.push_back(std::move(collision));
    const bool mayGoOn = FPlan.Problems.empty();
    const std::vector<TRemoteStatus> remote =
        mayGoOn ? examined.get() : std::vector<TRemoteStatus>();
    TakeRecord(readRecord());
    if (mayGoOn) {
      CompareWithTarget(remote);
      FindLeftOvers(*FConnection, *FRecord, FOptions, FPlan);
      ApplyChoices(FOptions.Choices, FPlan);
      PlanAfterDeploy();
    }
    return std::move(FPlan);
  }

private:
  void Refuse(const TPlannedFile& file, const std::string& reason) {
    FPlan.Problems.push_back("\"" + file.File.LocalName + "\": " + reason);
  }

  void FindTargets();
  void FindTarget(TPlannedFile& file);
  void ResolveDirectories();
  void FindLinks();
  void CheckRemoval(const TPlannedFile& file);
  std::string Key(const std::string& path) const {
    return FOptions.Places.Names.IgnoresCase ? deployment::UpperCase(path) : path;
  }
  void ExamineLocalFiles();
  void PlanAfterDeploy();
  void TakeRecord(const TTargetRecord& record);
  void CompareWithTarget(const std::vector<TRemoteStatus>& remote);
  std::future<std::vector<TRemoteStatus>> BeginToExamine();
  std::vector<TRemoteStatus> ExamineTargets() const;
  void Decide(TPlannedFile& file, const TRemoteStatus& remote);
  void DecideStates(const std::vector<TRemoteStatus>& remote);
  void DecideByContent(std::vector<std::size_t> undecided, std::vector<TThreeSides>& sides);
  void TakeAction(TPlannedFile& file, const TRemoteStatus& remote);
  void Refuse(TPlannedFile& file);
  const TRecordedFile* RecordOf(const std::string& path) const;
  TComparing Comparing() const {
    return {.Resolution = FConnection->TimeResolution(), .TrustTimes = !FOptions.Checksum};
  }
  std::string RecordPathOf(const std::string& directory, const std::string& name) const;

  const TPlanOptions& FOptions;
  IRemoteConnection* FConnection = nullptr;
  const TTargetRecord* FRecord = nullptr;
  std::unordered_map<std::string, const TRecordedFile*> FRecorded; // by key, where case is ignored
  TDeployPlan FPlan;
  std::vector<std::string> FDirectories; // as named, each once
  std::vector<std::size_t> FDirectoryOf; // of each file, into FDirectories
  std::vector<TRemoteDirectory> FResolved;
};

void TPlanner::FindTargets() {
  std::unordered_map<std::string, std::size_t> known;
  for (std::size_t i = 0; i < FPlan.Files.size(); ++i) {
    FindTarget(FPlan.Files[i]);
    std::string& directory = FPlan.Files[i].Target.Directory;
    const auto [entry, isNew] = known.emplace(directory, FDirectories.size());
    if (isNew)
      FDirectories.push_back(directory);
    FDirectoryOf.push_back(entry->second);
  }
}

void TPlanner::FindTarget(TPlannedFile& file) {
  TTargetPlace place = FindTargetPlace(file.File.RemoteName, FOptions.Places);
  if (!place.Problem.empty())
    Refuse(file, place.Problem);
  file.Target = std::move(place.Name);
}

void TPlanner::ResolveDirectories() {
  FResolved = FOptions.Seen ? FOptions.Seen->Resolve(*FConnection, FDirectories)
                            : FConnection->Resolve(FDirectories);
  for (std::size_t i = 0; i < FPlan.Files.size(); ++i) {
    TPlannedFile& file = FPlan.Files[i];
    const TRemoteDirectory& directory = FResolved[FDirectoryOf[i]];
    if (file.Target.Name.empty())
      continue; // refused already
    if (const std::string problem = DirectoryProblem(directory, FOptions.Places); !problem.empty())
      Refuse(file, "it cannot go to \"" + file.File.RemoteName + "\": " + problem);
    file.Target.Directory = directory.Path == "/" ? "" : directory.Path;
    file.RecordPath = RecordPathOf(file.Target.Directory, file.Target.Name);
    if (IsRecordPath(file.RecordPath))
      Refuse(file, "its remote path \"" + file.File.RemoteName +
                       "\" leads to where deploys keep what they remember");
    if (file.File.Operation == TDeployOperation::Remove)
      CheckRemoval(file);
    if (file.RemoteFile().size() > LongestPath)
      Refuse(file,
             "its path on the target is longer than " + std::to_string(LongestPath) + " bytes");
  }
}

// Where links are not known, or one leads to what is not deployed, its content is.
void TPlanner::FindLinks() {
  if (std::ranges::none_of(FPlan.Files, &TPlannedFile::IsLinkHere))
    return;
  std::vector<std::string> texts = LinkTextsOf(FPlan);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (texts[i].empty())
      continue;
    TPlannedFile& file = FPlan.Files[i];
    file.Bytes = 0;
    file.Mode = LinkRights;
    file.Local = {.Size = texts[i].size(),
                  .Hash = LinkHash(texts[i]),
                  .IsPlainFile = false,
                  .Link = texts[i]};
    file.Link = std::move(texts[i]);
  }
}

// What another project brought to the target is not this one's to take away.
void TPlanner::CheckRemoval(const TPlannedFile& file) {
  const std::string root = ParseRemotePath(FOptions.RootName).Joined();
  if (file.RecordPath.empty() ||
      (!root.empty() && !Key(file.RecordPath).starts_with(Key(root) + "/")))
    Refuse(file, "it cannot be removed from \"" + file.File.RemoteName +
                     "\", which is not below the project's directory on the target");
}

void TPlanner::ExamineLocalFiles() {
  for (TPlannedFile& file : FPlan.Files) {
    if (file.File.Operation == TDeployOperation::Remove)
      continue;
    if (const std::string problem = ExamineLocalFile(file, FOptions); !problem.empty())
      Refuse(file, problem);
  }
}

// What a run before this one owes is run by whoever has a command for it.
void TPlanner::PlanAfterDeploy() {
  if (FOptions.AfterDeploy.empty())
    return;
  if (ChangesFiles(FPlan) || !FRecord->OwedAfterDeploy.empty())
    FPlan.AfterDeploy = FOptions.AfterDeploy;
}

void TPlanner::TakeRecord(const TTargetRecord& record) {
  FRecord = &record;
  if (!FOptions.Places.Names.IgnoresCase)
    return;
  for (const auto& [path, file] : record.Files)
    FRecorded.emplace(Key(path), &file);
}

void TPlanner::CompareWithTarget(const std::vector<TRemoteStatus>& remote) {
  for (std::size_t i = 0; i < FPlan.Files.size(); ++i) {
    FPlan.Files[i].There = remote[i];
    Decide(FPlan.Files[i], remote[i]);
  }
  if (!FPlan.Problems.empty())
    return;
  DecideStates(remote);
  for (std::size_t i = 0; i < FPlan.Files.size(); ++i) {
    TPlannedFile& file = FPlan.Files[i];
    if (file.State && file.State != TFileState::MissingHere)
      TakeAction(file, remote[i]);
    if (file.Action != TDeployAction::Copied)
      file.Bytes = 0;
  }
}

// Of many files the target is asked while this machine goes on; of few a thread costs more.
std::future<std::vector<TRemoteStatus>> TPlanner::BeginToExamine() {
  const bool isWorthIt = FPlan.Problems.empty() && FPlan.Files.size() >= ManyFiles;
  return std::async(isWorthIt ? std::launch::async : std::launch::deferred,
                    [this] { return ExamineTargets(); });
}

std::vector<TRemoteStatus> TPlanner::ExamineTargets() const {
  std::vector<TRemoteName> names;
  std::vector<std::size_t> asked;
  for (std::size_t i = 0; i < FPlan.Files.size(); ++i) {
    if (!FResolved[FDirectoryOf[i]].Exists)
      continue;
    names.push_back(FPlan.Files[i].Target);
    asked.push_back(i);
  }
  const std::vector<TRemoteStatus> answers =
      FOptions.Seen ? FOptions.Seen->Examine(*FConnection, names) : FConnection->Examine(names);
  std::vector<TRemoteStatus> all(FPlan.Files.size());
  for (std::size_t i = 0; i < asked.size(); ++i)
    all[asked[i]] = answers[i];
  return all;
}

// What needs no look at contents.
void TPlanner::Decide(TPlannedFile& file, const TRemoteStatus& remote) {
  if (!remote.Problem.empty()) {
    Refuse(file, file.RemoteFile() + " cannot be examined: " + remote.Problem);
  } else if (remote.Kind == TRemoteKind::Directory) {
    Refuse(file, "it lands on " + file.RemoteFile() + ", which is a directory on the target");
  } else if (file.File.Operation == TDeployOperation::Remove) {
    file.Action =
        remote.Kind == TRemoteKind::None ? TDeployAction::Unchanged : TDeployAction::Removed;
  }
}

// Size and time settle most; the others are decided by hashes, asked for at once.
void TPlanner::DecideStates(const std::vector<TRemoteStatus>& remote) {
  std::vector<TThreeSides> sides(FPlan.Files.size());
  std::vector<std::size_t> undecided;
  for (std::size_t i = 0; i < FPlan.Files.size(); ++i) {
    const TPlannedFile& file = FPlan.Files[i];
    if (file.File.Operation == TDeployOperation::Remove || file.State == TFileState::MissingHere)
      continue;
    sides[i] = {file.Local, ContentOf(RecordOf(file.RecordPath)), ContentOf(remote[i])};
    undecided.push_back(i);
  }
  std::vector<TRemoteName> names;
  std::vector<TContent*> there;
  names.reserve(sides.size());
  there.reserve(sides.size());
  for (std::size_t i = 0; i < sides.size(); ++i) {
    names.push_back(FPlan.Files[i].Target);
    there.push_back(sides[i].There ? &*sides[i].There : nullptr);
  }
  ReadLinksThere(*FConnection, names, remote, there);
  DecideByContent(std::move(undecided), sides);
  for (std::size_t i = 0; i < FPlan.Files.size(); ++i) {
    TPlannedFile& file = FPlan.Files[i];
    if (!sides[i].There)
      continue;
    file.HashThere =
        sides[i].There->Link.empty() ? sides[i].There->Hash : LinkHash(sides[i].There->Link);
    // Size and time said already whose content it is.
    if (file.HashThere.empty() && file.State == TFileState::Same)
      file.HashThere = file.Local.Hash;
    else if (file.HashThere.empty() && file.State == TFileState::Changed)
      file.HashThere = sides[i].Deployed->Hash;
  }
}

void TPlanner::DecideByContent(std::vector<std::size_t> undecided,
                               std::vector<TThreeSides>& sides) {
  while (!undecided.empty()) {
    std::vector<std::size_t> rest;
    std::vector<TRemoteName> names;
    std::vector<TContent*> contents;
    for (const std::size_t i : undecided) {
      TPlannedFile& file = FPlan.Files[i];
      const TStateDecision decision = DecideFileState(sides[i], Comparing());
      file.State = decision.State;
      file.ByHash = decision.ByHash;
      if (decision.IsSettled())
        continue;
      rest.push_back(i);
      if (decision.NeedsHashHere) {
        file.Local.Hash = HashHere(file.File.LocalFile, FOptions.Cancelled);
        sides[i].Here->Hash = file.Local.Hash;
      }
      if (decision.NeedsHashThere) {
        names.push_back(file.Target);
        contents.push_back(&*sides[i].There);
      }
    }
    ReadHashesThere(*FConnection, names, contents);
    undecided = std::move(rest);
  }
}

void TPlanner::TakeAction(TPlannedFile& file, const TRemoteStatus& remote) {
  const bool isThere = remote.Kind != TRemoteKind::None;
  const bool isSame = file.State == TFileState::Same;
  if (isThere && !file.File.Overwrite) {
    file.Action = TDeployAction::Kept;
  } else if ((file.State == TFileState::ChangedThere || file.State == TFileState::Conflict) &&
             !FOptions.OverwriteChanged) {
    Refuse(file);
  } else if (isSame && !FOptions.Force && !file.Link.empty()) {
    file.Action = TDeployAction::Unchanged; // a link has no time and no rights of its own
  } else if (isSame && !FOptions.Force) {
    const auto resolution = FConnection->TimeResolution();
    file.TimeDiffers =
        Truncated(file.Local.Time, resolution) != Truncated(remote.Modified, resolution);
    const bool modeDiffers = FConnection->KeepsModes() && remote.Mode != file.Mode;
    file.Action = modeDiffers ? TDeployAction::Mode : TDeployAction::Unchanged;
  }
  if (file.State == TFileState::Unrecorded && file.Action == TDeployAction::Copied &&
      file.Link.empty() && remote.Modified > file.Local.Time)
    FPlan.Warnings.push_back(file.RemoteFile() + " is newer than \"" + file.File.LocalName +
                             "\", which is copied over it");
  if (file.Action == TDeployAction::Copied) {
    file.Steps = AfterStepsOf(file.File);
  } else if (file.Action == TDeployAction::Unchanged || file.Action == TDeployAction::Mode) {
    const auto owed = FRecord->Owed.find(file.RecordPath);
    if (owed != FRecord->Owed.end())
      file.Steps = OwedSteps(AfterStepsOf(file.File), owed->second);
  }
}

void TPlanner::Refuse(TPlannedFile& file) {
  file.Action = TDeployAction::Refused;
  file.Reason = file.State == TFileState::Conflict
                    ? "it was changed on the target since it was deployed, and here, too"
                    : "it was changed on the target since it was deployed";
}

const TRecordedFile* TPlanner::RecordOf(const std::string& path) const {
  if (path.empty())
    return nullptr;
  if (FOptions.Places.Names.IgnoresCase) {
    const auto found = FRecorded.find(Key(path));
    return found == FRecorded.end() ? nullptr : found->second;
  }
  const auto found = FRecord->Files.find(path);
  return found == FRecord->Files.end() ? nullptr : &found->second;
}

std::string TPlanner::RecordPathOf(const std::string& directory, const std::string& name) const {
  const std::string root = FConnection->Root();
  const std::string path = directory + "/" + name;
  const bool isInside =
      Key(path).starts_with(Key(root)) && path.size() > root.size() + 1 && path[root.size()] == '/';
  return isInside ? path.substr(root.size() + 1) : std::string();
}

} // namespace

TDeployPlan MakeDeployPlan(std::vector<TDeployFile> files, const TPlanOptions& options,
                           const std::function<IRemoteConnection&()>& connect,
                           const std::function<const TTargetRecord&()>& readRecord) {
  return TPlanner(std::move(files), options).Make(connect, readRecord);
}

} // namespace workbench
