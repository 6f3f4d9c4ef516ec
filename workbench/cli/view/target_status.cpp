#include "workbench/cli/view/target_status.h"

#include "workbench/cli/view/deploy_json.h"
#include "workbench/cli/view/deployment_view.h"
#include "workbench/text/visible_text.h"

#include <map>
#include <utility>

namespace workbench {
// The rows that a vector owns stay where they are when it is moved.
TTargetStatus::TTargetStatus(TDeployReport report, std::string asOf)
    : FReport(std::move(report)), FAsOf(std::move(asOf)) {
  for (const TDeployRow& row : FReport.Rows)
    FRows.emplace(row.LocalName, &row);
}

const TDeployRow* TTargetStatus::Find(const TViewRow& row) const {
  const auto found = row.Checked ? FRows.find(row.StoredName()) : FRows.end();
  return found == FRows.end() ? nullptr : found->second;
}

std::optional<TFileState> TTargetStatus::StateOf(const TViewRow& row) const {
  const TDeployRow* known = Find(row);
  return known ? known->State : std::nullopt;
}

void TTargetStatus::AddState(const TViewRow& row, TJson& entry) const {
  const TDeployRow* known = Find(row);
  entry.Add("state", StateJson(known ? known->State : std::nullopt));
  entry.Add("decidedBy", known && known->State ? TJson(known->ByHash ? "hash" : "time") : TJson());
}

void TTargetStatus::AddTarget(TJson& document) const {
  document.Add("leftOvers", LeftOversJson(FReport));
  document.Add("owed", OwedJson(FReport));
  document.Add("lastRun", FReport.LastRun ? RunJson(*FReport.LastRun) : TJson());
  document.Add("asOf", FAsOf.empty() ? TJson() : TJson(FAsOf));
}

std::vector<std::string> TTargetStatus::Summary() const {
  std::map<TFileState, std::size_t> counts;
  for (const TDeployRow& row : FReport.Rows) {
    if (row.State)
      ++counts[*row.State];
  }
  for (const TLeftOver& leftOver : FReport.LeftOvers)
    ++counts[leftOver.State];
  std::vector<std::string> lines;
  for (const TOwedCommand& owed : FReport.Owed)
    lines.push_back("still to be run for " + Visible(owed.RemoteFile) + ": " +
                    Visible(owed.Command));
  std::string text;
  for (const auto& [state, count] : counts)
    text += (text.empty() ? "" : ", ") + std::to_string(count) + " " +
            std::string(FileStateName(state));
  if (text.empty())
    text = "no files";
  if (const auto& run = FReport.LastRun) {
    text += "; last deployed by " + Visible(run->By) + " on " + Visible(run->Machine) + " at " +
            Visible(run->At);
    if (!run->Revision.empty())
      text += " from " + Visible(run->Revision);
  }
  lines.push_back(text);
  if (!FAsOf.empty())
    lines.push_back("as of " + Visible(FAsOf));
  return lines;
}

} // namespace workbench
