#include "workbench/deploy/record/record_store.h"

#include "workbench/deploy/record/record_place.h"
#include "workbench/deploy/record/undo_store.h"
#include "workbench/files/file_descriptor.h"
#include "workbench/files/runtime_directory.h"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace workbench {
namespace {

constexpr mode_t RecordMode = 0644;

// A file of this machine that goes with the object.
class TTemporaryFile {
public:
  explicit TTemporaryFile(std::string_view text) {
    std::string name = (RuntimeDirectory() / "record-XXXXXX").string();
    const TFileDescriptor file(::mkstemp(name.data()));
    if (!file.IsOpen())
      ThrowSystemError("making a temporary file");
    FName = name;
    while (!text.empty()) {
      const ssize_t count = ::write(file.Get(), text.data(), text.size());
      if (count < 0 && errno != EINTR)
        ThrowSystemError("writing a temporary file");
      text.remove_prefix(count > 0 ? static_cast<std::size_t>(count) : 0);
    }
    static_cast<void>(::fchmod(file.Get(), RecordMode));
  }
  ~TTemporaryFile() { ::unlink(FName.c_str()); }
  TTemporaryFile(const TTemporaryFile&) = delete;
  TTemporaryFile& operator=(const TTemporaryFile&) = delete;

  const std::filesystem::path& Name() const { return FName; }

private:
  std::filesystem::path FName;
};

class TOneFile final : public ISendJob {
public:
  explicit TOneFile(TSendRequest request) : FRequest(std::move(request)) {}

  bool IsCancelled() const override { return false; } // short, and it ends what was begun
  const TSendRequest* Next() override {
    return std::exchange(FIsTaken, true) ? nullptr : &FRequest;
  }
  void BytesSent(std::uint64_t /*count*/) override {}
  void FileDone(const TSendRequest& /*request*/, const TSendOutcome& outcome) override {
    Problem = outcome.Problem;
  }

  std::string Problem = "it was not sent";

private:
  TSendRequest FRequest;
  bool FIsTaken = false;
};

} // namespace

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

std::string PutText(IRemoteConnection& connection, const TRemoteName& name, std::string_view text) {
  try {
    const TTemporaryFile file(text);
    TOneFile job({.LocalFile = file.Name(), .Target = name});
    connection.Send(job);
    return job.Problem;
  } catch (const std::system_error& error) {
    return error.what();
  }
}

std::string TRecordStore::Write(IRemoteConnection& connection, const TTargetRecord& record) const {
  return PutText(connection, {FDirectory, std::string(RecordName)}, RecordText(record));
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
