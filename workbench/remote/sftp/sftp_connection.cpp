#include "workbench/remote/sftp/sftp_connection.h"

#include "package/common/case_fold.h"
#include "workbench/files/sha256.h"
#include "workbench/process/command_runner.h"
#include "workbench/process/shell_text.h"
#include "workbench/remote/sftp/remote_checksums.h"
#include "workbench/remote/sftp/sftp_comparison.h"
#include "workbench/remote/sftp/sftp_links.h"
#include "workbench/remote/sftp/sftp_listing.h"
#include "workbench/remote/sftp/sftp_upload.h"
#include "workbench/remote/target/remote_path.h"
#include "workbench/text/visible_text.h"

#include <algorithm>
#include <thread>
#include <unordered_set>

namespace workbench {
namespace {

constexpr unsigned FewestLanes = 2;
constexpr unsigned MostLanes = 4; // more only get in each other's way
constexpr std::uint32_t KindMask = 0170000;
constexpr std::uint32_t FileKind = 0100000;
constexpr std::uint32_t DirectoryKind = 0040000;
constexpr std::uint32_t LinkKind = 0120000;
constexpr std::uint32_t OwnerMayRun = 0100;
// Files that a machine unknown to this one left unfinished: longer than any deploy takes.
constexpr std::chrono::hours ForeignAge(24);

TRemoteStatus StatusFrom(const TSftpReply& reply) {
  TRemoteStatus status;
  if (reply.Kind != TSftpPacket::Attributes) {
    if (reply.Status() != TSftpStatus::NoSuchFile)
      status.Problem = SftpStatusText(reply.Status());
    return status;
  }
  TSftpParser content = reply.Content;
  const TSftpAttributes attributes = content.Attributes();
  const std::uint32_t mode = attributes.Mode.value_or(FileKind);
  status.Kind = (mode & KindMask) == FileKind        ? TRemoteKind::File
                : (mode & KindMask) == DirectoryKind ? TRemoteKind::Directory
                : (mode & KindMask) == LinkKind      ? TRemoteKind::Link
                                                     : TRemoteKind::Other;
  status.Size = attributes.Size.value_or(0);
  status.Modified = deployment::TFileTime(std::chrono::seconds(attributes.Modified.value_or(0)));
  status.IsExecutable = (mode & OwnerMayRun) != 0;
  return status;
}

class TQuestions final : public ISftpExchange {
public:
  explicit TQuestions(std::span<const TRemoteName> names) : Answers(names.size()), FNames(names) {}

  bool PostNext(TSftpChannel& channel) override {
    if (FNext == FNames.size())
      return false;
    channel.Post(TSftpPacket::LStat, FNames[FNext].Directory + "/" + FNames[FNext].Name, FNext);
    ++FNext;
    return true;
  }
  void OnReply(TSftpChannel&, std::uint64_t cookie, const TSftpReply& reply) override {
    Answers[cookie] = StatusFrom(reply);
  }

