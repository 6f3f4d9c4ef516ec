#include "package/reconcile/default_entries.h"

#include "package/common/case_fold.h"

#include <utility>

namespace deployment {

TDefaultEntries::TDefaultEntries(IProjectDeployment& deployment, std::string configuration,
                                 std::string platform, IReconcileJournal* journal,
                                 TRoleConflictHandler conflict)
    : FDeployment(deployment), FConfiguration(std::move(configuration)),
      FPlatform(std::move(platform)), FJournal(journal), FConflict(std::move(conflict)) {}

TDeploymentFiles TDefaultEntries::OfClass(std::string_view className) const {
  return FDeployment.FindFiles({}, FConfiguration, FPlatform, className);
}

std::shared_ptr<IProjectDeploymentFile> TDefaultEntries::AddOrUpdate(const TDefaultEntry& wanted) {
  const TDeploymentFiles present = OfClass(wanted.ClassName);
  return present.empty() ? Add(wanted) : Update(present.front(), wanted);
}

std::shared_ptr<IProjectDeploymentFile>
TDefaultEntries::AddOrUpdateFile(const TDefaultEntry& wanted) {
  const TDeploymentFiles present =
      FDeployment.FindFiles(wanted.LocalName, FConfiguration, FPlatform, wanted.ClassName);
  return present.empty() ? Add(wanted) : Update(present.front(), wanted);
}

std::shared_ptr<IProjectDeploymentFile>
TDefaultEntries::Update(const std::shared_ptr<IProjectDeploymentFile>& entry,
                        const TDefaultEntry& wanted) {
  DropEarlierClaim(wanted);
  const bool renamed = entry->GetLocalName() != wanted.LocalName;
  entry->SetLocalName(wanted.LocalName);
  const bool changed = WriteTargetValues(wanted, *entry) || renamed;
  Claim(wanted, entry);
  Record(wanted.Reason, changed ? TReconcileOutcome::Updated : TReconcileOutcome::Kept,
         wanted.ClassName, wanted.LocalName);
  return entry;
}

std::shared_ptr<IProjectDeploymentFile> TDefaultEntries::Add(const TDefaultEntry& wanted) {
  const auto holder = Holder(wanted.LocalName);
  const bool isClaimed = FClaims.contains(wanted.LocalName);
  if (holder && !isClaimed && !SameText(holder->GetDeploymentClass(), wanted.ClassName)) {
    // A later step may want the file for the class that it has now; then it stays as it is.
    FPutOff.push_back(wanted);
    FPutOffNames.insert(wanted.LocalName);
    return nullptr;
  }
  return Make(wanted);
}

std::shared_ptr<IProjectDeploymentFile> TDefaultEntries::Make(const TDefaultEntry& wanted) {
  DropEarlierClaim(wanted);
  FreeKey(FConfiguration, FPlatform, wanted.LocalName);
  auto entry = Holder(wanted.LocalName);
  if (!entry || !SameText(entry->GetDeploymentClass(), wanted.ClassName)) {
    if (entry)
      FConflict(wanted.LocalName, entry->GetDeploymentClass(), wanted.ClassName);
    entry = FDeployment.AddFile(FConfiguration, FPlatform, wanted.LocalName);
  }
  entry->SetConfiguration(FConfiguration);
  entry->SetDeploymentClass(wanted.ClassName);
  if (wanted.RemoteNameOnCreation)
    entry->SetRemoteName(FPlatform, *wanted.RemoteNameOnCreation);
  if (wanted.RemoteDirOnCreation)
    entry->SetRemoteDir(FPlatform, *wanted.RemoteDirOnCreation);
  entry->SetEnabled(FPlatform, wanted.EnabledOnCreation);
  WriteTargetValues(wanted, *entry);
  Claim(wanted, entry);
  Record(wanted.Reason, TReconcileOutcome::Added, wanted.ClassName, wanted.LocalName);
  return entry;
}

void TDefaultEntries::Keep(const std::shared_ptr<IProjectDeploymentFile>& entry,
                           const TEntryReason& reason) {
  Claim({entry->GetDeploymentClass(), entry->GetLocalName(), reason}, entry);
  Record(reason, TReconcileOutcome::Kept, entry->GetDeploymentClass(), entry->GetLocalName());
}

void TDefaultEntries::Remove(const std::shared_ptr<IProjectDeploymentFile>& entry,
                             const TEntryReason& reason) {
  Record(reason, TReconcileOutcome::Removed, entry->GetDeploymentClass(), entry->GetLocalName());
  FDeployment.RemoveFileEntry(*entry);
}

void TDefaultEntries::RemoveClass(std::string_view className, const TEntryReason& reason) {
  const TDeploymentFiles files = FDeployment.FindFiles({}, {}, {}, className);
  if (files.empty())
    return Record(reason, TReconcileOutcome::Skipped, className, {});
  for (const auto& file : files)
    Record(reason, TReconcileOutcome::Removed, className, file->GetLocalName());
  FDeployment.RemoveFilesOfClass(className);
}

void TDefaultEntries::Skip(std::string_view className, std::string_view localName,
                           const TEntryReason& reason) {
  Record(reason, TReconcileOutcome::Skipped, className, localName);
}

void TDefaultEntries::Finish() {
  for (const TDefaultEntry& wanted : std::exchange(FPutOff, {})) {
    const auto claim = FClaims.find(wanted.LocalName);
    if (claim == FClaims.end()) {
      Make(wanted);
      continue;
    }
    FConflict(wanted.LocalName, wanted.ClassName, claim->second.ClassName);
    Record({wanted.Reason.Step,
            TReasonSource::OtherEntry,
            claim->second.ClassName,
            {},
            TReasonCause::FileHasOtherRole},
           TReconcileOutcome::Skipped, wanted.ClassName, wanted.LocalName);
  }
}

// The entry of the target that goes by that local name now, or is held under its key.
std::shared_ptr<IProjectDeploymentFile>
TDefaultEntries::Holder(const std::string& localName) const {
  for (const auto& file : FDeployment.FindFiles(localName, FConfiguration, FPlatform, {})) {
    if (file->GetLocalName() == localName)
      return file;
  }
  const auto file = FDeployment.FindFile(FConfiguration, FPlatform, localName);
  return file && file->GetLocalName() == localName ? file : nullptr;
}

// An entry keeps the key that it was added with. One that has another local name by now is stored
// anew under that name, so that what is added in its old place does not replace it.
void TDefaultEntries::FreeKey(std::string_view configuration, std::string_view platform,
                              std::string_view localName) {
  const auto file = FDeployment.FindFile(configuration, platform, localName);
  if (!file || file->GetLocalName() == localName)
    return;
  FDeployment.RemoveFileEntry(*file);
  FreeKey(file->GetConfiguration(), file->GetFilePlatform(), file->GetLocalName());
  FDeployment.AddFileEntry(file->GetConfiguration(), file->GetFilePlatform(), file);
}

void TDefaultEntries::Claim(const TDefaultEntry& wanted,
                            const std::shared_ptr<IProjectDeploymentFile>& entry) {
  // Nobody comes behind the last step but those that were put off.
  if (wanted.Reason.Step == TReconcileStep::ProjectFiles &&
      !FPutOffNames.contains(wanted.LocalName))
    return;
  FClaims.insert_or_assign(wanted.LocalName, TClaim{wanted.ClassName, entry});
}

void TDefaultEntries::DropEarlierClaim(const TDefaultEntry& wanted) {
  const auto claim = FClaims.find(wanted.LocalName);
  if (claim == FClaims.end() || SameText(claim->second.ClassName, wanted.ClassName))
    return;
  FConflict(wanted.LocalName, claim->second.ClassName, wanted.ClassName);
  if (const auto entry = claim->second.Entry.lock())
    Remove(entry, {wanted.Reason.Step,
                   TReasonSource::OtherEntry,
                   wanted.ClassName,
                   {},
                   TReasonCause::FileHasOtherRole});
  FClaims.erase(claim);
}

bool TDefaultEntries::WriteTargetValues(const TDefaultEntry& wanted,
                                        IProjectDeploymentFile& entry) const {
  const TFileData* record = entry.GetFileData(FPlatform, /*create=*/false);
  const bool sameName = !wanted.RemoteName || (record && record->RemoteName == *wanted.RemoteName);
  const bool sameDir = !wanted.RemoteDir || (record && record->RemoteDir == *wanted.RemoteDir);
  if (!sameName)
    entry.SetRemoteName(FPlatform, *wanted.RemoteName);
  if (!sameDir)
    entry.SetRemoteDir(FPlatform, *wanted.RemoteDir);
  return !sameName || !sameDir;
}

void TDefaultEntries::Record(const TEntryReason& reason, TReconcileOutcome outcome,
                             std::string_view className, std::string_view localName) const {
  if (FJournal)
    FJournal->Record({reason.Step, outcome, std::string(className), std::string(localName),
                      reason.Source, reason.SourceName, reason.SourceValue, reason.Cause});
}

} // namespace deployment
