#include "workbench/deploy/record/record_store.h"

#include "workbench/deploy/record/record_place.h"
#include "workbench/deploy/record/undo_store.h"

#include <array>
#include <system_error>

namespace workbench {
TRecordStore::TRecordStore(IRemoteConnection& connection, std::string_view root) {
  const std::array<std::string, 1> wanted{RecordDirectoryOf(root)};
  const TRemoteDirectory found = connection.Resolve(wanted).front();
  FDirectory = found.Path;
  FExists = found.Exists;
  FProblem = found.Problem;
  if (FProblem.empty() && !found.IsInside)
    FProblem = wanted.front() + " leads out of the profile's path";
}

TRecordReading TRecordStore::Read(IRemoteConnection& connection) const {
  return ReadingOf(ReadContent(connection));
}

TRemoteContent TRecordStore::ReadContent(IRemoteConnection& connection) const {
  if (!FExists || !FProblem.empty())
    return {};
  return connection.ReadFile({FDirectory, std::string(RecordName)}, LargestRecord);
}

TRecordReading TRecordStore::ReadingOf(const TRemoteContent& content) {
  if (!content.Problem.empty())
    return {.State = TRecordState::Damaged, .Problem = content.Problem};
  return content.IsThere ? ParseRecord(content.Text) : TRecordReading{};
}

std::string TRecordStore::MakeDirectory(IRemoteConnection& connection) {
  if (FExists || !FProblem.empty())
    return FProblem;
  FProblem = connection.MakeDirectories({&FDirectory, 1}).front();
  FExists = FProblem.empty();
  return FProblem;
}

std::string TRecordStore::Write(IRemoteConnection& connection, const TTargetRecord& record,
                                const std::vector<TRecordedRun>& runs) const {
  try {
    return Write(connection,
                 TSentText([&](const TTakeText& take) { WriteRecord(record, runs, take); }));
  } catch (const std::system_error& error) {
    return error.what();
  }
}

std::string TRecordStore::Write(IRemoteConnection& connection, const TSentText& record) const {
  return PutText(connection, {FDirectory, std::string(RecordName)}, record);
}

void TRecordStore::RemoveUnfinished(IRemoteConnection& connection) const {
  const std::array places{
      TSendRequest{.LocalFile = {}, .Target = {FDirectory, std::string(RecordName)}},
      TSendRequest{.LocalFile = {}, .Target = {TUndoStore(FDirectory).Directory(), {}}}};
  connection.RemoveUnfinished(places);
}

std::string TRecordStore::SetAside(IRemoteConnection& connection) const {
  return connection.Rename({FDirectory, std::string(RecordName)}, std::string(DamagedRecordName));
}

} // namespace workbench
