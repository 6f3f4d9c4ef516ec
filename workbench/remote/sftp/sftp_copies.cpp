#include "workbench/remote/sftp/sftp_copies.h"

#include <algorithm>
#include <functional>
#include <system_error>
#include <utility>

namespace workbench {
namespace {

// The names come through standard input, so that no shell reads them.
constexpr const char* CopyCommand = "xargs -0 -n 2 cp -p --";

std::string PathOf(const TRemoteName& name) {
  return name.Directory + "/" + name.Name;
}

// Requests that are answered by a status each.
class TRequests final : public ISftpExchange {
public:
  using TPost = std::function<void(TSftpChannel& channel, std::size_t index)>;

  TRequests(std::size_t count, TPost post) : Answers(count), FPost(std::move(post)) {}

  bool PostNext(TSftpChannel& channel) override {
    if (FNext == Answers.size())
      return false;
    FPost(channel, FNext++);
    return true;
  }
  void OnReply(TSftpChannel&, std::uint64_t cookie, const TSftpReply& reply) override {
    Answers[cookie] = reply.Status();
  }

  std::vector<TSftpStatus> Answers;

private:
  TPost FPost;
  std::size_t FNext = 0;
};

std::vector<TSftpStatus> AskAll(TSftpChannel& channel, std::size_t count, TRequests::TPost post) {
  TRequests requests(count, std::move(post));
  channel.Run(requests);
  return std::move(requests.Answers);
}

void PostTwo(TSftpChannel& channel, TSftpPacket kind, std::string_view extension,
             const TRemoteCopy& names, std::size_t cookie) {
  TSftpWriter& writer = channel.Begin(kind);
  if (!extension.empty())
    writer.Text(extension);
  writer.Text(PathOf(names.From));
  writer.Text(PathOf(names.To));
  channel.Post(cookie);
}

std::string ProblemOf(TSftpStatus status, std::string_view action) {
  return status == TSftpStatus::Ok ? std::string()
                                   : std::string(action) + ": " + SftpStatusText(status);
}

// Of what was copied the whole is there, or it counts for nothing.
void CopyThere(TSftpChannel& channel, const TRemoteExec& exec, std::span<const TRemoteCopy> copies,
               const std::vector<std::size_t>& wanted, std::vector<std::string>& problems) {
  std::string names;
  for (const std::size_t i : wanted)
    names.append(PathOf(copies[i].From))
        .append(1, '\0')
        .append(PathOf(copies[i].To))
        .append(1, '\0');
  std::string problem;
  try {
    const TFeed feed = [&names](TByteBuffer& bytes) {
      bytes.Append(std::exchange(names, {}));
      return false;
    };
    problem = RunProcess(
                  exec(CopyCommand), feed, [](std::string_view) {}, [] { return false; })
                  .Problem();
  } catch (const std::system_error& error) {
    problem = error.what();
  }
  if (problem.empty())
    return;
  AskAll(channel, wanted.size(), [&](TSftpChannel& to, std::size_t i) {
    to.Post(TSftpPacket::Remove, PathOf(copies[wanted[i]].To), i);
  });
  for (const std::size_t i : wanted)
    problems[i] = "copying it: " + problem;
}

} // namespace

std::vector<std::string> KeepRemoteFiles(TSftpChannel& channel, const TRemoteExec& exec,
                                         std::span<const TRemoteCopy> copies) {
  std::vector<std::string> problems(copies.size());
  std::vector<std::size_t> rest;
  if (channel.Limits().HasHardLinks) {
    const std::vector<TSftpStatus> answers =
        AskAll(channel, copies.size(), [copies](TSftpChannel& to, std::size_t i) {
          PostTwo(to, TSftpPacket::Extended, sftp_extension::HardLink, copies[i], i);
        });
    for (std::size_t i = 0; i < answers.size(); ++i) {
      problems[i] = ProblemOf(answers[i], "linking it");
      if (answers[i] != TSftpStatus::Ok && answers[i] != TSftpStatus::NoSuchFile)
        rest.push_back(i);
    }
  } else {
    for (std::size_t i = 0; i < copies.size(); ++i) {
      problems[i] = "the server knows no hard links";
      rest.push_back(i);
    }
  }
  if (rest.empty() || !exec)
    return problems;
  for (const std::size_t i : rest)
    problems[i].clear();
  CopyThere(channel, exec, copies, rest, problems);
  return problems;
}

// A plain rename replaces nothing.
std::vector<std::string> MoveRemoteFiles(TSftpChannel& channel,
                                         std::span<const TRemoteCopy> moves) {
  const bool replaces = channel.Limits().HasPosixRename;
  if (!replaces)
    AskAll(channel, moves.size(), [moves](TSftpChannel& to, std::size_t i) {
      to.Post(TSftpPacket::Remove, PathOf(moves[i].To), i);
    });
  const std::vector<TSftpStatus> answers =
      AskAll(channel, moves.size(), [&](TSftpChannel& to, std::size_t i) {
        PostTwo(to, replaces ? TSftpPacket::Extended : TSftpPacket::Rename,
                replaces ? sftp_extension::PosixRename : std::string_view(), moves[i], i);
      });
  std::vector<std::string> problems;
  problems.reserve(answers.size());
  for (const TSftpStatus status : answers)
    problems.push_back(ProblemOf(status, "moving it"));
  return problems;
}

std::vector<std::string> RemoveRemoteFiles(TSftpChannel& channel,
                                           std::span<const TRemoteName> names) {
  const std::vector<TSftpStatus> answers =
      AskAll(channel, names.size(), [names](TSftpChannel& to, std::size_t i) {
        to.Post(TSftpPacket::Remove, PathOf(names[i]), i);
      });
  std::vector<std::string> problems;
  problems.reserve(answers.size());
  for (const TSftpStatus status : answers)
    problems.push_back(status == TSftpStatus::NoSuchFile ? std::string()
                                                         : ProblemOf(status, "removing it"));
  return problems;
}

void RemoveEmptyRemoteDirectories(TSftpChannel& channel, std::span<const std::string> directories) {
  std::vector<std::string> sorted(directories.begin(), directories.end());
  std::ranges::sort(sorted, std::greater<>(), &std::string::size);
  AskAll(channel, sorted.size(), [&sorted](TSftpChannel& to, std::size_t i) {
    to.Post(TSftpPacket::RemoveDirectory, sorted[i], i);
  });
}

} // namespace workbench
