#include "workbench/deploy/deploy_plan.h"

#include "package/common/case_fold.h"
#include "workbench/files/file_descriptor.h"
#include "workbench/files/file_reader.h"
#include "workbench/remote/target/file_times.h"

#include <algorithm>
#include <array>
#include <sys/stat.h>
#include <unordered_map>
#include <utility>

namespace workbench {
namespace {

using deployment::TDeployOperation;

constexpr std::size_t LongestPath = 4095; // bytes

class TPlanner {
public:
  TPlanner(std::vector<TDeployFile> files, const TPlanOptions& options) : FOptions(options) {
    FPlan.Files.reserve(files.size());
    for (TDeployFile& file : files)
      FPlan.Files.push_back({.File = std::move(file)});
  }

  TDeployPlan Make(const std::function<IRemoteConnection&()>& connect) {
    FindTargets();
    ExamineLocalFiles();
    FConnection = &connect();
    ResolveDirectories();
    FindCollisions();
    CollectCommands();
    if (FPlan.Problems.empty())
      CompareWithTarget();
    return std::move(FPlan);
  }

private:
  void Refuse(const TPlannedFile& file, const std::string& reason) {
    FPlan.Problems.push_back("\"" + file.File.LocalName + "\": " + reason);
  }

  void FindTargets();
  void FindTarget(TPlannedFile& file);
  void ResolveDirectories();
  void FindCollisions();
  std::string Key(const std::string& path) const {
    return FOptions.Places.Names.IgnoresCase ? deployment::UpperCase(path) : path;
  }
  void ExamineLocalFiles();
  void ExamineLocalFile(TPlannedFile& file);
  void CollectCommands();
  void CompareWithTarget();
  void Decide(TPlannedFile& file, const TRemoteStatus& remote);
  void CompareContents();

