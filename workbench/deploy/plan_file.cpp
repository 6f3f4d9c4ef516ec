#include "workbench/deploy/plan_file.h"

#include "package/common/errors.h"
#include "workbench/deploy/deploy_request.h"
#include "workbench/deploy/record/record_json.h"
#include "workbench/files/sha256.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace workbench {
namespace {

using deployment::TDeployOperation;
using deployment::TFileTime;

constexpr std::uint64_t LastOperation = 6;
constexpr std::array<std::string_view, 5> ThereKindNames{"none", "file", "directory", "link",
                                                         "other"};

[[noreturn]] void Reject(const std::string& reason) {
  throw deployment::TInputError("it is no plan: " + reason);
}

std::string DigestOf(const TJson& document) {
  TSHA256 digest;
  digest.Add(JsonText(document, -1));
  return digest.Text();
}

// JSON's own numbers lose digits in many readers.
std::string PreciseText(TFileTime time) {
  return std::to_string(time.time_since_epoch().count());
}

TFileTime PreciseTimeOf(const TJson& value, std::string_view name) {
  const std::string& text = value.Text(name);
  TFileTime::rep count = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
  if (error != std::errc() || end != text.data() + text.size())
    Reject("\"" + text + "\" is no time");
  return TFileTime(TFileTime::duration(count));
}

TJson ThereJson(const TPlannedFile& file) {
  return {{"kind", ThereKindNames[static_cast<std::size_t>(file.There.Kind)]},
          {"size", file.There.Size},
          {"time", PreciseText(file.There.Modified)},
          {"mode", ModeText(file.There.Mode)},
          {"hash", file.HashThere}};
}

TRemoteStatus ThereOf(const TJson& value) {
  const auto* const kind = std::ranges::find(ThereKindNames, value.Text("kind"));
  if (kind == ThereKindNames.end())
    Reject("\"" + value.Text("kind") + "\" is no kind of a file");
  return {.Kind = static_cast<TRemoteKind>(kind - ThereKindNames.begin()),
          .Size = value.Number<std::uint64_t>("size"),
          .Modified = PreciseTimeOf(value, "time"),
          .Mode = ModeFromText(value.Text("mode"))};
}

TJson FileJson(const TPlannedFile& file) {
  std::vector<std::string> steps;
  steps.reserve(file.Steps.size());
  for (const TAfterStep& step : file.Steps)
    steps.push_back(step.Key());
  return {{"localName", file.File.LocalName},
          {"localFile", file.File.LocalFile.string()},
          {"localHash", file.Local.Hash},
          {"localSize", file.Local.Size},
          {"localTime", PreciseText(file.Local.Time)},
          {"remoteFile", file.RemoteFile()},
          {"state", file.State ? TJson(FileStateName(*file.State)) : TJson()},
          {"decidedBy", file.State ? TJson(file.ByHash ? "hash" : "time") : TJson()},
          {"action", DeployActionName(file.Action)},
          {"reason", file.Reason},
          {"mode", ModeText(file.Mode)},
          {"class", file.File.Class},
          {"operation", static_cast<unsigned>(file.File.Operation)},
          {"executable", file.File.Executable},
          {"setTime", file.TimeDiffers},
          {"link", file.Link},
          {"bytes", file.Bytes},
          {"localCommands", file.File.LocalCommands},
          {"steps", steps},
          {"there", ThereJson(file)}};
}

// What stands before and behind the last delimiter.
TRemoteName NameOf(const std::string& path) {
  const std::size_t end = path.find_last_of('/');
  if (!path.starts_with('/') || end + 1 == path.size())
    Reject("\"" + path + "\" is no path of a file");
  return {path.substr(0, end), path.substr(end + 1)};
}

TDeployAction ActionOf(const std::string& text) {
  const auto action = DeployActionFromName(text);
  if (!action)
    Reject("\"" + text + "\" is no action");
  return *action;
}

TFileState StateOf(const TJson& value) {
  const auto state = FileStateFromName(value.AsText("state"));
  if (!state)
    Reject("\"" + value.AsText("state") + "\" is no state");
  return *state;
}

TPlannedFile PlannedFileOf(const TJson& value) {
  TPlannedFile file;
  file.File = {.LocalName = value.Text("localName"),
               .Class = value.Text("class"),
               .LocalFile = value.Text("localFile"),
               .RemoteName = {},
               .Operation = static_cast<TDeployOperation>(
                   value.Number<std::uint64_t>("operation", 0, LastOperation)),
               .Executable = value.At("executable").AsBoolean("executable"),
               .LocalCommands = value.At("localCommands").AsTexts("localCommands")};
  file.Target = NameOf(value.Text("remoteFile"));
  file.Action = ActionOf(value.Text("action"));
  file.Reason = value.Text("reason");
  if (const TJson& state = value.At("state"); !state.IsNull())
    file.State = StateOf(state);
  file.ByHash = !value.At("decidedBy").IsNull() && value.Text("decidedBy") == "hash";
  file.Bytes = value.Number<std::uint64_t>("bytes");
  file.Local = {.Size = value.Number<std::uint64_t>("localSize"),
                .Time = PreciseTimeOf(value, "localTime"),
                .Hash = value.Text("localHash")};
  file.Mode = ModeFromText(value.Text("mode"));
  file.There = ThereOf(value.At("there"));
  file.HashThere = value.At("there").Text("hash");
  file.Link = value.Text("link");
  file.TimeDiffers = value.At("setTime").AsBoolean("setTime");
  for (const std::string& key : value.At("steps").AsTexts("steps")) {
    const auto step = TAfterStep::FromKey(key);
    if (!step)
      Reject("\"" + key + "\" is nothing that is done with a file");
    file.Steps.push_back(*step);
  }
  return file;
}

TJson LeftOverJson(const TLeftOver& leftOver) {
  return {{"remoteFile", leftOver.RemoteFile()},
          {"localName", leftOver.LocalName},
          {"state", FileStateName(leftOver.State)}};
}

TJson BodyOf(const TPlanFile& file) {
  TJson files = TJson::Array();
  for (const TPlannedFile& planned : file.Plan.Files)
    files.Append(FileJson(planned));
  TJson commands = TJson::Array();
  for (const TPlannedCommand& command : PlannedCommandsOf(file.Plan))
    commands.Append({{"where", command.IsLocal ? "here" : "target"},
                     {"command", command.Command},
                     {"file", command.RemoteFile}});
  TJson leftOvers = TJson::Array();
  for (const TLeftOver& leftOver : file.Plan.LeftOvers)
    leftOvers.Append(LeftOverJson(leftOver));
  return {{"profile", file.Bound.Profile},
          {"place", file.Bound.Place},
          {"machine", file.Bound.Machine},
          {"hostKey", file.Bound.HostKey},
          {"project", file.ProjectFile.string()},
          {"root", file.RootName},
          {"platform", file.Target.Platform},
          {"configuration", file.Target.Configuration},
          {"files", std::move(files)},
          {"commands", std::move(commands)},
          {"leftOvers", std::move(leftOvers)},
          {"forgotten", file.Plan.Forgotten},
          {"afterDeploy", file.Plan.AfterDeploy},
          {"projectCommands", file.Plan.Commands},
          {"outside", file.Plan.Outside},
          {"options",
           {{"breakLock", file.BreakLock},
            {"noUndo", file.NoUndo},
            {"compress", file.Compress},
            {"jobs", file.Jobs}}}};
}

TPlanFile PlanOf(const TJson& document) {
  TPlanFile file{.Bound = {.Profile = document.Text("profile"),
                           .Place = document.Text("place"),
                           .Machine = document.Text("machine"),
                           .HostKey = document.Text("hostKey")},
                 .ProjectFile = document.Text("project"),
                 .RootName = document.Text("root"),
                 .Target = {document.Text("configuration"), document.Text("platform")}};
  for (const TJson& planned : document.Array("files"))
    file.Plan.Files.push_back(PlannedFileOf(planned));
  for (const TJson& leftOver : document.Array("leftOvers"))
    file.Plan.LeftOvers.push_back({.RecordPath = {},
                                   .Target = NameOf(leftOver.Text("remoteFile")),
                                   .LocalName = leftOver.Text("localName"),
                                   .State = StateOf(leftOver.At("state"))});
  file.Plan.Forgotten = document.At("forgotten").AsTexts("forgotten");
  file.Plan.AfterDeploy = document.Text("afterDeploy");
  file.Plan.Commands = document.At("projectCommands").AsTexts("projectCommands");
  file.Plan.Outside = document.At("outside").AsTexts("outside");
  const TJson& options = document.At("options");
  file.BreakLock = options.BooleanOr("breakLock", false);
  file.NoUndo = options.BooleanOr("noUndo", false);
  file.Compress = options.BooleanOr("compress", false);
  file.Jobs = options.Number<unsigned>("jobs", 0, MostJobs);
  return file;
}

} // namespace

