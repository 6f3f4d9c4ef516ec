// What a target says of the rows of a list: states, left-overs, what is owed, the last run.
#pragma once

#include "workbench/deploy/deploy_report.h"
#include "workbench/json/json.h"

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace workbench {

struct TViewRow;

class TTargetStatus {
public:
  /// `report` is that of a plan for the target that was not carried out.
  /// `asOf` is when that was, where it was not now.
  explicit TTargetStatus(TDeployReport report, std::string asOf = {});
  TTargetStatus(const TTargetStatus&) = delete;
  TTargetStatus& operator=(const TTargetStatus&) = delete;
  TTargetStatus(TTargetStatus&&) = default;
  TTargetStatus& operator=(TTargetStatus&&) = delete;
  ~TTargetStatus() = default;

  const TDeployReport& Report() const { return FReport; }
  /// The state of a row; nothing where the target says none.
  std::optional<TFileState> StateOf(const TViewRow& row) const;
  /// Adds "state" and "decidedBy" to the JSON of a row; null where the target says nothing.
  void AddState(const TViewRow& row, TJson& entry) const;
  /// Adds "asOf" to the JSON of a row that has its state.
  void AddAge(TJson& entry) const {
    entry.Add("asOf", entry.At("state").IsNull() ? TJson() : TJson(FAsOf));
  }
  /// Adds what is not about a row: "leftOvers", "owed", "lastRun", "asOf".
  void AddTarget(TJson& document) const;
  /// For people: how many files are in which state, what is owed, and the last deploy.
  std::vector<std::string> Summary() const;

private:
  const TDeployRow* Find(const TViewRow& row) const;

  TDeployReport FReport;
  std::string FAsOf;
  std::unordered_map<std::string, const TDeployRow*> FRows; // by stored local name
};

} // namespace workbench