  const TPlanOptions& FOptions;
  IRemoteConnection* FConnection = nullptr;
  TDeployPlan FPlan;
  std::vector<std::string> FDirectories; // as named, each once
  std::vector<std::size_t> FDirectoryOf; // of each file, into FDirectories
  std::vector<TRemoteDirectory> FResolved;
  std::vector<std::size_t> FToCompare; // files whose content decides
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
  FResolved = FConnection->Resolve(FDirectories);
  for (std::size_t i = 0; i < FPlan.Files.size(); ++i) {
    TPlannedFile& file = FPlan.Files[i];
    const TRemoteDirectory& directory = FResolved[FDirectoryOf[i]];
    if (file.Target.Name.empty())
      continue; // refused already
    if (const std::string problem = DirectoryProblem(directory, FOptions.Places); !problem.empty())
      Refuse(file, "it cannot go to \"" + file.File.RemoteName + "\": " + problem);
    file.Target.Directory = directory.Path == "/" ? "" : directory.Path;
    if (file.RemoteFile().size() > LongestPath)
      Refuse(file,
             "its path on the target is longer than " + std::to_string(LongestPath) + " bytes");
  }
}

void TPlanner::FindCollisions() {
  std::unordered_map<std::string, const TPlannedFile*> byPath;
  for (const TPlannedFile& file : FPlan.Files) {
    if (file.Target.Name.empty())
      continue;
    const auto [entry, isNew] = byPath.emplace(Key(file.RemoteFile()), &file);
    if (!isNew)
      Refuse(file, "it lands on " + file.RemoteFile() + ", and so does \"" +
                       entry->second->File.LocalName + "\"");
  }
  // A directory that files go to is no file, and neither are those above it.
  std::unordered_map<std::string, bool> looked;
  for (const TPlannedFile& file : FPlan.Files) {
    std::string directory = Key(file.Target.Directory);
    while (!file.Target.Name.empty() && directory.size() > 1 &&
           looked.emplace(directory, true).second) {
      if (const auto found = byPath.find(directory); found != byPath.end())
        Refuse(*found->second, "it lands on " + found->second->RemoteFile() +
                                   ", which is a directory for \"" + file.File.LocalName + "\"");
      directory.resize(directory.find_last_of('/'));
    }
  }
}

void TPlanner::ExamineLocalFiles() {
  for (TPlannedFile& file : FPlan.Files) {
    if (file.File.Operation != TDeployOperation::Remove)
      ExamineLocalFile(file);
  }
}

void TPlanner::ExamineLocalFile(TPlannedFile& file) {
  struct stat status = {};
  const bool isThere = ::stat(file.File.LocalFile.c_str(), &status) == 0;
  const int error = errno;
  if (isThere && S_ISREG(status.st_mode)) {
    file.Bytes = static_cast<std::uint64_t>(status.st_size);
    file.LocalTime = deployment::TFileTime(std::chrono::seconds(status.st_mtim.tv_sec) +
                                           std::chrono::nanoseconds(status.st_mtim.tv_nsec));
    return;
  }
  const std::string reason = isThere ? file.File.LocalFile.string() + " is " +
                                           std::string(KindOfFile(status.st_mode)) + ", not a file"
                                     : "the local file " + file.File.LocalFile.string() +
                                           (error == ENOENT || error == ENOTDIR
                                                ? std::string(" is missing")
                                                : " cannot be examined: " + SystemReason(error));
  if (file.File.Required) {
    Refuse(file, reason + ", and it is required");
  } else {
    const bool isMissing = !isThere && (error == ENOENT || error == ENOTDIR);
    file.Action =
        isMissing && FOptions.SkipMissing ? TDeployAction::Skipped : TDeployAction::Failed;
    file.Reason = reason;
  }
}

void TPlanner::CollectCommands() {
  for (const TPlannedFile& file : FPlan.Files) {
    for (const std::string& command : file.File.LocalCommands)
      FPlan.Commands.push_back("on this machine: " + command);
    if (file.File.Operation == TDeployOperation::Run ||
        file.File.Operation == TDeployOperation::RunAndRemove)
      FPlan.Commands.push_back("on the target: " + file.RemoteFile());
    for (const std::string& command : file.File.RemoteCommands)
      FPlan.Commands.push_back("on the target: " + command);
  }
}

void TPlanner::CompareWithTarget() {
  std::vector<TRemoteName> names;
  std::vector<std::size_t> asked;
  for (std::size_t i = 0; i < FPlan.Files.size(); ++i) {
    if (!FResolved[FDirectoryOf[i]].Exists)
      continue;
    names.push_back(FPlan.Files[i].Target);
    asked.push_back(i);
  }
  const std::vector<TRemoteStatus> answers = FConnection->Examine(names);
  std::vector<TRemoteStatus> all(FPlan.Files.size());
  for (std::size_t i = 0; i < asked.size(); ++i)
    all[asked[i]] = answers[i];
  for (std::size_t i = 0; i < FPlan.Files.size(); ++i) {
    Decide(FPlan.Files[i], all[i]);
    if (FOptions.Checksum && !FOptions.Force && FPlan.Files[i].Action == TDeployAction::Copied &&
        all[i].Kind == TRemoteKind::File && all[i].Size == FPlan.Files[i].Bytes &&
        (all[i].IsExecutable || !FPlan.Files[i].File.Executable))
      FToCompare.push_back(i);
  }
  CompareContents();
  for (TPlannedFile& file : FPlan.Files) {
    if (file.Action != TDeployAction::Copied)
      file.Bytes = 0;
  }
}

void TPlanner::Decide(TPlannedFile& file, const TRemoteStatus& remote) {
  if (!remote.Problem.empty()) {
    Refuse(file, file.RemoteFile() + " cannot be examined: " + remote.Problem);
    return;
  }
  if (remote.Kind == TRemoteKind::Directory) {
    Refuse(file, "it lands on " + file.RemoteFile() + ", which is a directory on the target");
    return;
  }
  const bool isThere = remote.Kind != TRemoteKind::None;
  if (file.File.Operation == TDeployOperation::Remove) {
    file.Action = isThere ? TDeployAction::Removed : TDeployAction::Unchanged;
    return;
  }
  if (file.Action != TDeployAction::Copied)
    return;
  if (isThere && !file.File.Overwrite) {
    file.Action = TDeployAction::Kept;
    return;
  }
  const auto resolution = FConnection->TimeResolution();
  file.TimeDiffers =
      Truncated(file.LocalTime, resolution) != Truncated(remote.Modified, resolution);
  const bool isSame = remote.Kind == TRemoteKind::File && remote.Size == file.Bytes &&
                      !file.TimeDiffers && (remote.IsExecutable || !file.File.Executable);
  if (isSame && !FOptions.Force && !FOptions.Checksum)
    file.Action = TDeployAction::Unchanged;
}

void TPlanner::CompareContents() {
  std::vector<TSendRequest> requests;
  requests.reserve(FToCompare.size());
  for (const std::size_t index : FToCompare)
    requests.push_back({FPlan.Files[index].File.LocalFile, FPlan.Files[index].Target, false});
  const std::vector<bool> same = FConnection->HaveSameContent(requests);
  for (std::size_t i = 0; i < same.size(); ++i) {
    if (same[i])
      FPlan.Files[FToCompare[i]].Action = TDeployAction::Unchanged;
  }
}

} // namespace

std::string_view DeployActionName(TDeployAction action) {
  constexpr std::array<std::string_view, 6> Names{"copied",  "unchanged", "kept",
                                                  "skipped", "removed",   "failed"};
  return Names[static_cast<std::size_t>(action)];
}

TDeployPlan MakeDeployPlan(std::vector<TDeployFile> files, const TPlanOptions& options,
                           const std::function<IRemoteConnection&()>& connect) {
  return TPlanner(std::move(files), options).Make(connect);
}

} // namespace workbench
