#include "workbench/remote/sftp/sftp_connection.h"

#include "package/common/case_fold.h"
#include "workbench/files/sha256.h"
#include "workbench/process/command_runner.h"
#include "workbench/remote/sftp/remote_checksums.h"
#include "workbench/remote/sftp/sftp_creation.h"
#include "workbench/remote/sftp/sftp_examination.h"
#include "workbench/remote/sftp/sftp_links.h"
#include "workbench/remote/sftp/sftp_listing.h"
#include "workbench/remote/sftp/sftp_reading.h"
#include "workbench/remote/sftp/sftp_upload.h"
#include "workbench/remote/target/remote_path.h"
#include "workbench/text/visible_text.h"

#include <algorithm>
#include <thread>
#include <unordered_set>

namespace workbench {
namespace {

constexpr unsigned FewestConnections = 2;
constexpr unsigned MostConnections = 4; // more only get in each other's way
constexpr std::chrono::seconds ShellPatience(15);
// Files that a machine unknown to this one left unfinished: longer than any deploy takes.
constexpr std::chrono::hours ForeignAge(24);

bool IsOnDrive(const std::string& path) {
  return path.size() > 1 && path[1] == ':';
}

} // namespace

TSftpConnection::TSftpConnection(TSftpMachine machine, std::shared_ptr<TMachineFacts> facts,
                                 const std::atomic<int>* cancelled)
    : FMachine(std::move(machine)), FFacts(std::move(facts)),
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
  FIsWindows = FRoot.starts_with('/') && IsOnDrive(FRoot.substr(1));
}

unsigned TSftpConnection::UsualConnections() const {
  return std::clamp(std::thread::hardware_concurrency(), FewestConnections, MostConnections);
}

bool TSftpConnection::IsBelowRoot(const std::string& path) const {
  const auto key = [this](const std::string& text) {
    return FIsWindows ? deployment::UpperCase(text) : text;
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
  return ExamineRemote(FChannel, names);
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
      FFacts->Parts.Add(part.Directory, part.Mark, {part.Name, part.Size});
    else
      Remove({part.Directory, part.Name});
  }
}

// A part counts when its bytes are those of the local file, which the machine itself has to say: to
// read them back would take as long as to send them.
std::optional<TUnfinishedPart> TSftpConnection::FindPart(const TSendRequest& request,
                                                         const struct stat& status) {
  const std::string mark = SourceMark(request.LocalFile.native(), status);
  auto part = FFacts->Parts.Take(request.Target.Directory, mark);
  if (!part)
    return std::nullopt;
  const std::string path = request.Target.Directory + "/" + part->Name;
  if (part->Size <= static_cast<std::uint64_t>(status.st_size)) {
    const auto theirs =
        RemoteSHA256(FMachine.Exec, {&path, 1}, [this] { return FChannel.IsCancelled(); });
    const auto digest = theirs.find(path);
    if (digest != theirs.end() && FileSHA256(request.LocalFile, part->Size) == digest->second)
      return part;
  }
  part->Size = 0;
  return part;
}

void TSftpConnection::Send(ISendJob& job) {
  TSftpUpload upload(job, FNames, FChannel.Limits(), KeepsModes(),
                     [this, &job](const auto& request, const auto& status) {
                       auto part = FindPart(request, status);
                       return part ? part : MakePart(request, status, job);
                     });
  FChannel.Run(upload);
}

// Where the machine itself cannot tell, the files are read.
std::vector<std::string> TSftpConnection::Hashes(std::span<const TRemoteName> names) {
  std::vector<std::string> hashes(names.size());
  std::vector<std::string> paths;
  paths.reserve(names.size());
  for (const TRemoteName& name : names)
    paths.push_back(name.Path());
  const auto told = RemoteSHA256(FMachine.Exec, paths, [this] { return FChannel.IsCancelled(); });
  std::vector<std::string> rest;
  std::vector<std::size_t> restOf;
  for (std::size_t i = 0; i < paths.size(); ++i) {
    const auto digest = told.find(paths[i]);
    if (digest != told.end()) {
      hashes[i] = digest->second;
      continue;
    }
    rest.push_back(paths[i]);
    restOf.push_back(i);
  }
  std::vector<std::string> read = HashFiles(FChannel, rest);
  for (std::size_t i = 0; i < rest.size(); ++i)
    hashes[restOf[i]] = std::move(read[i]);
  return hashes;
}

TRemoteContent TSftpConnection::ReadFile(const TRemoteName& name, std::uint64_t limit) {
  const TRemoteStatus status = Examine({&name, 1}).front();
  if (!status.Problem.empty())
    return {.Problem = status.Problem};
  if (status.Kind == TRemoteKind::None)
    return {};
  if (status.Kind != TRemoteKind::File)
    return {.IsThere = true, .Problem = "reading it: it is no plain file"};
  return ReadWholeFile(FChannel, name.Path(), limit);
}

