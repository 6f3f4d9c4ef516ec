#include "workbench/deploy/unpacking.h"

#include "package/common/case_fold.h"
#include "workbench/archive/unpacked_archive.h"
#include "workbench/deploy/record/record_place.h"
#include "workbench/files/file_descriptor.h"
#include "workbench/remote/target/file_times.h"
#include "workbench/text/visible_text.h"

#include <algorithm>
#include <cstdlib>
#include <sys/stat.h>
#include <system_error>
#include <unordered_map>
#include <utility>

namespace workbench {
namespace {

using TMemberKind = TArchiveMember::TKind;

// Where members wait until all of them are checked. Large ones have no room among what is kept in
// memory for a session.
class TUnpackDirectory {
public:
  TUnpackDirectory() {
    std::string name = (std::filesystem::temp_directory_path() / "deploymgr-XXXXXX").string();
    if (!::mkdtemp(name.data()))
      ThrowSystemError("making a directory to unpack it here");
    FPath = name;
  }
  ~TUnpackDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(FPath, ignored);
  }
  TUnpackDirectory(const TUnpackDirectory&) = delete;
  TUnpackDirectory& operator=(const TUnpackDirectory&) = delete;

  const std::filesystem::path& Path() const { return FPath; }

private:
  std::filesystem::path FPath;
};

class TMemberJob final : public ISendJob {
public:
  TMemberJob(const std::vector<TSendRequest>& files, const std::vector<TArchiveMember>& members,
             const std::function<bool()>& isCancelled)
      : FFiles(files), FMembers(members), FIsCancelled(isCancelled) {}

  bool IsCancelled() const override { return FIsCancelled(); }
  const TSendRequest* Next() override {
    return FNext < FFiles.size() && Problem.empty() && !FIsCancelled() ? &FFiles[FNext++] : nullptr;
  }
  void BytesSent(std::uint64_t /*count*/) override {}
  void FileDone(const TSendRequest& request, const TSendOutcome& outcome) override {
    if (Problem.empty() && !outcome.Problem.empty())
      Problem = Visible(FMembers[request.Index].Name) + ": " + outcome.Problem;
  }
  bool IsAtEnd() const { return FNext == FFiles.size(); }

  std::string Problem;

private:
  const std::vector<TSendRequest>& FFiles;
  const std::vector<TArchiveMember>& FMembers;
  const std::function<bool()>& FIsCancelled;
  std::size_t FNext = 0;
};

class TUnpacker {
public:
  TUnpacker(const TPlannedFile& file, const TPlaceRules& rules, IRemoteConnection& connection,
            const std::function<bool()>& isCancelled)
      : FFile(file), FRules(rules), FConnection(connection), FIsCancelled(isCancelled) {}

  std::string Run() {
    const TUnpackDirectory directory;
    if (!IsWhatWasSent())
      return "cannot be unpacked: it changed since it was copied";
    try {
      FMembers = UnpackArchive(FFile.File.LocalFile, directory.Path(), FIsCancelled);
      FindPlaces();
      LookAtTarget();
    } catch (const TArchiveError& error) {
      return std::string("cannot be unpacked: ") + error.what();
    }
    const std::string problem = PutInPlace();
    return problem.empty() ? problem : "was unpacked in part: " + problem;
  }

private:
  bool IsWhatWasSent() const {
    struct stat status = {};
    return ::stat(FFile.File.LocalFile.c_str(), &status) == 0 &&
           static_cast<std::uint64_t>(status.st_size) == FFile.Local.Size &&
           FileTimeOf(status.st_mtim) == FFile.Local.Time;
  }

  [[noreturn]] static void Refuse(const TArchiveMember& member, const std::string& reason) {
    throw TArchiveError("\"" + Visible(member.Name) + "\" in it " + reason);
  }
  std::string Key(const std::string& path) const {
    return FRules.Names.IgnoresCase ? deployment::UpperCase(path) : path;
  }

  void FindPlaces();
  void CheckName(const TArchiveMember& member) const;
  void LookAtTarget();
  void CheckPlace(const TArchiveMember& member, const TRemoteName& place) const;
  std::string PutInPlace();
  std::string MakeDirectories();
  std::string MakeLinks();

