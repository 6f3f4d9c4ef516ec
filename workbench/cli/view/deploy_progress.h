// What a deploy prints while it runs.
#pragma once

#include "workbench/cli/context/output.h"
#include "workbench/deploy/deploy_observer.h"
#include "workbench/deploy/transfer_rate.h"

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace workbench {

/// The line of a file: what happened, or would happen, to it.
std::string DeployLine(const TDeployRow& row, bool dryRun);

/// A number of bytes for people, such as "3.2 MiB".
std::string BytesText(std::uint64_t bytes);

/// At a terminal a bar with files, bytes, rate and time left; else a line for each file, in the
/// order of the list.
class TDeployProgress final : public IDeployObserver {
public:
  explicit TDeployProgress(TOutput& output);

  void Planned(const std::vector<TDeployRow>& rows) override;
  void BytesSent(std::uint64_t count) override;
  void RowDone(std::size_t index, const TDeployRow& row) override;
  /// Goes to standard error: standard output carries results.
  void CommandSaid(const std::string& line) override;
  /// Takes the bar away.
  void Finish();

private:
  using TClock = std::chrono::steady_clock;

  void PrintDone();
  void DrawBar();
  std::string BarText(TClock::time_point now) const;

  TOutput& FOutput;
  const bool FHasBar;
  std::vector<TDeployRow> FRows;
  std::vector<bool> FDone;
  std::size_t FPrinted = 0;
  std::size_t FDoneCount = 0;
  TTransferRate FRate;
  TClock::time_point FDrawn = {};
};

} // namespace workbench