TRemoteCreation TSftpConnection::CreateFile(const TRemoteName& name, std::string_view text,
                                            deployment::TFileTime time) {
  return CreateRemoteFile(FChannel, name, FNames.Next({}), text, time);
}

std::string TSftpConnection::Rename(const TRemoteName& name, const std::string& newName) {
  constexpr std::string_view Action = "renaming it";
  const std::string path = name.Path();
  const std::string newPath = TRemoteName{name.Directory, newName}.Path();
  if (FChannel.Limits().HasPosixRename) {
    TSftpWriter& writer = FChannel.BeginExtended(sftp_extension::PosixRename);
    writer.Text(path);
    writer.Text(newPath);
    FChannel.Post(0);
    return Problem(Action);
  }
  const auto move = [&](const std::string& from, const std::string& to) {
    TSftpWriter& writer = FChannel.Begin(TSftpPacket::Rename);
    writer.Text(from);
    writer.Text(to);
    FChannel.Post(0);
    return Problem(Action);
  };
  // It replaces nothing: what is there steps aside, and comes back when it is refused.
  const std::string aside = TRemoteName{name.Directory, FNames.Next({})}.Path();
  if (move(path, newPath).empty())
    return {};
  if (std::string refusal = move(newPath, aside); !refusal.empty())
    return refusal;
  std::string problem = move(path, newPath);
  if (problem.empty()) {
    FChannel.Post(TSftpPacket::Remove, aside, 0);
    static_cast<void>(Answer()); // what stays is removed by a later deploy
  } else if (!move(aside, newPath).empty()) {
    problem += "; what stood there has the name " + aside + " now";
  }
  return problem;
}

// Why the one request that was posted failed.
std::string TSftpConnection::Problem(std::string_view action) {
  const TSftpStatus status = Answer();
  return status == TSftpStatus::Ok ? std::string()
                                   : std::string(action) + ": " + SftpStatusText(status);
}

// The answer to the one request that was posted.
TSftpStatus TSftpConnection::Answer() {
  TSftpStatus status = TSftpStatus::Ok;
  AskOnce(FChannel, [&status](const TSftpReply& reply) { status = reply.Status(); });
  return status;
}

std::string TSftpConnection::Remove(const TRemoteName& name) {
  FChannel.Post(TSftpPacket::Remove, name.Path(), 0);
  const TSftpStatus status = Answer();
  return status == TSftpStatus::Ok || status == TSftpStatus::NoSuchFile
             ? std::string()
             : "removing it: " + SftpStatusText(status);
}

bool TSftpConnection::KnowsLinks() const {
  return !FIsWindows && CanMakeLinks(FChannel.Limits());
}

std::vector<TRemoteLink> TSftpConnection::ReadLinks(std::span<const TRemoteName> names) {
  return ReadRemoteLinks(FChannel, names);
}

std::string TSftpConnection::MakeLink(const TRemoteName& name, const std::string& text) {
  FPaths.Forget();
  return MakeRemoteLink(FChannel, name, {name.Directory, FNames.Next({})}, text);
}

TShell TSftpConnection::Shell() {
  if (!FMachine.Exec)
    return TShell::None;
  const std::lock_guard lock(FFacts->Mutex);
  if (!FFacts->Shell) {
    std::string answer;
    const auto start = std::chrono::steady_clock::now();
    try {
      RunProcess(
          FMachine.Exec(std::string(ShellProbe)), nullptr,
          [&answer](std::string_view bytes) { answer.append(bytes); },
          [this, start] {
            return FChannel.IsCancelled() ||
                   std::chrono::steady_clock::now() - start > ShellPatience;
          });
      if (FChannel.IsCancelled())
        return TShell::None; // it was not found out
    } catch (const std::system_error&) {
      answer.clear();
    }
    FFacts->Shell = ShellOfAnswer(answer);
  }
  return *FFacts->Shell;
}

std::string TSftpConnection::RunCommand(const std::string& command, const std::string& directory,
                                        const THearLine& hear, const std::atomic<int>& cancelled) {
  if (!FMachine.Exec)
    return "cannot be run: the machine runs no commands";
  if (command.find('\0') != std::string::npos)
    return "has a NUL character";
  const TShell shell = Shell();
  if (shell == TShell::None)
    return "cannot be run: the machine has no shell that is known";
  const auto line = InDirectory(shell, directory, command);
  if (!line)
    return "cannot be run: " + Visible(directory) + " cannot be named in a command of " +
           std::string(ShellName(shell));
  FPaths.Forget();
  TProcessStart start = FMachine.Exec(*line);
  start.JoinErrors = true;
  return RunAndHear(start, hear, cancelled);
}

} // namespace workbench