  const TPlannedFile& FFile;
  const TPlaceRules& FRules;
  IRemoteConnection& FConnection;
  const std::function<bool()>& FIsCancelled;
  std::vector<TArchiveMember> FMembers;
  std::vector<std::string>
      FDirectories; // full paths, each once; of members that are directories too
  std::vector<std::size_t> FDirectoryOf; // of each member, into the directories
  std::vector<TRemoteName> FPlaces;      // of each member; a directory has no name in its own
};

void TUnpacker::CheckName(const TArchiveMember& member) const {
  for (std::string_view rest = member.Name; !rest.empty();) {
    const std::size_t end = std::min(rest.find('/'), rest.size());
    const std::string problem = NameProblem(rest.substr(0, end), FRules.Names);
    if (!problem.empty())
      Refuse(member, "has a name that the target cannot hold: it " + problem);
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  if (member.Kind == TMemberKind::Link && !FConnection.KnowsLinks())
    Refuse(member, "is a link, and the target has none");
}

void TUnpacker::FindPlaces() {
  std::unordered_map<std::string, std::size_t> known;
  std::unordered_map<std::string, const TArchiveMember*> byKey;
  for (const TArchiveMember& member : FMembers) {
    CheckName(member);
    const auto [other, isFirst] = byKey.emplace(Key(member.Name), &member);
    if (!isFirst)
      Refuse(member, "has the name of \"" + Visible(other->second->Name) + "\" for the target");
    const std::size_t end = member.Name.find_last_of('/');
    const bool isDirectory = member.Kind == TMemberKind::Directory;
    std::string directory = FFile.Target.Directory;
    if (isDirectory || end != std::string::npos)
      directory.append("/").append(member.Name, 0, isDirectory ? std::string::npos : end);
    const auto [entry, isNew] = known.emplace(directory, FDirectories.size());
    if (isNew)
      FDirectories.push_back(directory.empty() ? "/" : directory);
    FDirectoryOf.push_back(entry->second);
    FPlaces.push_back({{}, isDirectory ? std::string() : member.Name.substr(end + 1)});
  }
}

// What is there already may be a link that leads elsewhere.
void TUnpacker::LookAtTarget() {
  const std::vector<TRemoteDirectory> found = FConnection.Resolve(FDirectories);
  for (std::size_t i = 0; i < FMembers.size(); ++i) {
    const TRemoteDirectory& directory = found[FDirectoryOf[i]];
    if (const std::string problem = DirectoryProblem(directory, FRules); !problem.empty())
      Refuse(FMembers[i], "cannot go there: " + problem);
    // Climbing in a link is counted from where it stands in the archive.
    if (FMembers[i].Kind == TMemberKind::Link && directory.Path != FDirectories[FDirectoryOf[i]])
      Refuse(FMembers[i], "cannot go there: a link of the target stands on the way");
    FPlaces[i].Directory = directory.Path == "/" ? "" : directory.Path;
    CheckPlace(FMembers[i], FPlaces[i]);
  }
  std::vector<TRemoteName> asked;
  std::vector<std::size_t> askedOf;
  for (std::size_t i = 0; i < FMembers.size(); ++i) {
    if (FPlaces[i].Name.empty() || !found[FDirectoryOf[i]].Exists)
      continue;
    asked.push_back(FPlaces[i]);
    askedOf.push_back(i);
  }
  const std::vector<TRemoteStatus> answers = FConnection.Examine(asked);
  for (std::size_t i = 0; i < answers.size(); ++i) {
    if (!answers[i].Problem.empty())
      Refuse(FMembers[askedOf[i]], "cannot go there: " + answers[i].Problem);
    if (answers[i].Kind == TRemoteKind::Directory)
      Refuse(FMembers[askedOf[i]], "cannot go there: a directory has its name");
  }
}

void TUnpacker::CheckPlace(const TArchiveMember& member, const TRemoteName& place) const {
  const std::string root = FConnection.Root();
  const std::string path = place.Directory + "/" + place.Name;
  const std::size_t start = root == "/" ? 1 : root.size() + 1;
  if (Key(path).starts_with(Key(root)) && path.size() > start &&
      IsRecordPath(std::string_view(path).substr(start)))
    Refuse(member, "leads to where deploys keep what they remember");
  if (Key(path) == Key(FFile.RemoteFile()))
    Refuse(member, "has the place of the archive itself");
}

std::string TUnpacker::PutInPlace() {
  if (std::string problem = MakeDirectories(); !problem.empty())
    return problem;
  std::vector<TSendRequest> files;
  for (std::size_t i = 0; i < FMembers.size(); ++i) {
    if (FMembers[i].Kind == TMemberKind::File)
      files.push_back({FMembers[i].LocalFile, FPlaces[i], /*MakeExecutable=*/false, i});
  }
  FConnection.RemoveUnfinished(files);
  TMemberJob job(files, FMembers, FIsCancelled);
  FConnection.Send(job);
  if (!job.Problem.empty())
    return job.Problem;
  return job.IsAtEnd() ? MakeLinks() : "the run was interrupted";
}

std::string TUnpacker::MakeDirectories() {
  std::vector<std::string> wanted;
  wanted.reserve(FPlaces.size());
  for (const TRemoteName& place : FPlaces)
    wanted.push_back(place.Directory);
  std::ranges::sort(wanted);
  wanted.erase(std::unique(wanted.begin(), wanted.end()), wanted.end());
  for (const std::string& problem : FConnection.MakeDirectories(wanted)) {
    if (!problem.empty())
      return problem;
  }
  return {};
}

// Last, so that nothing is put in place through one of them.
std::string TUnpacker::MakeLinks() {
  for (std::size_t i = 0; i < FMembers.size(); ++i) {
    if (FMembers[i].Kind != TMemberKind::Link)
      continue;
    if (FIsCancelled())
      return "the run was interrupted";
    const std::string problem = FConnection.MakeLink(FPlaces[i], FMembers[i].LinkText);
    if (!problem.empty())
      return Visible(FMembers[i].Name) + ": " + problem;
  }
  return {};
}

} // namespace

std::string UnpackOnTarget(const TPlannedFile& file, const TPlaceRules& rules,
                           IRemoteConnection& connection,
                           const std::function<bool()>& isCancelled) {
  try {
    return TUnpacker(file, rules, connection, isCancelled).Run();
  } catch (const std::system_error& error) {
    return std::string("cannot be unpacked: ") + error.what();
  }
}

} // namespace workbench
