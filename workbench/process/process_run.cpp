#include "workbench/process/process_run.h"

#include <array>
#include <cerrno>
#include <poll.h>

namespace workbench {
namespace {

constexpr int PollPatience = 50; // milliseconds
constexpr std::size_t BlockSize = std::size_t(64) * 1024;
constexpr std::size_t LongestLine = std::size_t(64) * 1024; // longer ones come in pieces
constexpr std::chrono::milliseconds AnswerInterval(50);

// What is on its way to the program.
class TInput {
public:
  TInput(TChildProcess& process, const TFeed& feed)
      : FProcess(process), FFeed(feed), FMore(static_cast<bool>(feed)) {
    Fill();
  }

  void Write() {
    const ssize_t count = FProcess.Write(FBytes.View());
    if (count >= 0)
      FBytes.Drop(static_cast<std::size_t>(count));
    else if (errno != EAGAIN && errno != EINTR)
      return FProcess.CloseInput(); // it does not want to hear the rest
    Fill();
  }

private:
  void Fill() {
    while (FMore && FBytes.Size() < BlockSize)
      FMore = FFeed(FBytes);
    if (FBytes.IsEmpty())
      FProcess.CloseInput();
  }

  TChildProcess& FProcess;
  const TFeed& FFeed;
  bool FMore;
  TByteBuffer FBytes;
};

// False when the output has ended.
bool ReadSome(const TChildProcess& process, const std::function<void(std::string_view)>& hear) {
  std::array<char, BlockSize> block;
  const ssize_t count = ::read(process.Output(), block.data(), block.size());
  if (count > 0)
    hear({block.data(), static_cast<std::size_t>(count)});
  return count > 0 || (count < 0 && (errno == EAGAIN || errno == EINTR));
}

} // namespace

std::string TProcessEnd::Problem() const {
  constexpr int SignalStart = 128;
  if (Interrupted)
    return "was interrupted";
  if (Status > SignalStart)
    return "was ended by signal " + std::to_string(Status - SignalStart);
  return Status == 0 ? std::string() : "ended with status " + std::to_string(Status);
}

TProcessEnd RunProcess(const TProcessStart& start, const TFeed& feed,
                       const std::function<void(std::string_view)>& hearOutput,
                       const TIsCancelled& isCancelled) {
  TChildProcess process(start);
  TInput input(process, feed);
  TProcessEnd end;
  for (bool isOpen = true; isOpen && !isCancelled();) {
    std::array<pollfd, 3> files{{{process.Output(), POLLIN, 0},
                                 {process.Errors(), POLLIN, 0},
                                 {process.Input(), POLLOUT, 0}}};
    if (::poll(files.data(), files.size(), PollPatience) <= 0) {
      isOpen = !process.Wait(std::chrono::milliseconds(0));
      continue; // what it started in the background may hold its output open
    }
    if (files[1].revents != 0)
      process.ReadErrors();
    if (files[2].revents != 0)
      input.Write();
    if (files[0].revents != 0)
      isOpen = ReadSome(process, hearOutput);
  }
  while (!end.Interrupted && !process.Wait(AnswerInterval)) {
    end.Interrupted = isCancelled();
    process.ReadErrors();
  }
  if (end.Interrupted)
    process.End();
  process.ReadErrors();
  end.Status = process.Wait(std::chrono::milliseconds(0)).value_or(-1);
  end.Errors = process.ErrorText();
  return end;
}

void TLineSplitter::Add(std::string_view bytes) {
  FRest += bytes;
  std::size_t start = 0;
  for (std::size_t end = 0; (end = FRest.find('\n', start)) != std::string::npos; start = end + 1)
    FHear(std::string_view(FRest).substr(start, end - start));
  FRest.erase(0, start);
  if (FRest.size() > LongestLine)
    Finish();
}

void TLineSplitter::Finish() {
  if (!FRest.empty())
    FHear(FRest);
  FRest.clear();
}

} // namespace workbench
