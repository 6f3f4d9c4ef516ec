#include "workbench/deploy/deploy_executor.h"

namespace workbench {

std::vector<TDeployRow> RowsOf(const TDeployPlan& plan) {
  std::vector<TDeployRow> rows;
  rows.reserve(plan.Files.size());
  for (const TPlannedFile& file : plan.Files)
    rows.push_back({.LocalName = file.File.LocalName,
                    .RemoteFile = file.RemoteFile(),
                    .Action = file.Action,
                    .Bytes = file.Bytes,
                    .Error = file.Action == TDeployAction::Failed ? file.Reason : std::string(),
                    .State = file.State,
                    .ByHash = file.ByHash,
                    .Reason = file.Action == TDeployAction::Refused ? file.Reason : std::string(),
                    .Link = file.Link,
                    .LocalFile = file.File.LocalFile,
                    .SizeHere = file.Local.Size,
                    .SizeThere = file.There.Size,
                    .TimeThere = file.There.Modified});
  return rows;
}

} // namespace workbench
