#include "workbench/deploy/fleet/fleet_list.h"

namespace workbench {
namespace {

using deployment::TDeployOperation;

constexpr unsigned FleetFormat = 1;

std::int64_t NanosecondsOf(deployment::TFileTime time) {
  return std::chrono::duration_cast<std::chrono::nanoseconds>(time.time_since_epoch()).count();
}

std::string_view OperationName(TDeployOperation operation) {
  if (operation == TDeployOperation::Remove)
    return "remove";
  return operation == TDeployOperation::RunAndRemove ? "runAndRemove" : "copy";
}

TJson MemberJson(const TFleetMember& member) {
  using TKind = TArchiveMember::TKind;
  const TArchiveMember& stored = member.Member;
  if (stored.Kind == TKind::Directory)
    return {{"kind", "directory"}, {"name", stored.Name}};
  if (stored.Kind == TKind::Link)
    return {{"kind", "link"}, {"name", stored.Name}, {"link", stored.LinkText}};
  return {{"kind", "file"},
          {"name", stored.Name},
          {"sha256", member.Hash},
          {"mode", member.Mode},
          {"time", NanosecondsOf(member.Time)}};
}

TJson FileJson(const TPlannedFile& file, const std::vector<TFleetMember>& members) {
  const bool isMissing = file.State == TFileState::MissingHere;
  const bool isThere = file.File.Operation != TDeployOperation::Remove && !isMissing;
  TJson unpacked = TJson::Array();
  for (const TFleetMember& member : members)
    unpacked.Append(MemberJson(member));
  return {{"localName", file.File.LocalName},
          {"class", file.File.Class},
          {"path", file.RecordPath},
          {"operation", OperationName(file.File.Operation)},
          {"sha256", isThere ? file.Local.Hash : std::string()},
          {"size", isThere ? file.Local.Size : 0},
          {"time", isThere ? NanosecondsOf(file.Local.Time) : 0},
          {"mode", file.Mode},
          {"link", file.Link},
          {"overwrite", file.File.Overwrite},
          {"problem", isMissing ? file.Reason : std::string()},
          {"steps", KeysOf(AfterStepsOf(file.File))},
          {"members", std::move(unpacked)}};
}

} // namespace

TJson FleetListJson(const TFleetFacts& facts, const TDeployPlan& plan,
                    const TFleetMembers& members) {
  TJson files = TJson::Array();
  for (std::size_t i = 0; i < plan.Files.size(); ++i) {
    const auto found = members.find(i);
    files.Append(FileJson(plan.Files[i],
                          found == members.end() ? std::vector<TFleetMember>() : found->second));
  }
  return {{"format", FleetFormat},
          {"project", facts.Project},
          {"platform", facts.Target.Platform},
          {"configuration", facts.Target.Configuration},
          {"rootName", facts.RootName},
          {"root", facts.Root},
          {"revision", facts.Revision},
          {"tool", facts.Tool},
          {"afterDeploy", facts.AfterDeploy},
          {"stateless", facts.Stateless},
          {"ignoresCase", facts.IgnoresCase},
          {"files", std::move(files)}};
}

} // namespace workbench
