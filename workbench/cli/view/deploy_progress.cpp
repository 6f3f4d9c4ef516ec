#include "workbench/cli/view/deploy_progress.h"

#include <array>
#include <cstdio>
#include <iostream>
#include <unistd.h>

namespace workbench {
namespace {

constexpr std::chrono::milliseconds RedrawInterval(100);
constexpr std::size_t BarWidth = 24;
constexpr const char* ClearLine = "\r\x1b[K";

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
  if (!row.Link.empty())
    line += " (a link to " + Visible(row.Link) + ")";
  if (dryRun && row.Action == TDeployAction::Failed)
    line = "would fail" + line.substr(std::string("would be failed").size());
  const std::string& why = row.Error.empty() ? row.Reason : row.Error;
  return why.empty() ? line : line + ": " + Visible(why);
}

TDeployProgress::TDeployProgress(TOutput& output)
    : FOutput(output), FHasBar(!output.IsJson() && !output.IsQuiet() &&
                               ::isatty(STDOUT_FILENO) == 1 && ::isatty(STDERR_FILENO) == 1) {}

void TDeployProgress::Planned(const std::vector<TDeployRow>& rows) {
  FRows = rows;
  FDone.assign(rows.size(), false);
  std::uint64_t wanted = 0;
  for (const TDeployRow& row : rows)
    wanted += row.Bytes;
  FRate.Start(wanted, TClock::now());
}

void TDeployProgress::BytesSent(std::uint64_t count) {
  FRate.Add(count, TClock::now());
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
  const auto filled = static_cast<std::size_t>(FRate.Share() * static_cast<double>(BarWidth));
  std::string text = "[" + std::string(filled, '#') + std::string(BarWidth - filled, ' ') + "] " +
                     std::to_string(FDoneCount) + "/" + std::to_string(FRows.size()) + " files, " +
                     BytesText(FRate.Sent()) + " of " + BytesText(FRate.Wanted()) + ", " +
                     BytesText(static_cast<std::uint64_t>(FRate.BytesPerSecond(now))) + "/s";
  if (const auto left = FRate.TimeLeft(now))
    text += ", " + DurationText(*left) + " left";
  return text;
}

void TDeployProgress::Finish() {
  if (FHasBar)
    std::cerr << ClearLine << std::flush;
}

} // namespace workbench
