// TChildProcess once more, which the linker takes in the stead of the one that starts programs.
#include "fuzz/sftp/spoken_process.h"

#include "workbench/process/child_process.h"

#include <array>
#include <fcntl.h>
#include <unistd.h>

namespace workbench {
namespace {

fuzz::TModelServer* Server = nullptr;
TFileDescriptor Replies; // where the server writes
bool HasSentAll = false;

constexpr int PipeSize = 1024 * 1024; // more than a run says

struct TEnds {
  TFileDescriptor Read, Write;
};

TEnds OpenPipe() {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
    ThrowSystemError("opening a pipe");
  return {TFileDescriptor(ends[0]), TFileDescriptor(ends[1])};
}

void Reply(std::string_view bytes) {
  if (!bytes.empty() && ::write(Replies.Get(), bytes.data(), bytes.size()) < 0)
    ThrowSystemError("answering");
  if (Server->HasEnded() && !HasSentAll) {
    HasSentAll = true;
    Replies = TFileDescriptor();
  }
}

} // namespace

std::vector<std::string> EnvironmentWith(const std::vector<std::string>& changes) {
  return changes;
}

TChildProcess::TChildProcess(const TProcessStart& /*start*/) {
  TEnds output = OpenPipe();
  ::fcntl(output.Write.Get(), F_SETPIPE_SZ, PipeSize);
  FOutput = std::move(output.Read);
  Replies = std::move(output.Write);
  FInput = TFileDescriptor(::open("/dev/null", O_WRONLY | O_CLOEXEC));
  HasSentAll = false;
}

ssize_t TChildProcess::Write(std::string_view bytes) {
  if (Server->HasEnded()) {
    errno = EPIPE;
    return -1;
  }
  Reply(Server->Hear(bytes));
  return static_cast<ssize_t>(bytes.size());
}

void TChildProcess::ReadErrors() {}

std::optional<int> TChildProcess::Wait(std::chrono::milliseconds /*patience*/) {
  FStatus = 0;
  return FStatus;
}

void TChildProcess::End() {
  CloseInput();
  FProcess = -1;
  Replies = TFileDescriptor();
}

namespace fuzz {

void SpeakWith(TModelServer& server) {
  Server = &server;
}

} // namespace fuzz
} // namespace workbench
