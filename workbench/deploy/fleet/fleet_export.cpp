#include "workbench/deploy/fleet/fleet_export.h"

#include "package/common/case_fold.h"
#include "package/common/errors.h"
#include "workbench/archive/content_archive.h"
#include "workbench/deploy/fleet/blank_target.h"
#include "workbench/deploy/fleet/fleet_files.h"
#include "workbench/deploy/fleet/fleet_folder.h"
#include "workbench/deploy/revision.h"
#include "workbench/files/file_descriptor.h"
#include "workbench/files/file_reader.h"
#include "workbench/files/runtime_directory.h"
#include "workbench/files/sha256.h"
#include "workbench/process/command_runner.h"
#include "workbench/remote/target/file_times.h"
#include "workbench/text/visible_text.h"

#include <cstdlib>
#include <sys/stat.h>
#include <unordered_set>
#include <utility>

namespace workbench {
namespace {

constexpr std::string_view MarkerName = "deployment-fleet.json";
constexpr std::string_view MarkerKey = "deploymentFleet";
constexpr std::uint64_t LargestMarker = 65536; // bytes
constexpr std::string_view FilesFolder = "roles/deployment/files/deployment";
constexpr unsigned MemberRights = 0777;

bool IsFleetFolder(const std::filesystem::path& folder) {
  try {
    const TFileContent marker = ReadWholeFile(folder / MarkerName, LargestMarker, "export");
    return ParseJson(marker.Text()).Number<unsigned>(MarkerKey) > 0;
  } catch (const deployment::TInputError&) {
    return false;
  }
}

// Every "@NAME@" of the table gets its value; nothing is looked for in values.
std::string Filled(std::string_view text,
                   const std::vector<std::pair<std::string, std::string>>& values) {
  std::string result;
  while (!text.empty()) {
    const std::size_t start = std::min(text.find('@'), text.size());
    result += text.substr(0, start);
    text.remove_prefix(start);
    const std::size_t end = text.empty() ? std::string_view::npos : text.find('@', 1);
    const std::string_view name =
        end == std::string_view::npos ? std::string_view() : text.substr(1, end - 1);
    const auto found =
        std::ranges::find_if(values, [&](const auto& value) { return value.first == name; });
    if (found != values.end()) {
      result += found->second;
      text.remove_prefix(end + 1);
    } else if (!text.empty()) {
      result += text.front();
      text.remove_prefix(1);
    }
  }
  return result;
}

std::string FlagText(bool flag) {
  return flag ? "true" : "false";
}

} // namespace

bool IsFleetPlatform(std::string_view platform) {
  return deployment::SameText(platform.substr(0, 5), "Linux") ||
         deployment::SameText(platform.substr(0, 3), "OSX");
}

void CheckFleetFolder(const std::filesystem::path& folder) {
  std::error_code error;
  const auto status = std::filesystem::symlink_status(folder, error);
  if (status.type() == std::filesystem::file_type::not_found || IsFleetFolder(folder))
    return;
  throw TFleetError(folder.string() + " is there and is no export of ours; nothing was exported");
}

TFleetExport::TFleetExport(TRunFacts facts, const TDeployOptions& options, THearLine hear,
                           const std::atomic<int>& cancelled)
    : FFacts(std::move(facts)), FOptions(options), FHear(std::move(hear)), FCancelled(cancelled) {}

// What is missing here is for each machine to say, as it is for a deploy.
TPlanOptions TFleetExport::PlanOptions(bool withHashes) const {
  TPlaceRules rules = FFacts.Destinations.RulesOf(FFacts.Destination, FFacts.Target.Platform);
  rules.AllowOutside = false; // below the root of each machine, wherever that is
  return {.HashAll = withHashes,
          .AfterDeploy = FFacts.Destination.Profile->AfterDeploy,
          .KeepLinks = true,
          .SourceRoots = FFacts.SourceRoots,
          .RootName = FFacts.RootName,
          .Places = rules,
          .Target = FFacts.Target};
}

void TFleetExport::MakePlan(bool withHashes) {
  TBlankTarget blank(FFacts.Destination.Profile->Path);
  const TTargetRecord none;
  FPlan = MakeDeployPlan(
      FFacts.Files, PlanOptions(withHashes), [&blank]() -> IRemoteConnection& { return blank; },
      [&none]() -> const TTargetRecord& { return none; });
}

const TDeployPlan& TFleetExport::Plan() {
  MakePlan(/*withHashes=*/false);
  return FPlan;
}

void TFleetExport::RunLocalCommands() {
  if (FOptions.DryRun)
    return; // what is only looked at is what is there
  for (const TPlannedFile& file : FPlan.Files) {
    for (const std::string& command : file.File.LocalCommands) {
      if (file.Action != TDeployAction::Copied)
        continue;
      const std::string problem =
          RunCommandLine(command, FFacts.ProjectFile.parent_path(), FHear, FCancelled);
      if (!problem.empty())
        throw TFleetError(std::string("the local command \"")
                              .append(command)
                              .append("\" ")
                              .append(problem)
                              .append("; nothing was exported"));
    }
  }
}

void TFleetExport::Write(const std::filesystem::path& folder) {
  CheckFleetFolder(folder);
  RunLocalCommands();
  const std::vector<std::string> outside = FPlan.Outside;
  MakePlan(/*withHashes=*/true);
  if (!FPlan.Problems.empty())
    throw TFleetError("nothing was exported: " + FPlan.Problems.front());
  if (FPlan.Outside != outside)
    throw TFleetError("nothing was exported: files lead beyond the project's directory meanwhile");
  TFleetFolder made(folder);
  WriteInto(made.Path());
  CheckFleetFolder(folder);
  made.PutInPlace();
}

void TFleetExport::WriteInto(const std::filesystem::path& folder) {
  WriteTemplates(folder);
  WriteContents(folder / FilesFolder);
  WriteFleetFile(folder / MarkerName, JsonText({{MarkerKey.data(), 1},
                                                {"project", Facts().Project},
                                                {"platform", FFacts.Target.Platform},
                                                {"configuration", FFacts.Target.Configuration},
                                                {"tool", Facts().Tool}}) +
                                          "\n");
}

void TFleetExport::WriteTemplates(const std::filesystem::path& folder) const {
  const std::string& root = FFacts.Destination.Profile->Path;
  const std::vector<std::pair<std::string, std::string>> values{
      {"PROJECT", Visible(FFacts.ProjectFile.stem().string())},
      {"PLATFORM", Visible(FFacts.Target.Platform)},
      {"CONFIGURATION", Visible(FFacts.Target.Configuration)},
      {"ROOT", JsonText(TJson(root), -1)},
      {"ROOT_TEXT", Visible(root)},
      {"FORCE", FlagText(FOptions.Force)},
      {"CHECKSUM", FlagText(FOptions.Checksum)},
      {"SKIP_MISSING", FlagText(FOptions.SkipMissing)},
      {"OVERWRITE_CHANGED", FlagText(FOptions.OverwriteChanged)},
      {"PRUNE", FlagText(FOptions.Prune)},
      {"BREAK_LOCK", FlagText(FOptions.BreakLock)},
      {"NO_UNDO", FlagText(FOptions.NoUndo)},
      {"UNDO_RUNS", std::to_string(FOptions.Undo.Runs)},
      {"UNDO_BYTES", std::to_string(FOptions.Undo.Bytes)}};
  for (const TFleetFile& file : FleetFiles())
    WriteFleetFile(folder / file.Path,
                   file.Path.ends_with(".py") ? std::string(file.Text) : Filled(file.Text, values));
}

TFleetFacts TFleetExport::Facts() const {
  const TProfile& profile = *FFacts.Destination.Profile;
  return {.Project = FFacts.ProjectFile.stem().string(),
          .Target = FFacts.Target,
          .RootName = FFacts.RootName,
          .Root = profile.Path,
          .Revision = {},
          .Tool = std::string("deployment-manager ") + DEPLOYMENT_VERSION,
          .AfterDeploy = profile.AfterDeploy,
          .Stateless = profile.Stateless,
          .IgnoresCase = PlanOptions(false).Places.Names.IgnoresCase};
}

// Taken apart and checked here, so that a machine needs nothing to read archives of any kind.
TFleetMembers TFleetExport::UnpackMembers(const std::filesystem::path& scratch) const {
  TFleetMembers result;
  for (std::size_t i = 0; i < FPlan.Files.size(); ++i) {
    const TPlannedFile& file = FPlan.Files[i];
    if (file.Action != TDeployAction::Copied ||
        file.File.Operation != deployment::TDeployOperation::Unpack)
      continue;
    const std::filesystem::path directory = scratch / std::to_string(i);
    std::filesystem::create_directory(directory);
    std::vector<TFleetMember>& members = result[i];
    for (TArchiveMember& member :
         UnpackArchive(file.File.LocalFile, directory, [this] { return FCancelled != 0; })) {
      TFleetMember& added = members.emplace_back(TFleetMember{.Member = std::move(member)});
      if (added.Member.Kind != TArchiveMember::TKind::File)
        continue;
      struct stat status = {};
      const std::string local = added.Member.LocalFile.string();
      added.Hash = FileSHA256(added.Member.LocalFile).value_or("");
      if (::stat(local.c_str(), &status) != 0 || added.Hash.empty())
        ThrowSystemError("reading what was unpacked");
      added.Mode = status.st_mode & MemberRights;
      added.Time = FileTimeOf(status.st_mtim);
    }
  }
  return result;
}

void TFleetExport::WriteContents(const std::filesystem::path& folder) {
  // Beside what is written: where there is room for the one, there is for the other.
  const std::filesystem::path scratch = folder.parent_path() / "unpacked";
  std::filesystem::create_directories(folder);
  std::filesystem::create_directory(scratch);
  const TFleetMembers members = UnpackMembers(scratch);
  const auto archive = NewContentArchive(folder / "contents.zip");
  std::unordered_set<std::string> known;
  const auto add = [&](const std::filesystem::path& file, std::uint64_t size,
                       const std::string& hash) {
    if (FCancelled != 0)
      throw TFleetError("the run was interrupted; nothing was exported");
    if (known.insert(hash).second)
      archive->Add(file, size, hash);
  };
  for (const TPlannedFile& file : FPlan.Files) {
    if (file.Action == TDeployAction::Copied && file.Link.empty())
      add(file.File.LocalFile, file.Local.Size, file.Local.Hash);
  }
  for (const auto& [index, unpacked] : members) {
    for (const TFleetMember& member : unpacked) {
      if (!member.Hash.empty())
        add(member.Member.LocalFile, std::filesystem::file_size(member.Member.LocalFile),
            member.Hash);
    }
  }
  archive->Finish();
  std::filesystem::remove_all(scratch);
  TFleetFacts facts = Facts();
  facts.Revision = RevisionOf(FFacts.ProjectFile.parent_path());
  WriteFleetFile(folder / "list.json", JsonText(FleetListJson(facts, FPlan, members), -1) + "\n");
}

} // namespace workbench
