#include "package/reconcile/reconcile_plan.h"

#include "package/common/case_fold.h"
#include "package/common/path_text.h"

#include <algorithm>

namespace deployment {
namespace {

TEntryReason OtherRole(TReconcileStep step, const std::string& className) {
  return {step, TReasonSource::OtherEntry, className, {}, TReasonCause::FileHasOtherRole};
}

bool RecordIsAsMade(const TFileData& record, const TDefaultEntry& wanted) {
  return record.Enabled == wanted.EnabledOnCreation && record.Overwrite &&
         record.RemoteDir == wanted.RemoteDir.value_or("") &&
         record.RemoteName == wanted.RemoteName.value_or("") &&
         record.Operation == TDeployOperation::Default && record.LocalCommands.empty() &&
         record.RemoteCommands.empty();
}

} // namespace

TReconcilePlan::TReconcilePlan(IProjectDeployment& deployment, std::string configuration,
                               std::string platform, bool isExplained)
    : FDeployment(deployment), FConfiguration(std::move(configuration)),
      FPlatform(std::move(platform)), FIsExplained(isExplained) {}

TDeploymentFiles TReconcilePlan::OfClass(std::string_view className) const {
  return FDeployment.FindFiles({}, FConfiguration, FPlatform, className);
}

// The entries of the target with exactly that name.
TDeploymentFiles TReconcilePlan::WithName(std::string_view localName,
                                          std::string_view className) const {
  TDeploymentFiles files = FDeployment.FindFiles(localName, FConfiguration, FPlatform, className);
  std::erase_if(files, [&](const auto& file) { return file->GetLocalName() != localName; });
  return files;
}

TWantId TReconcilePlan::Want(TDefaultEntry wanted) {
  const TDeploymentFiles present = OfClass(wanted.ClassName);
  TPlannedEntry want{std::move(wanted)};
  want.IsOnlyOne = true;
  if (!present.empty()) {
    want.Origin = TPlannedEntry::TOrigin::Present;
    want.Entry = present.front();
  }
  return AddWant(std::move(want));
}

void TReconcilePlan::WantFile(const TDefaultEntry& wanted) {
  const TDeploymentFiles present =
      FDeployment.FindFiles(wanted.LocalName, FConfiguration, FPlatform, {});
  const auto own = std::find_if(present.begin(), present.end(), [&](const auto& file) {
    return SameText(file->GetDeploymentClass(), wanted.ClassName);
  });
  if (own == present.end()) {
    AddWant({wanted});
    return;
  }
  // Most entries of a long list are right, so those cost no want.
  if (present.size() == 1 && IsRight(**own, wanted) && !FClaims.contains(wanted.LocalName)) {
    FRightFiles.push_back(own->get());
    return Note(wanted.Reason, TReconcileOutcome::Kept, wanted.ClassName, wanted.LocalName);
  }
  AddWant({wanted, TPlannedEntry::TOrigin::Present, *own});
}

TWantId TReconcilePlan::WantNew(TDefaultEntry wanted) {
  return AddWant({std::move(wanted)});
}

TWantId TReconcilePlan::Keep(std::shared_ptr<IProjectDeploymentFile> entry,
                             const TEntryReason& reason) {
  TDefaultEntry wanted{entry->GetDeploymentClass(), entry->GetLocalName(), reason};
  return AddWant({std::move(wanted), TPlannedEntry::TOrigin::Present, std::move(entry)});
}

TWantId TReconcilePlan::AddWant(TPlannedEntry want) {
  const TWantId id = FWants.size();
  const auto [claim, isFirst] = FClaims.try_emplace(want.Wanted.LocalName, id);
  if (!isFirst) {
    Lose(claim->second, want.Wanted.ClassName);
    claim->second = id;
  }
  if (FIsExplained) {
    FDecisionOf.push_back(FDecisions.size());
    Note(want.Wanted.Reason, TReconcileOutcome::Kept, want.Wanted.ClassName, want.Wanted.LocalName);
  }
  FWants.push_back(std::move(want));
  return id;
}

void TReconcilePlan::Lose(TWantId loser, const std::string& winnerClass) {
  FWants[loser].IsLost = true;
  const TDefaultEntry& wanted = FWants[loser].Wanted;
  WarnOfRoles(wanted.LocalName, wanted.ClassName, winnerClass);
}

void TReconcilePlan::WarnOfRoles(const std::string& localName, const std::string& loser,
                                 const std::string& winner, std::string_view consequence) {
  if (SameText(loser, winner))
    return;
  Warn(std::string("\"")
           .append(localName)
           .append("\" has two roles for ")
           .append(FConfiguration)
           .append(", ")
           .append(FPlatform)
           .append(": \"")
           .append(loser)
           .append("\" and \"")
           .append(winner)
           .append("\"; one file has one entry, which is that of \"")
           .append(winner)
           .append("\"")
           .append(consequence));
}

void TReconcilePlan::Leave(std::shared_ptr<IProjectDeploymentFile> entry,
                           const TEntryReason& reason) {
  TakeLeave(std::move(entry), /*fromEveryTarget=*/false, reason);
}

void TReconcilePlan::Remove(std::shared_ptr<IProjectDeploymentFile> entry,
                            const TEntryReason& reason) {
  TakeLeave(std::move(entry), /*fromEveryTarget=*/true, reason);
}

void TReconcilePlan::TakeLeave(std::shared_ptr<IProjectDeploymentFile> entry, bool fromEveryTarget,
                               const TEntryReason& reason) {
  if (!FLeavingSet.insert(entry.get()).second)
    return;
  Note(reason, TReconcileOutcome::Removed, entry->GetDeploymentClass(), entry->GetLocalName());
  FLeaving.push_back({std::move(entry), fromEveryTarget});
}

void TReconcilePlan::RemoveClass(std::string_view className, std::string_view localName,
                                 const TEntryReason& reason) {
  const TDeploymentFiles files = FDeployment.FindFiles({}, {}, {}, className);
  if (files.empty())
    return Skip(className, localName, reason);
  for (const auto& file : files)
    Remove(file, reason);
}

void TReconcilePlan::Skip(std::string_view className, std::string_view localName,
                          const TEntryReason& reason) {
  Note(reason, TReconcileOutcome::Skipped, className, localName);
}

std::string TReconcilePlan::RemoteDirOf(TWantId want) const {
  const TPlannedEntry& planned = FWants[want];
  if (planned.Wanted.RemoteDir)
    return *planned.Wanted.RemoteDir;
  if (planned.Entry)
    return GetDeploymentRemoteDir(*planned.Entry, FPlatform, FDeployment);
  const auto ownClass = FDeployment.FindClass(planned.Wanted.ClassName);
  return ownClass ? ownClass->GetRemoteDir(FPlatform) : std::string();
}

std::string TReconcilePlan::RemoteNameOf(TWantId want) const {
  const TPlannedEntry& planned = FWants[want];
  if (planned.Wanted.RemoteName)
    return *planned.Wanted.RemoteName;
  return planned.Entry ? planned.Entry->GetRemoteName(FPlatform)
                       : std::string(FileNamePart(planned.Wanted.LocalName));
}

bool TReconcilePlan::IsEnabled(TWantId want) const {
  const TPlannedEntry& planned = FWants[want];
  return planned.Entry ? planned.Entry->GetEnabled(FPlatform) : planned.Wanted.EnabledOnCreation;
}

void TReconcilePlan::SetRemoteDir(TWantId want, std::string directory) {
  FWants[want].Wanted.RemoteDir = std::move(directory);
}

void TReconcilePlan::Rebuild(const std::vector<TLeavingEntry>& present,
                             const std::vector<TDefaultEntry>& wanted) {
  std::unordered_map<std::string_view, const TDefaultEntry*> byName; // the last of each name
  for (const TDefaultEntry& entry : wanted) {
    const std::string winner = ClassThatHas(entry.LocalName);
    if (winner.empty()) {
      byName.insert_or_assign(entry.LocalName, &entry);
      continue;
    }
    WarnOfRoles(entry.LocalName, entry.ClassName, winner);
    Skip(entry.ClassName, entry.LocalName, OtherRole(entry.Reason.Step, winner));
  }
  std::unordered_map<const TDefaultEntry*, std::shared_ptr<IProjectDeploymentFile>> staying;
  for (const TLeavingEntry& each : present) {
    const auto found = byName.find(each.Entry->GetLocalName());
    if (found == byName.end() || staying.contains(found->second) ||
        !IsAsMade(*each.Entry, *found->second))
      TakeLeave(each.Entry, each.FromEveryTarget,
                {TReconcileStep::Packages,
                 TReasonSource::PackageService,
                 {},
                 {},
                 TReasonCause::NoLongerNamed});
    else
      staying.emplace(found->second, each.Entry);
  }
  for (const TDefaultEntry& entry : wanted) {
    const auto found = byName.find(entry.LocalName);
    if (found == byName.end() || found->second != &entry)
      continue;
    TPlannedEntry want{entry};
    want.IsRebuilt = true;
    if (const auto stays = staying.find(&entry); stays != staying.end()) {
      want.Origin = TPlannedEntry::TOrigin::Present;
      want.Entry = stays->second;
    }
    AddWant(std::move(want));
  }
}

// The class for which a step wants the file; empty for a file that nobody wants.
std::string TReconcilePlan::ClassThatHas(const std::string& localName) {
  if (const auto claim = FClaims.find(localName); claim != FClaims.end())
    return FWants[claim->second].Wanted.ClassName;
  if (FRightSet.empty())
    FRightSet.insert(FRightFiles.begin(), FRightFiles.end());
  for (const auto& file : WithName(localName, {})) {
    if (FRightSet.contains(file.get()))
      return file->GetDeploymentClass();
  }
  return {};
}

bool TReconcilePlan::IsAsMade(IProjectDeploymentFile& entry, const TDefaultEntry& wanted) const {
  return entry.GetConfiguration() == FConfiguration &&
         entry.GetDeploymentClass() == wanted.ClassName && entry.GetCondition().empty() &&
         !entry.GetRequired() && entry.GetPlatforms() == std::vector{FPlatform} &&
         RecordIsAsMade(*entry.GetFileData(FPlatform, /*create=*/false), wanted);
}

// True when the entry has the name and the values that are written in any case.
bool TReconcilePlan::IsRight(IProjectDeploymentFile& entry, const TDefaultEntry& wanted) const {
  if (entry.GetLocalName() != wanted.LocalName)
    return false;
  if (!wanted.RemoteName && !wanted.RemoteDir)
    return true;
  const TFileData* record = entry.GetFileData(FPlatform, /*create=*/false);
  return record && (!wanted.RemoteName || record->RemoteName == *wanted.RemoteName) &&
         (!wanted.RemoteDir || record->RemoteDir == *wanted.RemoteDir);
}

void TReconcilePlan::Settle() {
  for (TPlannedEntry& want : FWants) {
    if (!want.IsLost && want.Entry)
      FPlaced.insert(want.Entry.get());
  }
  for (TPlannedEntry& want : FWants) {
    if (want.IsLost)
      DropEntriesOf(want);
    else if (!want.Entry && !want.IsRebuilt)
      Reclaim(want);
  }
  for (TWantId id = 0; id < FWants.size(); ++id) {
    TPlannedEntry& want = FWants[id];
    want.IsRight =
        want.Origin == TPlannedEntry::TOrigin::Present && IsRight(*want.Entry, want.Wanted);
    if (!want.IsLost)
      ClearWay(want);
    if (FIsExplained)
      NoteOutcome(id);
  }
}

// A class that lost its file has no entry for the target.
void TReconcilePlan::DropEntriesOf(const TPlannedEntry& lost) {
  const TDefaultEntry& winner = FWants[FClaims.at(lost.Wanted.LocalName)].Wanted;
  const TDeploymentFiles entries = lost.IsOnlyOne
                                       ? OfClass(lost.Wanted.ClassName)
                                       : WithName(lost.Wanted.LocalName, lost.Wanted.ClassName);
  for (const auto& entry : entries) {
    if (!FPlaced.contains(entry.get()))
      Leave(entry, OtherRole(winner.Reason.Step, winner.ClassName));
  }
}

// An entry of the class that lost the target's platform gets it back, with what it has elsewhere.
void TReconcilePlan::Reclaim(TPlannedEntry& want) const {
  const auto held = FDeployment.FindFile(FConfiguration, FPlatform, want.Wanted.LocalName);
  if (!held || held->GetLocalName() != want.Wanted.LocalName ||
      !SameText(held->GetDeploymentClass(), want.Wanted.ClassName) ||
      FLeavingSet.contains(held.get()) || FPlaced.contains(held.get()))
    return;
  want.Origin = TPlannedEntry::TOrigin::Reclaimed;
  want.Entry = held;
}

// Entries of the target that have the name, and that no step wants under it.
void TReconcilePlan::ClearWay(const TPlannedEntry& want) {
  const TDefaultEntry& wanted = want.Wanted;
  for (const auto& file : WithName(wanted.LocalName, {})) {
    if (file == want.Entry || FPlaced.contains(file.get()) || FLeavingSet.contains(file.get()))
      continue;
    WarnOfRoles(wanted.LocalName, file->GetDeploymentClass(), wanted.ClassName,
                ", with the values of a new one");
    Leave(file, OtherRole(wanted.Reason.Step, wanted.ClassName));
  }
}

void TReconcilePlan::NoteOutcome(TWantId id) {
  const TPlannedEntry& want = FWants[id];
  TReconcileReason& decision = FDecisions[FDecisionOf[id]];
  if (want.IsLost) {
    decision.Outcome = TReconcileOutcome::Skipped;
    decision.Source = TReasonSource::OtherEntry;
    decision.SourceName = FWants[FClaims.at(want.Wanted.LocalName)].Wanted.ClassName;
    decision.SourceValue.clear();
    decision.Cause = TReasonCause::FileHasOtherRole;
  } else if (want.Origin != TPlannedEntry::TOrigin::Present) {
    decision.Outcome = TReconcileOutcome::Added;
  } else if (!want.IsRight) {
    decision.Outcome = TReconcileOutcome::Updated;
  }
}

void TReconcilePlan::Note(const TEntryReason& reason, TReconcileOutcome outcome,
                          std::string_view className, std::string_view localName) {
  if (FIsExplained)
    FDecisions.push_back({reason.Step, outcome, std::string(className), std::string(localName),
                          reason.Source, reason.SourceName, reason.SourceValue, reason.Cause});
}

} // namespace deployment
