// What a run has to do with the record of the target, its lock and what is kept to take runs back.
#include "workbench/deploy/deploy_run.h"
#include "workbench/deploy/held_target.h"
#include "workbench/deploy/undo_keeping.h"
#include "workbench/files/sha256.h"
#include "workbench/remote/target/file_times.h"

#include <algorithm>
#include <ctime>
#include <stdexcept>
#include <utility>

namespace workbench {
namespace {

std::string HolderText(const TLockHolder& holder) {
  return "somebody else deploys there: " + holder.Text() + "; --break-lock goes on all the same";
}

// By which a record is known again; nothing for one that could not be read.
std::optional<std::string> MarkOf(const TRemoteContent& content) {
  if (!content.Problem.empty())
    return std::nullopt;
  if (!content.IsThere)
    return std::string();
  TSHA256 digest;
  digest.Add(content.Text);
  return digest.Text();
}

} // namespace

bool TDeployRun::IsRecorded() const {
  return FFacts.Destination.Profile && !FFacts.Destination.Profile->Stateless;
}

// What the record says is found out while the target is asked about the files.
void TDeployRun::BeginRecord() {
  if (!IsRecorded())
    return;
  FStore.emplace(*FConnection, FFacts.RootName);
  FLock.emplace(FStore->Directory());
  if (!FStore->Problem().empty()) {
    FReport.Warnings.push_back("the target cannot remember deploys: " + FStore->Problem());
    FStore.reset();
    return;
  }
  if (!FTerms.Options.DryRun && !FTerms.Options.BreakLock) {
    if (const auto holder = FLock->Holder(*FConnection))
      throw THeldTarget{TDeployEnd::Refused, {HolderText(*holder)}};
  }
  FRecordRead = std::async(std::launch::async, [this, content = FStore->ReadContent(*FConnection)] {
    FRecordMark = MarkOf(content);
    return TRecordStore::ReadingOf(content);
  });
}

const TTargetRecord& TDeployRun::TakeRecord() {
  if (!FRecordRead.valid())
    return FReading.Record;
  FReading = FRecordRead.get();
  if (FReading.State == TRecordState::Newer)
    throw THeldTarget{TDeployEnd::Unexpected,
                      {"the record on the target is of a newer version of this program"}};
  if (FReading.State == TRecordState::Damaged)
    FReport.Warnings.push_back("the record on the target is damaged and counts as none: " +
                               FReading.Problem);
  return FReading.Record;
}

// False when the target and its record are what they should be, so that nothing has to be locked.
bool TDeployRun::HasWork() const {
  const auto isRecorded = [this](const TPlannedFile& file) {
    const auto found = FReading.Record.Files.find(file.RecordPath);
    return file.RecordPath.empty() || file.State != TFileState::Same ||
           (found != FReading.Record.Files.end() && found->second.Size == file.Local.Size &&
            found->second.Time == WholeSeconds(file.Local.Time) &&
            found->second.Mode == file.Mode && found->second.Link == file.Link &&
            found->second.Class == file.File.Class &&
            found->second.LocalName == file.File.LocalName &&
            found->second.Platform == FFacts.Target.Platform &&
            found->second.Configuration == FFacts.Target.Configuration);
  };
  const auto needsWork = [&](const TPlannedFile& file) {
    return file.Action == TDeployAction::Copied || file.Action == TDeployAction::Removed ||
           file.Action == TDeployAction::Mode || !file.Steps.empty() || file.TimeDiffers ||
           (file.Action == TDeployAction::Unchanged && !isRecorded(file));
  };
  return !FPlan.AfterDeploy.empty() || !FPlan.Forgotten.empty() ||
         FReading.State == TRecordState::Damaged || std::ranges::any_of(FPlan.Files, needsWork);
}

// False where the target cannot remember; the deploy goes on without.
bool TDeployRun::Lock() {
  const auto forget = [this](const std::string& reason) {
    FReport.Warnings.push_back("the target cannot remember this deploy: " + reason);
    return false;
  };
  if (const std::string problem = FStore->MakeDirectory(*FConnection); !problem.empty())
    return forget(problem);
  try {
    const auto holder = FLock->Take(*FConnection, ThisHolder(UtcText(std::time(nullptr))),
                                    FTerms.Options.BreakLock);
    if (holder)
      throw THeldTarget{TDeployEnd::Refused, {HolderText(*holder)}};
  } catch (const TConnectionError&) {
    throw;
  } catch (const std::runtime_error& error) {
    return forget(error.what());
  }
  FStore->RemoveUnfinished(*FConnection);
  FUndo.emplace(FStore->Directory());
  FUndo->RemoveUnfinished(*FConnection);
  const TRemoteContent content = FStore->ReadContent(*FConnection);
  if (FReading.State != TRecordState::Damaged && FRecordMark && MarkOf(content) == FRecordMark)
    return true;
  const TRecordReading now = TRecordStore::ReadingOf(content);
  if (now.State == TRecordState::Damaged && FReading.State != TRecordState::Damaged)
    throw THeldTarget{TDeployEnd::Refused,
                      {"the record on the target cannot be read any more: " + now.Problem}};
  if (FReading.State == TRecordState::Damaged && now.State != FReading.State)
    throw THeldTarget{
        TDeployEnd::Refused,
        {"the record on the target could not be read: " + FReading.Problem + "; deploy again"}};
  if (now.State != FReading.State || now.Record != FReading.Record)
    throw THeldTarget{TDeployEnd::Refused,
                      {"somebody else deployed there meanwhile; deploy again"}};
  if (now.State == TRecordState::Damaged) {
    if (const std::string problem = FStore->SetAside(*FConnection); !problem.empty())
      return forget(problem);
  }
  return true;
}

void TDeployRun::KeepBefore(const TRecordedRun& run) {
  if (FTerms.Options.NoUndo)
    return;
  const std::string problem =
      KeepForUndo(*FConnection, *FUndo, FPlan, FReading.Record, run, FTerms.Options.Undo);
  if (!problem.empty())
    FReport.Warnings.push_back("this deploy cannot be taken back: " + problem);
}

} // namespace workbench