  std::vector<TRemoteStatus> Answers;

private:
  std::span<const TRemoteName> FNames;
  std::size_t FNext = 0;
};

// The drive's own way to write a path that the protocol begins with "/".
std::string WindowsPath(const std::string& path) {
  std::string text = path.starts_with('/') ? path.substr(1) : path;
  std::ranges::replace(text, '/', '\\');
  return text;
}

bool IsOnDrive(const std::string& path) {
  return path.size() > 1 && path[1] == ':';
}

} // namespace

TSftpConnection::TSftpConnection(TSftpMachine machine, std::shared_ptr<TUnfinishedParts> parts,
                                 const std::atomic<int>* cancelled)
    : FMachine(std::move(machine)), FParts(std::move(parts)),
      FChannel(FMachine.Sftp, {FMachine.Greeting, FMachine.Silence}, cancelled), FPaths(FChannel) {
  std::string root = FMachine.Root;
  if (IsOnDrive(root))
    std::ranges::replace(root, '\\', '/');
  while (root.size() > 1 && root.ends_with('/'))
    root.pop_back();
  if (IsOnDrive(root))
    root.insert(root.begin(), '/');
  else if (root == "~" || root.starts_with("~/"))
    root = FPaths.Home(".") + root.substr(1);
  const TRemoteDirectory found = FPaths.Resolve({&root, 1}).front();
  if (!found.Problem.empty())
    throw TConnectionError(found.Problem);
  FRoot = found.Path;
}

unsigned TSftpConnection::UsualLanes() const {
  return std::clamp(std::thread::hardware_concurrency(), FewestLanes, MostLanes);
}

bool TSftpConnection::IsBelowRoot(const std::string& path) const {
  const auto key = [this](const std::string& text) {
    return FMachine.IsWindows ? deployment::UpperCase(text) : text;
  };
  const std::string text = key(path);
  const std::string start = key(FRoot);
  return text.starts_with(start) && (text.size() == start.size() || text[start.size()] == '/');
}

std::string TSftpConnection::FullPath(const std::string& directory) {
  if (directory.empty())
    return FRoot;
  if (directory.starts_with("~/")) {
    if (FHome.empty())
      FHome = FPaths.Home(".");
    std::string path = FHome + directory.substr(1);
    while (path.size() > 1 && path.ends_with('/'))
      path.pop_back();
    return path;
  }
  return directory.starts_with('/') ? directory : FRoot + "/" + directory;
}

std::vector<TRemoteDirectory> TSftpConnection::Resolve(std::span<const std::string> directories) {
  std::vector<std::string> paths;
  paths.reserve(directories.size());
  for (const std::string& directory : directories)
    paths.push_back(FullPath(directory));
  std::vector<TRemoteDirectory> result = FPaths.Resolve(paths);
  for (TRemoteDirectory& directory : result)
    directory.IsInside = !directory.Problem.empty() || IsBelowRoot(directory.Path);
  return result;
}

std::vector<TRemoteStatus> TSftpConnection::Examine(std::span<const TRemoteName> names) {
  TQuestions questions(names);
  FChannel.Run(questions);
  return std::move(questions.Answers);
}

std::vector<std::string>
TSftpConnection::MakeDirectories(std::span<const std::string> directories) {
  return FPaths.Make(directories);
}

void TSftpConnection::RemoveUnfinished(std::span<const TSendRequest> files) {
  std::vector<std::string> directories = DirectoriesOf(files);
  std::erase_if(directories, [this](const auto& directory) { return FPaths.IsNew(directory); });
  struct TFound {
    std::string Directory, Name, Mark;
    std::uint64_t Size;
  };
  std::vector<TFound> found;
  const auto now = std::chrono::system_clock::now();
  ListDirectories(FChannel, directories, [&](const auto& directory, auto name, const auto& facts) {
    const auto unfinished = ParseUnfinishedName(name);
    if (!unfinished)
      return;
    const std::chrono::sys_seconds changed{std::chrono::seconds(facts.Modified.value_or(0))};
    if (IsAbandoned(*unfinished) || now - changed > ForeignAge)
      found.push_back({directory, std::string(name), unfinished->Source, facts.Size.value_or(0)});
  });
  if (found.empty())
    return;
  std::unordered_set<std::string> marks;
  for (const TSendRequest& file : files) {
    struct stat status = {};
    if (::stat(file.LocalFile.c_str(), &status) == 0 &&
        static_cast<std::uint64_t>(status.st_size) >= LargeFileSize)
      marks.insert(file.Target.Directory + "/" + SourceMark(file.LocalFile.native(), status));
  }
  for (const TFound& part : found) {
    if (!part.Mark.empty() && part.Size > 0 && marks.contains(part.Directory + "/" + part.Mark))
      FParts->Add(part.Directory, part.Mark, {part.Name, part.Size});
    else
      Remove({part.Directory, part.Name});
  }
}

// A part counts when its bytes are those of the local file, which the machine itself has to say: to
// read them back would take as long as to send them.
std::optional<TUnfinishedPart> TSftpConnection::FindPart(const TSendRequest& request,
                                                         const struct stat& status) {
  const std::string mark = SourceMark(request.LocalFile.native(), status);
  auto part = FParts->Take(request.Target.Directory, mark);
  if (!part)
    return std::nullopt;
  const std::string path = request.Target.Directory + "/" + part->Name;
  if (part->Size <= static_cast<std::uint64_t>(status.st_size)) {
    const auto theirs = RemoteSHA256(FMachine.IsWindows ? nullptr : FMachine.Exec, {&path, 1});
    const auto digest = theirs.find(path);
    if (digest != theirs.end() && FileSHA256(request.LocalFile, part->Size) == digest->second)
      return part;
  }
  return std::nullopt;
}

void TSftpConnection::Send(ISendJob& job) {
  TSftpUpload upload(
      job, FNames, FChannel.Limits(),
      [this](const auto& request, const auto& status) { return FindPart(request, status); });
  FChannel.Run(upload);
}

std::vector<bool> TSftpConnection::HaveSameContent(std::span<const TSendRequest> files) {
  std::vector<bool> same(files.size(), false);
  if (files.empty())
    return same;
  std::vector<std::string> paths;
  paths.reserve(files.size());
  for (const TSendRequest& file : files)
    paths.push_back(file.Target.Directory + "/" + file.Target.Name);
  const auto theirs = RemoteSHA256(FMachine.IsWindows ? nullptr : FMachine.Exec, paths);
  std::vector<TSendRequest> rest;
  std::vector<std::size_t> restOf;
  for (std::size_t i = 0; i < files.size(); ++i) {
    const auto digest = theirs.find(paths[i]);
    if (digest != theirs.end()) {
      same[i] = FileSHA256(files[i].LocalFile) == digest->second;
      continue;
    }
    rest.push_back(files[i]);
    restOf.push_back(i);
  }
  const std::vector<bool> answers = CompareContents(FChannel, rest);
  for (std::size_t i = 0; i < rest.size(); ++i)
    same[restOf[i]] = answers[i];
  return same;
}

// The answer to the one request that was posted.
TSftpStatus TSftpConnection::Answer() {
  TSftpStatus status = TSftpStatus::Ok;
  AskOnce(FChannel, [&status](const TSftpReply& reply) { status = reply.Status(); });
  return status;
}

std::string TSftpConnection::SetTime(const TRemoteName& name, deployment::TFileTime time) {
  const auto seconds = std::chrono::floor<std::chrono::seconds>(time.time_since_epoch()).count();
  const auto stamp = static_cast<std::uint32_t>(std::clamp<std::int64_t>(seconds, 0, UINT32_MAX));
  TSftpWriter& writer = FChannel.Begin(TSftpPacket::SetStat);
  writer.Text(name.Directory + "/" + name.Name);
  writer.Attributes({.Accessed = stamp, .Modified = stamp});
  FChannel.Post(0);
  const TSftpStatus status = Answer();
  return status == TSftpStatus::Ok ? std::string()
                                   : "setting the time stamp: " + SftpStatusText(status);
}

std::string TSftpConnection::Remove(const TRemoteName& name) {
  FChannel.Post(TSftpPacket::Remove, name.Directory + "/" + name.Name, 0);
  const TSftpStatus status = Answer();
  return status == TSftpStatus::Ok || status == TSftpStatus::NoSuchFile
             ? std::string()
             : "removing it: " + SftpStatusText(status);
}

bool TSftpConnection::KnowsLinks() const {
  return !FMachine.IsWindows && CanMakeLinks(FChannel.Limits());
}

std::vector<TRemoteLink> TSftpConnection::ReadLinks(std::span<const TRemoteName> names) {
  return ReadRemoteLinks(FChannel, names);
}

std::string TSftpConnection::MakeLink(const TRemoteName& name, const std::string& text) {
  return MakeRemoteLink(FChannel, name, {name.Directory, FNames.Next({})}, text);
}

std::string TSftpConnection::RunCommand(const std::string& command, const std::string& directory,
                                        const THearLine& hear, const std::atomic<int>& cancelled) {
  if (!FMachine.Exec)
    return "cannot be run: the machine runs no commands";
  if (command.find('\0') != std::string::npos)
    return "has a NUL character";
  const std::string line = FMachine.IsWindows
                               ? "cd /d \"" + WindowsPath(directory) + "\" && " + command
                               : "cd " + ShellQuoted(directory) + " && " + command;
  TProcessStart start = FMachine.Exec(line);
  start.JoinErrors = true;
  return RunAndHear(start, hear, cancelled);
}

} // namespace workbench