std::vector<TPlannedCommand> PlannedCommandsOf(const TDeployPlan& plan) {
  std::vector<TPlannedCommand> commands;
  for (const TPlannedFile& file : plan.Files) {
    if (file.Action != TDeployAction::Copied)
      continue;
    for (const std::string& command : file.File.LocalCommands)
      commands.push_back({true, command, file.RemoteFile()});
  }
  for (const TPlannedFile& file : plan.Files) {
    for (const TAfterStep& step : file.Steps)
      commands.push_back({false, step.Text(file.Target.Name), file.RemoteFile()});
  }
  if (!plan.AfterDeploy.empty())
    commands.push_back({false, plan.AfterDeploy, {}});
  return commands;
}

TJson PlanJson(const TPlanFile& file) {
  TJson document = BodyOf(file);
  document.Add("digest", DigestOf(BodyOf(file)));
  return document;
}

TPlanReading ParsePlan(std::string_view text) {
  const TJson document = ParseJson(text);
  if (!document.IsObject() || !document.Find("digest"))
    Reject("it has no digest");
  TJson body = TJson::Object();
  for (const TJsonMember& member : document.AsObject()) {
    // What every document has besides is no part of the plan.
    if (member.Name != "digest" && member.Name != "schema" && member.Name != "warnings")
      body.Add(member.Name, member.Value);
  }
  if (document.Text("digest") != DigestOf(body))
    return {};
  return {.IsWhole = true, .File = PlanOf(document)};
}

} // namespace workbench
