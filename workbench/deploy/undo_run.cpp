#include "workbench/deploy/undo_run.h"

#include "package/common/errors.h"
#include "workbench/deploy/record/record_place.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <exception>
#include <span>
#include <stdexcept>
#include <utility>

namespace workbench {
namespace {

constexpr std::size_t UndoBatch = 1000; // files between two looks at the clock and for a cancel

std::string NameOfUndone(const TUndoItem& item, const TTargetRecord& record) {
  if (item.File.Recorded)
    return item.File.Recorded->LocalName;
  const auto found = record.Files.find(item.File.Path);
  return found == record.Files.end() ? std::string() : found->second.LocalName;
}

} // namespace

TUndoRun::TUndoRun(const TUndoRequest& request, std::shared_ptr<IRemoteConnection> connection,
                   const std::string& rootName, TUndoReport& report)
    : FRequest(request), FConnection(std::move(connection)), FReport(report),
      FStore(*FConnection, rootName), FLock(FStore.Directory()), FUndo(FStore.Directory()) {}

// A lock on a connection that broke goes stale.
TUndoRun::~TUndoRun() {
  try {
    FLock.Release(*FConnection);
  } catch (const std::exception&) {
    FConnection = nullptr;
  }
}

bool TUndoRun::Refuse(TDeployEnd end, std::string problem) {
  FReport.End = end;
  FReport.Problems.push_back(std::move(problem));
  return false;
}

void TUndoRun::Run() {
  if (!Prepare())
    return;
  Foretell();
  if (FRequest.DryRun) {
    FReport.End = EndOf();
    return;
  }
  if (FRequest.MayUndo && !FRequest.MayUndo(FReport)) {
    FReport.End = TDeployEnd::NoConsent;
    return;
  }
  if (!Lock())
    return;
  FReport.Rows.clear();
  Execute();
  FReport.Signal = FRequest.Cancelled ? FRequest.Cancelled->load() : 0;
  FReport.End = EndOf();
}

bool TUndoRun::Prepare() {
  if (!FStore.Problem().empty())
    return Refuse(TDeployEnd::Refused, "the target remembers no deploys: " + FStore.Problem());
  return ReadRecord() && FindRuns();
}

bool TUndoRun::ReadRecord() {
  TRecordReading reading = FStore.Read(*FConnection);
  if (reading.State == TRecordState::Newer)
    return Refuse(TDeployEnd::Unexpected,
                  "the record on the target is of a newer version of this program");
  if (reading.State == TRecordState::Damaged)
    return Refuse(TDeployEnd::Unexpected,
                  "the record on the target is damaged: " + reading.Problem);
  FRecord = std::move(reading.Record);
  return true;
}

// A run that broke before the record heard of it stands among what was kept alone.
void TUndoRun::AddUnrecordedRuns() {
  const TUndoIndex index = FUndo.ReadIndex(*FConnection);
  auto place = FRecord.Runs.begin();
  for (const TUndoIndex::TRun& run : index.Runs) {
    const auto known = std::ranges::find(FRecord.Runs, run.Id, &TRecordedRun::Id);
    if (known != FRecord.Runs.end()) {
      place = known + 1;
      continue;
    }
    try {
      place = FRecord.Runs.insert(place, FUndo.ReadManifest(*FConnection, run.Id).Run) + 1;
    } catch (const deployment::TInputError&) {
      continue; // it can be taken back no more
    }
  }
}

bool TUndoRun::FindRuns() {
  AddUnrecordedRuns();
  const auto isUndone = [](const TRecordedRun& run) { return run.Result == TRunResult::Undone; };
  std::vector<TRecordedRun> runs;
  if (!FRequest.To.empty()) {
    const auto last = std::ranges::find(FRecord.Runs, FRequest.To, &TRecordedRun::Id);
    if (last == FRecord.Runs.end())
      return Refuse(TDeployEnd::Refused, "the target remembers no run \"" + FRequest.To +
                                             "\"; history lists those that it remembers");
    std::copy_if(FRecord.Runs.begin(), last, std::back_inserter(runs), std::not_fn(isUndone));
  } else {
    const auto first = std::ranges::find_if_not(FRecord.Runs, isUndone);
    if (first != FRecord.Runs.end())
      runs.push_back(*first);
  }
  for (const TRecordedRun& run : runs) {
    if (!FindKept(run.Id))
      return false;
  }
  FReport.Runs = std::move(runs);
  return true;
}

bool TUndoRun::FindKept(const std::string& run) {
  try {
    if (!IsRunId(run))
      throw deployment::TInputError("it has no name of a run");
    FManifests.push_back(FUndo.ReadManifest(*FConnection, run));
    return true;
  } catch (const deployment::TInputError& error) {
    return Refuse(TDeployEnd::Refused, "the run " + run + " cannot be taken back: " + error.what());
  }
}

// What would be done, each run standing on what the ones before it leave.
void TUndoRun::Foretell() {
  TForeseen foreseen;
  TTargetRecord record = FRecord;
  for (const TUndoManifest& manifest : FManifests) {
    const std::vector<TUndoItem> items = PlanUndo(*FConnection, FUndo, manifest, record, foreseen);
    AddRows(items);
    Foresee(items, foreseen);
    TakeBackInRecord(items, record);
  }
}

void TUndoRun::AddRows(const std::vector<TUndoItem>& items) {
  for (const TUndoItem& item : items)
    FReport.Rows.push_back(
        {NameOfUndone(item, FRecord), item.RemoteFile(), item.Action, item.Reason});
}

bool TUndoRun::Lock() {
  try {
    const auto holder =
        FLock.Take(*FConnection, ThisHolder(UtcText(std::time(nullptr))), FRequest.BreakLock);
    if (holder)
      return Refuse(TDeployEnd::Refused, "somebody else deploys there: " + holder->Text() +
                                             "; --break-lock goes on all the same");
  } catch (const TConnectionError&) {
    throw;
  } catch (const std::runtime_error& error) {
    return Refuse(TDeployEnd::Refused, error.what());
  }
  const TTargetRecord before = std::exchange(FRecord, {});
  if (!ReadRecord())
    return false;
  AddUnrecordedRuns();
  return FRecord == before ||
         Refuse(TDeployEnd::Refused, "somebody else deployed there meanwhile; try again");
}

void TUndoRun::Execute() {
  for (const TUndoManifest& manifest : FManifests) {
    if (IsCancelled())
      return;
    Execute(manifest);
  }
}

// The record forgets what is about to change before it does, and knows it again when it has: it
// never says more than is true.
void TUndoRun::Execute(const TUndoManifest& manifest) {
  std::vector<TUndoItem> items = PlanUndo(*FConnection, FUndo, manifest, FRecord, {});
  SetResult(manifest.Run.Id, TRunResult::Partly);
  TTargetRecord meanwhile = FRecord;
  for (const TUndoItem& item : items) {
    if (item.Action == TUndoAction::Restored || item.Action == TUndoAction::Removed)
      meanwhile.Files.erase(item.File.Path);
  }
  WriteRecord(meanwhile);
  TakeBack(manifest.Run.Id, items);
  std::vector<std::string> directories;
  directories.reserve(manifest.Directories.size());
  for (const std::string& directory : manifest.Directories)
    directories.push_back(FConnection->Root() + "/" + directory);
  FConnection->RemoveEmptyDirectories(directories);
  AddRows(items);
  TakeBackInRecord(items, FRecord);
  const bool isWhole = std::ranges::none_of(items, [](const TUndoItem& item) {
    return item.Action == TUndoAction::Refused || item.Action == TUndoAction::Failed;
  });
  if (isWhole)
    SetResult(manifest.Run.Id, TRunResult::Undone);
  WriteRecord(FRecord);
  if (isWhole)
    FUndo.Drop(*FConnection, manifest.Run.Id);
}

void TUndoRun::TakeBack(const std::string& run, std::vector<TUndoItem>& items) {
  auto refreshed = std::chrono::steady_clock::now();
  for (std::size_t start = 0; start < items.size(); start += UndoBatch) {
    const std::size_t end = std::min(start + UndoBatch, items.size());
    if (!IsCancelled()) {
      TakeBackSome(run, std::span(items).subspan(start, end - start));
    } else {
      for (std::size_t i = start; i < end; ++i) {
        if (items[i].Action == TUndoAction::Restored || items[i].Action == TUndoAction::Removed) {
          items[i].Action = TUndoAction::Failed;
          items[i].Reason = "the run was interrupted";
        }
      }
    }
    if (FRequest.Progress)
      FRequest.Progress(end, items.size());
    const auto now = std::chrono::steady_clock::now();
    if (now - refreshed >= LockInterval) {
      FLock.Refresh(*FConnection);
      refreshed = now;
    }
  }
}

void TUndoRun::TakeBackSome(const std::string& run, std::span<TUndoItem> items) {
  std::vector<TRemoteName> removed;
  std::vector<TRemoteCopy> moves;
  std::vector<std::string> directories;
  std::vector<TUndoItem*> ofRemoved;
  std::vector<TUndoItem*> ofMoves;
  for (TUndoItem& item : items) {
    if (item.Action == TUndoAction::Removed) {
      removed.push_back(item.Target);
      ofRemoved.push_back(&item);
    }
    if (item.Action != TUndoAction::Restored)
      continue;
    if (!item.DirectoryExists)
      directories.push_back(item.Target.Directory);
    if (item.File.Kind != TUndoKind::Restore)
      continue;
    moves.push_back({FUndo.KeptName(run, item.File.Kept), item.Target});
    ofMoves.push_back(&item);
  }
  const auto take = [](const std::vector<std::string>& problems,
                       const std::vector<TUndoItem*>& done) {
    for (std::size_t i = 0; i < done.size(); ++i)
      FailFor(*done[i], problems[i]);
  };
  FConnection->MakeDirectories(directories); // what fails is told by the files that go there
  take(FConnection->RemoveAll(removed), ofRemoved);
  take(FConnection->Move(moves), ofMoves);
  StampBack(items);
  for (TUndoItem& item : items)
    MakeLinkBack(item);
}

// Those of which a deploy changed rights and time alone.
void TUndoRun::StampBack(std::span<TUndoItem> items) {
  std::vector<TRemoteStamp> stamps;
  std::vector<TUndoItem*> ofStamps;
  for (TUndoItem& item : items) {
    if (item.Action != TUndoAction::Restored || item.File.Kind != TUndoKind::Touch)
      continue;
    TRemoteStamp& stamp = stamps.emplace_back();
    stamp.Name = item.Target;
    stamp.Time = deployment::TFileTime(std::chrono::seconds(item.File.Before->Time));
    if (FConnection->KeepsModes())
      stamp.Mode = item.File.Mode;
    ofStamps.push_back(&item);
  }
  if (stamps.empty())
    return;
  const std::vector<std::string> problems = FConnection->Stamp(stamps);
  for (std::size_t i = 0; i < stamps.size(); ++i)
    FailFor(*ofStamps[i], problems[i]);
}

void TUndoRun::FailFor(TUndoItem& item, const std::string& problem) {
  if (problem.empty())
    return;
  item.Action = TUndoAction::Failed;
  item.Reason = problem;
}

void TUndoRun::MakeLinkBack(TUndoItem& item) {
  if (item.Action == TUndoAction::Restored && item.File.Kind == TUndoKind::Link)
    FailFor(item, FConnection->MakeLink(item.Target, item.File.Link));
}

void TUndoRun::SetResult(const std::string& run, TRunResult result) {
  const auto found = std::ranges::find(FRecord.Runs, run, &TRecordedRun::Id);
  if (found != FRecord.Runs.end())
    found->Result = result;
}

void TUndoRun::WriteRecord(const TTargetRecord& record) {
  const std::string problem = FStore.Write(*FConnection, record, record.Runs);
  if (!problem.empty())
    FReport.Warnings.push_back("the target cannot remember what was taken back: " + problem);
}

TDeployEnd TUndoRun::EndOf() const {
  const auto has = [this](TUndoAction action) {
    return std::ranges::find(FReport.Rows, action, &TUndoRow::Action) != FReport.Rows.end();
  };
  if (FReport.Signal != 0)
    return TDeployEnd::Interrupted;
  if (has(TUndoAction::Refused))
    return TDeployEnd::Unexpected;
  return has(TUndoAction::Failed) ? TDeployEnd::Failed : TDeployEnd::Done;
}

} // namespace workbench
