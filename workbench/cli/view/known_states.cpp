#include "workbench/cli/view/known_states.h"

#include "package/common/errors.h"
#include "workbench/cli/view/deploy_json.h"
#include "workbench/files/save_error.h"
#include "workbench/files/text_hash.h"
#include "workbench/files/user_directories.h"
#include "workbench/json/private_json_file.h"

#include <ctime>
#include <utility>

namespace workbench {
namespace {

TPrivateJsonFile FileOfTarget(const TKnownTarget& target) {
  std::string key = std::filesystem::weakly_canonical(target.Project).string();
  for (const std::string& part : {target.Platform, target.Configuration, target.Place})
    key.append(1, '\n').append(part);
  return {UserStateDirectory() / "targets" / (TextHash(key) + ".json"), "states of a target"};
}

// What a deploy did to a file makes it what it is here.
std::optional<TFileState> StateAfter(const TDeployRow& row) {
  if (row.Action == TDeployAction::Removed)
    return std::nullopt;
  return row.Action == TDeployAction::Copied || row.Action == TDeployAction::Mode
             ? std::optional(TFileState::Same)
             : row.State;
}

TJson JsonOfStates(const TDeployReport& report, bool wasCarriedOut) {
  TJson files = TJson::Array();
  for (const TDeployRow& row : report.Rows) {
    const std::optional<TFileState> state = wasCarriedOut ? StateAfter(row) : row.State;
    if (state)
      files.Append(
          {{"localName", row.LocalName}, {"state", FileStateName(*state)}, {"byHash", row.ByHash}});
  }
  return {{"asOf", UtcText(std::time(nullptr))},
          {"files", std::move(files)},
          {"leftOvers", LeftOversJson(report)},
          {"owed", OwedJson(report)},
          {"lastRun", report.LastRun ? RunJson(*report.LastRun) : TJson()}};
}

TFileState KnownStateOf(const TJson& value) {
  const auto state = FileStateFromName(value.Text("state"));
  if (!state)
    throw deployment::TInputError("\"" + value.Text("state") + "\" is no state");
  return *state;
}

TKnownStates KnownStatesOf(const TJson& document) {
  TKnownStates known{.AsOf = document.Text("asOf")};
  for (const TJson& file : document.Array("files"))
    known.Report.Rows.push_back({.LocalName = file.Text("localName"),
                                 .RemoteFile = {},
                                 .State = KnownStateOf(file),
                                 .ByHash = file.BooleanOr("byHash", false)});
  for (const TJson& leftOver : document.Array("leftOvers")) {
    const std::string& path = leftOver.Text("remoteFile");
    const std::size_t end = path.find_last_of('/');
    if (end != std::string::npos)
      known.Report.LeftOvers.push_back({.RecordPath = {},
                                        .Target = {path.substr(0, end), path.substr(end + 1)},
                                        .LocalName = leftOver.Text("localName"),
                                        .State = KnownStateOf(leftOver)});
  }
  for (const TJson& owed : document.Array("owed"))
    known.Report.Owed.push_back({owed.Text("remoteFile"), owed.Text("command")});
  if (const TJson& run = document.At("lastRun"); !run.IsNull())
    known.Report.LastRun = RecordedRunOf(run);
  return known;
}

} // namespace

TKnownStates ReadKnownStates(const TKnownTarget& target) {
  TKnownStates known;
  try {
    FileOfTarget(target).Read([&known](const TJson& document) { known = KnownStatesOf(document); });
  } catch (const deployment::TInputError&) {
    known = {};
  }
  return known;
}

void KeepKnownStates(const TKnownTarget& target, const TDeployReport& report) {
  if (UserStateDirectory().empty())
    return;
  const bool wasCarriedOut = report.WasCarriedOut;
  try {
    FileOfTarget(target).Change([](const TJson&) {},
                                [&] { return JsonOfStates(report, wasCarriedOut); });
  } catch (const deployment::TInputError&) {
    return; // a name that is not UTF-8
  } catch (const TSaveError&) {
    return; // a disk that is full
  }
}

} // namespace workbench
