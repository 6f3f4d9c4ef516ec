#include "workbench/remote/sftp/sftp_copies.h"

#include <algorithm>
#include <functional>
#include <system_error>
#include <utility>

namespace workbench {
namespace {

// The names come through standard input, so that no shell reads them.
constexpr const char* CopyCommand = "xargs -0 -n 2 cp -p --";

// Requests that are answered by a status each.
class TStatusRequests final : public ISftpExchange {
public:
  using TPost = std::function<void(TSftpChannel& channel, std::size_t index)>;

  TStatusRequests(std::size_t count, TPost post) : Answers(count), FPost(std::move(post)) {}

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

std::vector<TSftpStatus> AskStatuses(TSftpChannel& channel, std::size_t count,
                                     TStatusRequests::TPost post) {
  TStatusRequests requests(count, std::move(post));
  channel.Run(requests);
  return std::move(requests.Answers);
}

void PostTwo(TSftpChannel& channel, TSftpPacket kind, std::string_view extension,
             const TRemoteCopy& names, std::size_t cookie) {
  TSftpWriter& writer = channel.Begin(kind);
  if (!extension.empty())
    writer.Text(extension);
  writer.Text(names.From.Path());
  writer.Text(names.To.Path());
  channel.Post(cookie);
}

std::string CopyProblemOf(TSftpStatus status, std::string_view action) {
  return status == TSftpStatus::Ok ? std::string()
                                   : std::string(action) + ": " + SftpStatusText(status);
}

// Of what was copied the whole is there, or it counts for nothing.
void CopyThere(TSftpChannel& channel, const TRemoteExec& exec, std::span<const TRemoteCopy> copies,
               const std::vector<std::size_t>& wanted, std::vector<std::string>& problems) {
  std::string names;
  for (const std::size_t i : wanted)
    names.append(copies[i].From.Path()).append(1, '\0').append(copies[i].To.Path()).append(1, '\0');
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
  AskStatuses(channel, wanted.size(), [&](TSftpChannel& to, std::size_t i) {
    to.Post(TSftpPacket::Remove, copies[wanted[i]].To.Path(), i);
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
        AskStatuses(channel, copies.size(), [copies](TSftpChannel& to, std::size_t i) {
          PostTwo(to, TSftpPacket::Extended, sftp_extension::HardLink, copies[i], i);
        });
    for (std::size_t i = 0; i < answers.size(); ++i) {
      problems[i] = CopyProblemOf(answers[i], "linking it");
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
    AskStatuses(channel, moves.size(), [moves](TSftpChannel& to, std::size_t i) {
      to.Post(TSftpPacket::Remove, moves[i].To.Path(), i);
    });
  const std::vector<TSftpStatus> answers =
      AskStatuses(channel, moves.size(), [&](TSftpChannel& to, std::size_t i) {
        PostTwo(to, replaces ? TSftpPacket::Extended : TSftpPacket::Rename,
                replaces ? sftp_extension::PosixRename : std::string_view(), moves[i], i);
      });
  std::vector<std::string> problems;
  problems.reserve(answers.size());
  for (const TSftpStatus status : answers)
    problems.push_back(CopyProblemOf(status, "moving it"));
  return problems;
}

// Rights and time are asked for apart, so that the answer says which of them was refused.
std::vector<std::string> StampRemoteFiles(TSftpChannel& channel,
                                          std::span<const TRemoteStamp> stamps) {
  struct TQuestion {
    std::size_t Index;
    bool IsMode;
  };
  std::vector<TQuestion> questions;
  questions.reserve(stamps.size());
  for (std::size_t i = 0; i < stamps.size(); ++i) {
    if (stamps[i].Mode)
      questions.push_back({i, true});
    if (stamps[i].Time)
      questions.push_back({i, false});
  }
  const std::vector<TSftpStatus> answers =
      AskStatuses(channel, questions.size(), [&](TSftpChannel& to, std::size_t i) {
        const TRemoteStamp& stamp = stamps[questions[i].Index];
        TSftpAttributes attributes;
        if (questions[i].IsMode)
          attributes.Mode = stamp.Mode;
        else
          attributes.Accessed = attributes.Modified = SftpTime(*stamp.Time);
        TSftpWriter& writer = to.Begin(TSftpPacket::SetStat);
        writer.Text(stamp.Name.Path());
        writer.Attributes(attributes);
        to.Post(i);
      });
  std::vector<std::string> problems(stamps.size());
  for (std::size_t i = 0; i < answers.size(); ++i) {
    std::string& problem = problems[questions[i].Index];
    if (problem.empty())
      problem = CopyProblemOf(answers[i], questions[i].IsMode ? "setting its rights"
                                                              : "setting the time stamp");
  }
  return problems;
}

std::vector<std::string> RemoveRemoteFiles(TSftpChannel& channel,
                                           std::span<const TRemoteName> names) {
  const std::vector<TSftpStatus> answers =
      AskStatuses(channel, names.size(), [names](TSftpChannel& to, std::size_t i) {
        to.Post(TSftpPacket::Remove, names[i].Path(), i);
      });
  std::vector<std::string> problems;
  problems.reserve(answers.size());
  for (const TSftpStatus status : answers)
    problems.push_back(status == TSftpStatus::NoSuchFile ? std::string()
                                                         : CopyProblemOf(status, "removing it"));
  return problems;
}

void RemoveEmptyRemoteDirectories(TSftpChannel& channel, std::span<const std::string> directories) {
  std::vector<std::string> sorted(directories.begin(), directories.end());
  std::ranges::sort(sorted, std::greater<>(), &std::string::size);
  AskStatuses(channel, sorted.size(), [&sorted](TSftpChannel& to, std::size_t i) {
    to.Post(TSftpPacket::RemoveDirectory, sorted[i], i);
  });
}

} // namespace workbench
