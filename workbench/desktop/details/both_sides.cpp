#include "workbench/desktop/details/both_sides.h"

#include "package/common/errors.h"
#include "workbench/files/machine_path.h"
#include "workbench/files/sha256.h"
#include "workbench/remote/target/file_times.h"
#include "workbench/remote/target/target_place.h"
#include "workbench/services/remote_profile_services.h"
#include "workbench/session/session.h"

#include <filesystem>
#include <system_error>

namespace workbench {
namespace {

std::optional<TSideFacts> LookHere(const std::filesystem::path& file) {
  std::error_code error;
  TSideFacts facts;
  facts.Size = std::filesystem::file_size(file, error);
  if (error)
    return std::nullopt;
  if (const auto time = LocalFileTime(file.string()))
    facts.Time = WholeSeconds(*time);
  facts.Hash = FileSHA256(file).value_or(std::string());
  return facts;
}

// The place of the file once its directory is known; nothing when there can be no such file.
std::optional<TRemoteName> PlaceOf(IRemoteConnection& connection, const std::string& remoteFile,
                                   const TPlaceRules& rules, TBothSides& sides) {
  const TTargetPlace place = FindTargetPlace(remoteFile, rules);
  if (!place.Problem.empty()) {
    sides.Problem = place.Problem;
    return std::nullopt;
  }
  const std::vector<std::string> directories{place.Name.Directory};
  const std::vector<TRemoteDirectory> resolved = connection.Resolve(directories);
  sides.Problem = DirectoryProblem(resolved.front(), rules);
  if (!sides.Problem.empty() || !resolved.front().Exists)
    return std::nullopt;
  return TRemoteName{resolved.front().Path, place.Name.Name};
}

std::optional<TSideFacts> LookThere(IRemoteConnection& connection, const TRemoteName& name) {
  const std::vector<TRemoteName> names{name};
  const TRemoteStatus status = connection.Examine(names).front();
  if (status.Kind != TRemoteKind::File)
    return std::nullopt;
  return TSideFacts{.Size = status.Size,
                    .Time = WholeSeconds(status.Modified),
                    .Hash = connection.Hashes(names).front()};
}

std::optional<TSideFacts> LookInRecord(const TTargetRecord& record, const std::string& root,
                                       const TRemoteName& name) {
  const std::string path = name.Path();
  if (!path.starts_with(root + "/"))
    return std::nullopt;
  const auto found = record.Files.find(path.substr(root.size() + 1));
  if (found == record.Files.end())
    return std::nullopt;
  return TSideFacts{
      .Size = found->second.Size, .Time = found->second.Time, .Hash = found->second.Hash};
}

void AskTarget(TSession& session, TOpenProject& project, const TSidesQuestion& question,
               TBothSides& sides) {
  const TRemoteProfileServices& services = session.RemoteProfiles();
  const TDestinations& destinations = services.Destinations();
  const TDestination destination = destinations.Find(project.Project(), question.Target);
  const auto connection = destinations.Connect(destination, nullptr);
  const auto name = PlaceOf(*connection, question.RemoteFile,
                            destinations.RulesOf(destination, question.Target.Platform), sides);
  if (!name)
    return;
  sides.There = LookThere(*connection, *name);
  const TRecordReading record =
      services.Deploys().ReadRecord(project.Project(), question.Target, nullptr);
  if (record.State == TRecordState::Read)
    sides.Deployed = LookInRecord(record.Record, connection->Root(), *name);
}

} // namespace

TBothSides LookAtBothSides(TSession& session, TOpenProject& project,
                           const TSidesQuestion& question) {
  TBothSides sides;
  sides.Here = LookHere(ToMachinePath(question.LocalFile));
  try {
    AskTarget(session, project, question, sides);
  } catch (const TConnectionError& error) {
    sides.Problem = error.what();
  } catch (const deployment::TInputError& error) {
    sides.Problem = error.what();
  }
  return sides;
}

} // namespace workbench
