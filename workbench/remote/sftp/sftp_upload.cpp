#include "workbench/remote/sftp/sftp_upload.h"

#include "workbench/files/file_reader.h"
#include "workbench/remote/sftp/sftp_upload_file.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <thread>
#include <utility>

namespace workbench {
namespace {

// How many files are open at a time. A server works slower the more there are, so that they are
// only as many as keep it busy: each file waits four times for an answer.
constexpr std::size_t FewestUploads = 128;
constexpr std::size_t MostUploads = 768;
constexpr unsigned AnswersPerFile = 4;
constexpr std::chrono::microseconds WorkPerFile(60);
// Other channels, such as those to other targets, close files all the time.
constexpr std::chrono::milliseconds WaitForFiles(10);
constexpr int MostWaits = 500;
constexpr std::string_view Interrupted = "the run was interrupted";
constexpr std::string_view Changed = "it changed while it was copied";

std::size_t FilesFor(const TSftpLimits& limits) {
  const auto busy = static_cast<std::size_t>(AnswersPerFile * limits.RoundTrip / WorkPerFile);
  return std::min(std::clamp(busy, FewestUploads, MostUploads), limits.MostHandles);
}

std::uint32_t Stamp(time_t seconds) {
  return static_cast<std::uint32_t>(std::clamp<time_t>(seconds, 0, 0xffffffff));
}

// Bytes that the disk still takes, from the answer to a space query.
std::uint64_t FreeSpace(TSftpParser answer) {
  answer.LongNumber(); // block size
  const std::uint64_t unit = answer.LongNumber();
  answer.LongNumber(); // blocks
  answer.LongNumber(); // free ones
  return unit * answer.LongNumber();
}

// The local file, opened without waiting for anyone; errno tells why not.
TFileDescriptor OpenSource(const TSendRequest& request) {
  return TFileDescriptor(::open(request.LocalFile.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
}

std::string SourceProblem(const struct stat& status) {
  return S_ISREG(status.st_mode) ? std::string()
                                 : "reading it: it is " + std::string(KindOfFile(status.st_mode));
}

// This process, or this machine, has as many files open as it may.
bool IsTooManyFiles(int error) {
  return error == EMFILE || error == ENFILE;
}

} // namespace

TSftpUpload::TSftpUpload(ISendJob& job, TUnfinishedNames& names, const TSftpLimits& limits,
                         bool setsModes, TFindPart findPart)
    : FJob(job), FNames(names), FLimits(limits), FSetsModes(setsModes),
      FMostFiles(FilesFor(limits)), FFindPart(std::move(findPart)) {}

TSftpUpload::~TSftpUpload() = default;

bool TSftpUpload::PostNext(TSftpChannel& channel) {
  const bool hasBlocks = !FWriting.empty();
  if ((FStartNext || !hasBlocks) && Start(channel)) {
    FStartNext = false;
    return true;
  }
  FStartNext = true;
  if (!hasBlocks)
    return false;
  TFile& file = *FFiles[FWriting.front()];
  FWriting.pop_front();
  file.IsQueued = false;
  Continue(channel, file);
  return true;
}

TSftpUpload::TFile& TSftpUpload::TakeSlot() {
  if (FFree.empty()) {
    FFree.push_back(FFiles.size());
    FFiles.emplace_back();
  }
  const std::size_t slot = FFree.back();
  FFree.pop_back();
  FFiles[slot] = std::make_unique<TFile>(slot);
  return *FFiles[slot];
}

// Begins with the next file; false when there is none to begin with.
bool TSftpUpload::Start(TSftpChannel& channel) {
  if (FHeldBack)
    return StartHeldBack(channel);
  const std::size_t active = FFiles.size() - FFree.size();
  if (FNoMore || FJob.IsCancelled() || active >= FMostFiles)
    return false;
  const TSendRequest* request = FJob.Next();
  if (!request) {
    FNoMore = true;
    return false;
  }
  TFile& file = TakeSlot();
  file.Request = request;
  Begin(channel, file);
  return true;
}

bool TSftpUpload::StartHeldBack(TSftpChannel& channel) {
  const std::size_t others = FFiles.size() - FFree.size() - 1;
  if (others >= FMostFiles && !FJob.IsCancelled())
    return false;
  TFile& file = *std::exchange(FHeldBack, nullptr);
  if (FJob.IsCancelled()) {
    file.Outcome.Problem = Interrupted;
    End(file);
  } else {
    Begin(channel, file);
  }
  return true;
}

// Of many targets at once each channel would open as many files as if it were alone. Where they are
// too many for this process the file waits until another one is closed, and fewer are open from
// then on; the only one of a channel waits for what other channels close.
bool TSftpUpload::HoldBack(TFile& file, int error) {
  if (!IsTooManyFiles(error))
    return false;
  const std::size_t others = FFiles.size() - FFree.size() - 1;
  if (others > 0 && !FHeldBack) {
    FMostFiles = others;
    FHeldBack = &file;
    return true;
  }
  for (int i = 0; FMayWait && i < MostWaits && !FJob.IsCancelled(); ++i) {
    std::this_thread::sleep_for(WaitForFiles);
    file.Source = OpenSource(*file.Request);
    if (file.Source.IsOpen())
      return false;
  }
  FMayWait = false;
  return false;
}

void TSftpUpload::Begin(TSftpChannel& channel, TFile& file) {
  file.Source = OpenSource(*file.Request);
  if (const int error = errno; !file.Source.IsOpen() && HoldBack(file, error))
    return;
  ++file.Attempts;
  if (!file.Source.IsOpen() || ::fstat(file.Source.Get(), &file.Status) != 0)
    file.Outcome.Problem = "reading it: " + SystemReason(errno);
  else
    file.Outcome.Problem = SourceProblem(file.Status);
  if (!file.Outcome.Problem.empty())
    return End(file);
  file.Offset = 0;
  file.IsWhole = false;
  file.CanStay = file.Size() >= LargeFileSize;
  std::uint32_t flags = sftp_open::Write;
  const auto part =
      file.CanStay && FFindPart ? FFindPart(*file.Request, file.Status) : std::nullopt;
  const bool goesOn = part && part->Size > 0;
  if (part && !goesOn) {
    channel.Begin(TSftpPacket::Remove).Text(file.Path(part->Name));
    Post(channel, file, TStep::Remove);
  }
  file.Digest = goesOn ? nullptr : std::make_unique<TSHA256>();
  if (goesOn) {
    file.Name = part->Name;
    file.Offset = part->Size;
    file.WasMade = true;
  } else {
    flags |= sftp_open::Create | sftp_open::Exclusive;
    file.Name = FNames.Next(file.CanStay ? SourceMark(file.Request->LocalFile.native(), file.Status)
                                         : std::string());
  }
  TSftpWriter& writer = channel.Begin(TSftpPacket::Open);
  writer.Text(file.Path(file.Name));
  writer.Number(flags);
  writer.Attributes({.Mode = RightsFor(file.Status.st_mode, file.Request->MakeExecutable)});
  Post(channel, file, TStep::Open);
}

void TSftpUpload::Queue(TFile& file) {
  file.IsQueued = true;
  FWriting.push_back(file.Slot);
}

void TSftpUpload::Continue(TSftpChannel& channel, TFile& file) {
  if (FJob.IsCancelled() && file.Outcome.Problem.empty())
    file.Outcome.Problem = Interrupted;
  if (!file.Outcome.Problem.empty())
    return WhenAnswered(channel, file);
  WriteBlock(channel, file);
  if (!file.Outcome.Problem.empty())
    return WhenAnswered(channel, file);
  if (file.Offset < file.Size())
    Queue(file);
  else
    Complete(channel, file);
}

void TSftpUpload::WriteBlock(TSftpChannel& channel, TFile& file) {
  const std::size_t size = static_cast<std::size_t>(
      std::min<std::uint64_t>(FLimits.LargestWrite, file.Size() - file.Offset));
  TSftpWriter& writer = channel.Begin(TSftpPacket::Write);
  writer.Text(file.Handle);
  writer.LongNumber(file.Offset);
  const std::span<char> room = writer.Room(size);
  std::size_t filled = 0;
  while (filled < size) {
    const ssize_t count = ::pread(file.Source.Get(), room.data() + filled, size - filled,
                                  static_cast<off_t>(file.Offset + filled));
    if (count > 0)
      filled += static_cast<std::size_t>(count);
    else if (count == 0 || errno != EINTR)
      break;
  }
  if (filled < size) {
    // The request is begun and has to be completed; what it writes goes with the file.
    std::ranges::fill(room.subspan(filled), '\0');
    file.Outcome.Problem = Changed;
    file.CanStay = false;
  }
  if (file.Digest)
    file.Digest->Add({room.data(), filled});
  file.Offset += size;
  file.Outcome.Bytes += filled;
  Post(channel, file, TStep::Write);
  FJob.BytesSent(filled);
}

// All bytes are out: the server takes requests in their order.
void TSftpUpload::Complete(TSftpChannel& channel, TFile& file) {
  if (FLimits.HasSync && file.Size() >= SyncedFileSize) {
    channel.BeginExtended(sftp_extension::Sync).Text(file.Handle);
    Post(channel, file, TStep::Write);
  }
  TSftpWriter& writer = channel.Begin(TSftpPacket::FSetStat);
  const std::uint32_t time = Stamp(file.Status.st_mtim.tv_sec);
  writer.Text(file.Handle);
  TSftpAttributes attributes{.Accessed = time, .Modified = time};
  if (FSetsModes)
    attributes.Mode = RightsFor(file.Status.st_mode, file.Request->MakeExecutable);
  writer.Attributes(attributes);
  Post(channel, file, TStep::Stamp);
  channel.Begin(TSftpPacket::FStat).Text(file.Handle);
  Post(channel, file, TStep::Look);
  channel.Begin(TSftpPacket::Close).Text(file.Handle);
  Post(channel, file, TStep::Close);
  file.IsOpen = false;
  file.IsWhole = true;
  file.Outcome.Size = file.Size();
  file.Outcome.Time = file.Status.st_mtim.tv_sec;
  file.Outcome.Mode = RightsFor(file.Status.st_mode, file.Request->MakeExecutable);
  if (file.Digest)
    file.Outcome.Hash = file.Digest->Text();
}

void TSftpUpload::OnReply(TSftpChannel& channel, std::uint64_t cookie, const TSftpReply& reply) {
  TFile& file = *FFiles[cookie / StepRange];
  --file.Waiting;
  const TSftpStatus status = reply.Status();
  const auto note = [&](std::string_view action) {
    if (status != TSftpStatus::Ok && file.Outcome.Problem.empty())
      file.Outcome.Problem = std::string(action) + ": " + SftpStatusText(status);
  };
  switch (static_cast<TStep>(cookie % StepRange)) {
  case TStep::Open:
    Opened(file, reply);
    break;
  case TStep::Write:
    file.WriteFailed = file.WriteFailed || status == TSftpStatus::Failure;
    note("writing it");
    break;
  case TStep::Stamp:
    note("setting the time stamp");
    break;
  case TStep::Close:
    note("closing it");
    break;
  case TStep::Rename:
    Renamed(channel, file, status);
    break;
  case TStep::SetAside:
    if (status == TSftpStatus::Ok) {
      PostPlainRename(channel, file, file.Name, file.Request->Target.Name, TStep::RenameAgain);
    } else {
      file.Aside.clear(); // it stays where it is
      note("putting it in place");
    }
    break;
  case TStep::RenameAgain:
    RenamedAgain(channel, file, status);
    break;
  case TStep::PutBack:
    PutBack(file, status);
    break;
  case TStep::Look:
    Looked(channel, file, reply);
    break;
  case TStep::Remove:
    break;
  case TStep::Space:
    if (reply.Kind == TSftpPacket::ExtendedReply && FreeSpace(reply.Content) < file.Size())
      file.Outcome.Problem += "; the disk of the target is full";
    break;
  }
  WhenAnswered(channel, file);
}

void TSftpUpload::Opened(TFile& file, const TSftpReply& reply) {
  if (reply.Kind == TSftpPacket::Handle) {
    TSftpParser content = reply.Content;
    file.Handle = content.Text();
    file.IsOpen = true;
    file.WasMade = true;
    Queue(file);
    return;
  }
  const TSftpStatus status = reply.Status();
  file.Outcome.Problem =
      "making a temporary file beside it: " +
      (status == TSftpStatus::Ok ? "the server gives no handle" : SftpStatusText(status));
}

// Goes on with a file whose requests are all answered.
void TSftpUpload::WhenAnswered(TSftpChannel& channel, TFile& file) {
  if (file.Waiting > 0 || file.IsQueued)
    return;
  if (!file.Outcome.Problem.empty())
    return TakeBack(channel, file);
  if (file.IsRenamed)
    return End(file);
  struct stat after = {};
  if (::fstat(file.Source.Get(), &after) == 0 && IdentityOf(after) == IdentityOf(file.Status))
    return PostRename(channel, file);
  file.Outcome.Problem = Changed;
  TakeBack(channel, file);
}

// Leaves nothing behind of a file that is not to be whole, and begins anew with one that changed.
void TSftpUpload::TakeBack(TSftpChannel& channel, TFile& file) {
  if (file.IsOpen) {
    file.IsOpen = false;
    channel.Begin(TSftpPacket::Close).Text(file.Handle);
    Post(channel, file, TStep::Remove);
  }
  if (file.WriteFailed && FLimits.HasSpaceQuery) {
    file.WriteFailed = false; // asked once
    channel.BeginExtended(sftp_extension::SpaceQuery).Text(file.Request->Target.Directory);
    Post(channel, file, TStep::Space);
  }
  const bool stays = file.CanStay && file.Outcome.Problem == Interrupted;
  if (file.WasMade && !stays) {
    file.WasMade = false;
    channel.Begin(TSftpPacket::Remove).Text(file.Path(file.Name));
    Post(channel, file, TStep::Remove);
  }
  if (file.Waiting > 0)
    return; // comes back here
  if (file.Outcome.Problem != Changed || file.Attempts > 1)
    return End(file);
  file.Outcome.Problem.clear();
  Begin(channel, file);
}

void TSftpUpload::End(TFile& file) {
  FJob.FileDone(*file.Request, file.Outcome);
  FFree.push_back(file.Slot);
  file.Source = TFileDescriptor();
}

} // namespace workbench
