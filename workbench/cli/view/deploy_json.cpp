#include "workbench/cli/view/deploy_json.h"

#include "workbench/cli/view/deploy_progress.h"

namespace workbench {

TDeployCounts::TDeployCounts(const TDeployReport& report) {
  for (const TDeployRow& row : report.Rows) {
    ++Rows[static_cast<std::size_t>(row.Action)];
    Bytes += row.Bytes;
  }
}

std::string TDeployCounts::Text() const {
  std::string text;
  for (std::size_t i = 0; i < Rows.size(); ++i) {
    const auto action = static_cast<TDeployAction>(i);
    if (Rows[i] > 0 || action == TDeployAction::Copied)
      text += (text.empty() ? "" : ", ") + std::to_string(Rows[i]) + " " +
              std::string(DeployActionName(action));
  }
  return text + " (" + BytesText(Bytes) + ")";
}

TJson StateJson(const std::optional<TFileState>& state) {
  return state ? TJson(FileStateName(*state)) : TJson();
}

TJson DeployJson(const std::string& platform, const std::string& configuration,
                 const TDeployReport& report) {
  TJson files = TJson::Array();
  for (const TDeployRow& row : report.Rows) {
    TJson file = {{"localName", row.LocalName},
                  {"remoteFile", row.RemoteFile},
                  {"action", DeployActionName(row.Action)},
                  {"bytes", row.Bytes},
                  {"error", row.Error},
                  {"state", StateJson(row.State)},
                  {"reason", row.Reason}};
    if (!row.Link.empty())
      file.Add("link", row.Link);
    files.Append(std::move(file));
  }
  TJson commands = TJson::Array();
  for (const TPlannedCommand& command : report.Planned)
    commands.Append({{"where", command.IsLocal ? "here" : "target"},
                     {"command", command.Command},
                     {"file", command.RemoteFile}});
  TJson document = {{"platform", platform},
                    {"configuration", configuration},
                    {"files", std::move(files)},
                    {"commands", std::move(commands)},
                    {"leftOvers", LeftOversJson(report)},
                    {"owed", OwedJson(report)}};
  const TDeployCounts counts(report);
  for (std::size_t i = 0; i < counts.Rows.size(); ++i) {
    const auto action = static_cast<TDeployAction>(i);
    const bool isUsual = action != TDeployAction::Removed && action != TDeployAction::Mode;
    if (isUsual || counts.Rows[i] > 0)
      document.Add(std::string(DeployActionName(action)), counts.Rows[i]);
  }
  return document;
}

TJson RunJson(const TRecordedRun& run) {
  return {{"id", run.Id},
          {"at", run.At},
          {"by", run.By},
          {"machine", run.Machine},
          {"revision", run.Revision},
          {"tool", run.Tool},
          {"copied", run.Copied},
          {"removed", run.Removed},
          {"failed", run.Failed},
          {"result", RunResultName(run.Result)}};
}

TJson LeftOversJson(const TDeployReport& report) {
  TJson list = TJson::Array();
  for (const TLeftOver& leftOver : report.LeftOvers)
    list.Append({{"remoteFile", leftOver.RemoteFile()},
                 {"localName", leftOver.LocalName},
                 {"state", FileStateName(leftOver.State)}});
  return list;
}

TJson OwedJson(const TDeployReport& report) {
  TJson list = TJson::Array();
  for (const TOwedCommand& owed : report.Owed)
    list.Append({{"remoteFile", owed.RemoteFile}, {"command", owed.Command}});
  return list;
}

} // namespace workbench
