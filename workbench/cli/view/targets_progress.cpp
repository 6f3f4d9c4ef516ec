#include "workbench/cli/view/targets_progress.h"

#include "workbench/cli/view/deploy_progress.h"
#include "workbench/text/utf8.h"
#include "workbench/text/visible_text.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <iostream>
#include <sys/ioctl.h>
#include <unistd.h>

namespace workbench {
namespace {

struct TScreen {
  std::size_t Lines = 24;
  std::size_t Columns = 80;
};

TScreen Screen() {
  winsize size = {};
  if (::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_row == 0 || size.ws_col == 0)
    return {};
  return {size.ws_row, size.ws_col};
}

// The text cut at a number of letters.
std::string Cut(const std::string& text, std::size_t letters) {
  std::size_t end = 0;
  for (std::size_t count = 0; end < text.size(); ++end) {
    const bool isStart = (static_cast<unsigned char>(text[end]) & 0xC0U) != 0x80U;
    if (isStart && count++ == letters)
      break;
  }
  return text.substr(0, end);
}

} // namespace

// Its numbers are changed by the threads of its deploy and read by the one that draws.
class TTargetsProgress::TTarget final : public IDeployObserver {
public:
  TTarget(TTargetsProgress& progress, std::string name)
      : FProgress(progress), FName(std::move(name)) {}

  void Planned(const std::vector<TDeployRow>& rows) override {
    std::uint64_t wanted = 0;
    for (const TDeployRow& row : rows)
      wanted += row.Bytes;
    FWanted = wanted;
    FRows = rows.size();
  }
  void BytesSent(std::uint64_t count) override { FSent += count; }
  void RowDone(std::size_t /*index*/, const TDeployRow& /*row*/) override { ++FDone; }
  void CommandSaid(const std::string& line) override {
    const std::lock_guard lock(FProgress.FMutex);
    FProgress.ClearLines();
    std::cerr << FName << ": " << Visible(line) << std::endl;
  }

  std::string Line() const {
    if (FRows == 0)
      return FName + "  ...";
    return FName + "  " + std::to_string(FDone) + "/" + std::to_string(FRows) + " files, " +
           BytesText(FSent) + " of " + BytesText(FWanted);
  }

  std::atomic<bool> IsRunning = false;

private:
  TTargetsProgress& FProgress;
  const std::string FName;
  std::atomic<std::size_t> FRows = 0;
  std::atomic<std::size_t> FDone = 0;
  std::atomic<std::uint64_t> FSent = 0;
  std::atomic<std::uint64_t> FWanted = 0;
};

TTargetsProgress::TTargetsProgress(const TOutput& output, const std::vector<std::string>& names)
    : FIsShown(!output.IsJson() && !output.IsQuiet() && output.IsTerminal() &&
               ::isatty(STDERR_FILENO) == 1) {
  FTargets.reserve(names.size());
  for (const std::string& name : names)
    FTargets.push_back(std::make_unique<TTarget>(*this, name));
}

TTargetsProgress::~TTargetsProgress() {
  Clear();
}

void TTargetsProgress::Begin(std::size_t target) {
  FTargets[target]->IsRunning = true;
}

void TTargetsProgress::End(std::size_t target) {
  FTargets[target]->IsRunning = false;
}

IDeployObserver& TTargetsProgress::ObserverOf(std::size_t target) {
  return *FTargets[target];
}

void TTargetsProgress::Draw() {
  if (!FIsShown)
    return;
  const TScreen screen = Screen();
  const std::lock_guard lock(FMutex);
  ClearLines();
  for (const std::unique_ptr<TTarget>& target : FTargets) {
    if (!target->IsRunning || FDrawn + 1 >= screen.Lines)
      continue;
    std::cerr << Cut(target->Line(), screen.Columns - 1) << '\n';
    ++FDrawn;
  }
  std::cerr << std::flush;
}

void TTargetsProgress::Clear() {
  const std::lock_guard lock(FMutex);
  ClearLines();
}

void TTargetsProgress::ClearLines() {
  if (FDrawn == 0)
    return;
  std::cerr << "\x1b[" << FDrawn << "A\r\x1b[J" << std::flush;
  FDrawn = 0;
}

} // namespace workbench
