#include "workbench/deploy/record/sent_text.h"

#include "workbench/files/file_descriptor.h"
#include "workbench/files/runtime_directory.h"

#include <cstdlib>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace workbench {
namespace {

constexpr mode_t SentMode = 0644;

void WritePiece(const TFileDescriptor& file, std::string_view piece) {
  while (!piece.empty()) {
    const ssize_t count = ::write(file.Get(), piece.data(), piece.size());
    if (count < 0 && errno != EINTR)
      ThrowSystemError("writing a temporary file");
    piece.remove_prefix(count > 0 ? static_cast<std::size_t>(count) : 0);
  }
}

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

TSentText::TSentText(const std::function<void(const TTakeText& take)>& write) {
  std::string name = (RuntimeDirectory() / "record-XXXXXX").string();
  const TFileDescriptor file(::mkstemp(name.data()));
  if (!file.IsOpen())
    ThrowSystemError("making a temporary file");
  try {
    write([&file](std::string_view piece) { WritePiece(file, piece); });
  } catch (...) {
    ::unlink(name.c_str());
    throw;
  }
  static_cast<void>(::fchmod(file.Get(), SentMode));
  FFile = name;
}

TSentText::~TSentText() {
  ::unlink(FFile.c_str());
}

std::string PutText(IRemoteConnection& connection, const TRemoteName& name, const TSentText& text) {
  TOneFile job({.LocalFile = text.File(), .Target = name});
  connection.Send(job);
  return job.Problem;
}

std::string PutText(IRemoteConnection& connection, const TRemoteName& name, std::string_view text) {
  try {
    return PutText(connection, name, TSentText([text](const TTakeText& take) { take(text); }));
  } catch (const std::system_error& error) {
    return error.what();
  }
}

} // namespace workbench
