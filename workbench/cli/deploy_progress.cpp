#include "workbench/cli/deploy_progress.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <iostream>
#include <unistd.h>

namespace workbench {
namespace {

constexpr std::chrono::milliseconds RedrawInterval(100);
constexpr std::size_t BarWidth = 24;
constexpr const char* ClearLine = "\r\x1b[K";

std::string TimeText(double seconds) {
  std::array<char, 32> text = {};
  const auto whole = std::lround(seconds);
  std::snprintf(text.data(), text.size(), "%ld:%02ld", whole / 60, whole % 60);
  return text.data();
}

} // namespace

std::string BytesText(std::uint64_t bytes) {
  constexpr std::array<const char*, 5> Units{"B", "KiB", "MiB", "GiB", "TiB"};
  auto value = static_cast<double>(bytes);
  std::size_t unit = 0;
  for (; value >= 1024 && unit + 1 < Units.size(); ++unit)
    value /= 1024;
  std::array<char, 32> text = {};
  std::snprintf(text.data(), text.size(), unit == 0 ? "%.0f %s" : "%.1f %s", value, Units[unit]);
  return text.data();
}

std::string DeployLine(const TDeployRow& row, bool dryRun) {
  const std::string action(DeployActionName(row.Action));
  std::string line = (dryRun ? "would be " : "") + action + " " + Visible(row.LocalName) + " -> " +
                     Visible(row.RemoteFile);
  if (dryRun && row.Action == TDeployAction::Failed)
    line = "would fail" + line.substr(std::string("would be failed").size());
  return row.Error.empty() ? line : line + ": " + Visible(row.Error);
}

TDeployProgress::TDeployProgress(TOutput& output)
    : FOutput(output), FHasBar(!output.IsJson() && !output.IsQuiet() &&
                               ::isatty(STDOUT_FILENO) == 1 && ::isatty(STDERR_FILENO) == 1) {}

void TDeployProgress::Planned(const std::vector<TDeployRow>& rows) {
  FRows = rows;
  FDone.assign(rows.size(), false);
  for (const TDeployRow& row : rows)
    FBytesWanted += row.Bytes;
  FStarted = TClock::now();
}

void TDeployProgress::BytesSent(std::uint64_t count) {
  FBytesSent += count;
  DrawBar();
}

void TDeployProgress::RowDone(std::size_t index, const TDeployRow& row) {
  FRows[index] = row;
  FDone[index] = true;
  ++FDoneCount;
  if (FHasBar)
    DrawBar();
  else
    PrintDone();
}

void TDeployProgress::CommandSaid(const std::string& line) {
  std::cerr << (FHasBar ? ClearLine : "") << Visible(line) << std::endl;
}

void TDeployProgress::PrintDone() {
  if (FOutput.IsJson() || FOutput.IsQuiet())
    return;
  for (; FPrinted < FRows.size() && FDone[FPrinted]; ++FPrinted)
    FOutput.Line(DeployLine(FRows[FPrinted], /*dryRun=*/false));
}

void TDeployProgress::DrawBar() {
  const auto now = TClock::now();
  if (!FHasBar || now - FDrawn < RedrawInterval)
    return;
  FDrawn = now;
  std::cerr << ClearLine << BarText(now) << std::flush;
}

std::string TDeployProgress::BarText(TClock::time_point now) const {
  const double seconds = std::chrono::duration<double>(now - FStarted).count();
  const auto sent = static_cast<double>(FBytesSent);
  const double rate = seconds > 0 ? sent / seconds : 0;
  const double share =
      FBytesWanted > 0 ? std::min(1.0, sent / static_cast<double>(FBytesWanted)) : 1.0;
  const auto filled = static_cast<std::size_t>(share * static_cast<double>(BarWidth));
  std::string text = "[" + std::string(filled, '#') + std::string(BarWidth - filled, ' ') + "] " +
                     std::to_string(FDoneCount) + "/" + std::to_string(FRows.size()) + " files, " +
                     BytesText(FBytesSent) + " of " + BytesText(FBytesWanted) + ", " +
                     BytesText(static_cast<std::uint64_t>(rate)) + "/s";
  if (rate > 0 && FBytesWanted > FBytesSent)
    text += ", " + TimeText(static_cast<double>(FBytesWanted - FBytesSent) / rate) + " left";
  return text;
}

void TDeployProgress::Finish() {
  if (FHasBar)
    std::cerr << ClearLine << std::flush;
}

} // namespace workbench
