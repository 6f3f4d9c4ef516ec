#include "workbench/deploy/plan/left_overs.h"

#include "package/common/case_fold.h"

#include <deque>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace workbench {
namespace {

using deployment::TDeployOperation;

// What the record has of the target and the plan has not; directories as the record names them.
std::vector<TLeftOver> Candidates(const TTargetRecord& record, const TPlanOptions& options,
                                  const TDeployPlan& plan) {
  const bool ignoresCase = options.Places.Names.IgnoresCase;
  std::deque<std::string> folded; // owns the names that the next one points to
  std::unordered_set<std::string_view> listed;
  listed.reserve(plan.Files.size());
  for (const TPlannedFile& file : plan.Files)
    listed.insert(ignoresCase ? folded.emplace_back(deployment::UpperCase(file.RecordPath))
                              : file.RecordPath);
  std::vector<TLeftOver> candidates;
  for (const auto& [path, file] : record.Files) {
    const bool isOfTarget = file.Platform == options.Target.Platform &&
                            file.Configuration == options.Target.Configuration;
    if (!isOfTarget || listed.contains(ignoresCase ? deployment::UpperCase(path) : path))
      continue;
    if (TTargetPlace place = FindTargetPlace(path, options.Places); place.Problem.empty())
      candidates.push_back({path, std::move(place.Name), file.LocalName});
  }
  return candidates;
}

// Those that may still be there, with their directories resolved. One that leads elsewhere now is
// none of ours any more.
std::vector<TLeftOver> Resolved(IRemoteConnection& connection, std::vector<TLeftOver> candidates,
                                std::vector<std::string>& forgotten) {
  std::vector<std::string> directories;
  directories.reserve(candidates.size());
  for (const TLeftOver& candidate : candidates)
    directories.push_back(candidate.Target.Directory);
  const std::vector<TRemoteDirectory> found = connection.Resolve(directories);
  std::vector<TLeftOver> inside;
  for (std::size_t i = 0; i < candidates.size(); ++i) {
    if (!found[i].Problem.empty() || !found[i].IsInside)
      continue;
    if (!found[i].Exists) {
      forgotten.push_back(candidates[i].RecordPath);
      continue;
    }
    candidates[i].Target.Directory = found[i].Path;
    inside.push_back(std::move(candidates[i]));
  }
  return inside;
}

void DecideStates(IRemoteConnection& connection, const TTargetRecord& record,
                  const TComparing& comparing, std::vector<TLeftOver> candidates,
                  TDeployPlan& plan) {
  std::vector<TRemoteName> names;
  names.reserve(candidates.size());
  for (const TLeftOver& candidate : candidates)
    names.push_back(candidate.Target);
  const std::vector<TRemoteStatus> answers = connection.Examine(names);
  std::vector<TThreeSides> sides(candidates.size());
  std::vector<TContent*> there(candidates.size());
  for (std::size_t i = 0; i < candidates.size(); ++i) {
    sides[i].Deployed = ContentOf(&record.Files.at(candidates[i].RecordPath));
    sides[i].There = ContentOf(answers[i]);
    there[i] = sides[i].There ? &*sides[i].There : nullptr;
  }
  ReadLinksThere(connection, names, answers, there);
  std::vector<TRemoteName> asked;
  std::vector<TContent*> contents;
  for (std::size_t i = 0; i < candidates.size(); ++i) {
    if (sides[i].There && DecideLeftOverState(sides[i], comparing).NeedsHashThere) {
      asked.push_back(candidates[i].Target);
      contents.push_back(&*sides[i].There);
    }
  }
  ReadHashesThere(connection, asked, contents);
  for (std::size_t i = 0; i < candidates.size(); ++i) {
    if (!answers[i].Problem.empty())
      continue;
    if (!sides[i].There) {
      plan.Forgotten.push_back(candidates[i].RecordPath);
      continue;
    }
    candidates[i].State = DecideLeftOverState(sides[i], comparing).State;
    candidates[i].There = answers[i];
    plan.LeftOvers.push_back(std::move(candidates[i]));
  }
}

} // namespace

TPlannedFile RemovalOf(const TLeftOver& leftOver) {
  TPlannedFile file;
  file.File.LocalName = leftOver.LocalName;
  file.File.Operation = TDeployOperation::Remove;
  file.Target = leftOver.Target;
  file.RecordPath = leftOver.RecordPath;
  file.There = leftOver.There;
  file.State = leftOver.State;
  file.Action = TDeployAction::Removed;
  if (leftOver.State == TFileState::LeftOverChanged) {
    file.Action = TDeployAction::Refused;
    file.Reason = "it is not in the list any more, and was changed on the target since it was "
                  "deployed";
  }
  return file;
}

std::optional<TContent> ContentOf(const TRemoteStatus& remote) {
  if (remote.Kind == TRemoteKind::None)
    return std::nullopt;
  return TContent{.Size = remote.Size,
                  .Time = remote.Modified,
                  .IsPlainFile = remote.Kind == TRemoteKind::File};
}

std::optional<TContent> ContentOf(const TRecordedFile* recorded) {
  if (!recorded)
    return std::nullopt;
  return TContent{.Size = recorded->Size,
                  .Time = deployment::TFileTime(std::chrono::seconds(recorded->Time)),
                  .Hash = recorded->Hash,
                  .IsPlainFile = recorded->Link.empty(),
                  .Link = recorded->Link};
}

void ReadLinksThere(IRemoteConnection& connection, const std::vector<TRemoteName>& names,
                    const std::vector<TRemoteStatus>& answers,
                    const std::vector<TContent*>& contents) {
  std::vector<TRemoteName> links;
  std::vector<TContent*> contentsOf;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (answers[i].Kind != TRemoteKind::Link || !contents[i])
      continue;
    links.push_back(names[i]);
    contentsOf.push_back(contents[i]);
  }
  if (links.empty() || !connection.KnowsLinks())
    return;
  std::vector<TRemoteLink> found = connection.ReadLinks(links);
  for (std::size_t i = 0; i < found.size(); ++i)
    contentsOf[i]->Link = std::move(found[i].Text);
}

// One that cannot be read is a content of its own.
void ReadHashesThere(IRemoteConnection& connection, const std::vector<TRemoteName>& names,
                     const std::vector<TContent*>& contents) {
  if (names.empty())
    return;
  std::vector<std::string> hashes = connection.Hashes(names);
  for (std::size_t i = 0; i < names.size(); ++i)
    contents[i]->Hash = hashes[i].empty() ? std::string(UnreadableThere) : std::move(hashes[i]);
}

void FindLeftOvers(IRemoteConnection& connection, const TTargetRecord& record,
                   const TPlanOptions& options, TDeployPlan& plan) {
  std::vector<TLeftOver> candidates = Candidates(record, options, plan);
  if (candidates.empty())
    return;
  DecideStates(connection, record,
               {.Resolution = connection.TimeResolution(), .TrustTimes = !options.Checksum},
               Resolved(connection, std::move(candidates), plan.Forgotten), plan);
  if (!options.Prune)
    return;
  for (const TLeftOver& leftOver : plan.LeftOvers)
    plan.Files.push_back(RemovalOf(leftOver));
}

} // namespace workbench
