#include "workbench/remote/sftp/sftp_creation.h"

#include <array>

namespace workbench {
namespace {

using TResult = TRemoteCreation::TResult;

constexpr std::uint32_t Rights = 0644; // whoever deploys there next may read what it says

// What is posted together once the file is open, and one answer to each.
enum TStep : std::uint8_t { Writing, Stamping, Closing, Linking, Looking, Removing, StepCount };
using TAnswers = std::array<TSftpStatus, StepCount>;

struct TOpened {
  std::string Handle; // empty when it failed
  TSftpStatus Status = TSftpStatus::Ok;
};

TOpened OpenNew(TSftpChannel& channel, const std::string& path) {
  TOpened opened;
  TSftpWriter& opening = channel.Begin(TSftpPacket::Open);
  opening.Text(path);
  opening.Number(sftp_open::Write | sftp_open::Create | sftp_open::Exclusive);
  opening.Attributes({.Mode = Rights});
  channel.Post(0);
  AskOnce(channel, [&opened](const TSftpReply& reply) {
    opened.Status = reply.Status();
    TSftpParser content = reply.Content;
    if (reply.Kind == TSftpPacket::Handle)
      opened.Handle = content.Text();
  });
  return opened;
}

void PostContent(TSftpChannel& channel, const std::string& handle, std::string_view text,
                 deployment::TFileTime time) {
  TSftpWriter& writing = channel.Begin(TSftpPacket::Write);
  writing.Text(handle);
  writing.LongNumber(0);
  writing.Text(text);
  channel.Post(Writing);
  TSftpWriter& stamping = channel.Begin(TSftpPacket::FSetStat);
  stamping.Text(handle);
  stamping.Attributes({.Accessed = SftpTime(time), .Modified = SftpTime(time)});
  channel.Post(Stamping);
  channel.Post(TSftpPacket::Close, handle, Closing);
}

TAnswers Answers(TSftpChannel& channel) {
  TAnswers answers = {};
  AskOnce(channel, [&answers](const TSftpReply& reply, std::uint64_t cookie) {
    if (cookie < answers.size())
      answers[cookie] = reply.Kind == TSftpPacket::Attributes ? TSftpStatus::Ok : reply.Status();
  });
  return answers;
}

void RemoveFile(TSftpChannel& channel, const std::string& path) {
  channel.Post(TSftpPacket::Remove, path, Removing);
  static_cast<void>(Answers(channel));
}

TRemoteCreation Failure(std::string_view action, TSftpStatus status) {
  return {TResult::Failed, std::string(action) + ": " + SftpStatusText(status)};
}

TRemoteCreation CreateEmptyFirst(TSftpChannel& channel, const std::string& path,
                                 std::string_view text, deployment::TFileTime time) {
  const TOpened opened = OpenNew(channel, path);
  // The protocol has no word for a file that is there.
  if (opened.Handle.empty() && opened.Status == TSftpStatus::Failure)
    return {TResult::Exists, "it is there already"};
  if (opened.Handle.empty())
    return Failure("making it", opened.Status);
  PostContent(channel, opened.Handle, text, time);
  const TSftpStatus written = Answers(channel)[Writing];
  if (written == TSftpStatus::Ok)
    return {TResult::Made};
  RemoveFile(channel, path);
  return Failure("writing it", written);
}

} // namespace

TRemoteCreation CreateRemoteFile(TSftpChannel& channel, const TRemoteName& name,
                                 const std::string& unfinished, std::string_view text,
                                 deployment::TFileTime time) {
  const std::string path = name.Path();
  if (!channel.Limits().HasHardLinks)
    return CreateEmptyFirst(channel, path, text, time);
  const std::string part = TRemoteName{name.Directory, unfinished}.Path();
  const TOpened opened = OpenNew(channel, part);
  if (opened.Handle.empty())
    return Failure("making it", opened.Status);
  PostContent(channel, opened.Handle, text, time);
  TSftpWriter& linking = channel.BeginExtended(sftp_extension::HardLink);
  linking.Text(part);
  linking.Text(path);
  channel.Post(Linking);
  channel.Post(TSftpPacket::LStat, path, Looking);
  channel.Post(TSftpPacket::Remove, part, Removing);
  const TAnswers answers = Answers(channel);
  const bool isLinked = answers[Linking] == TSftpStatus::Ok;
  if (answers[Writing] != TSftpStatus::Ok) {
    if (isLinked)
      RemoveFile(channel, path); // without its text it says nothing to anybody
    return Failure("writing it", answers[Writing]);
  }
  if (isLinked && answers[Looking] == TSftpStatus::Ok)
    return {TResult::Made};
  if (isLinked)
    return {TResult::Failed, "making it: the machine says that it is there, and it is not"};
  if (answers[Looking] == TSftpStatus::Ok)
    return {TResult::Exists, "it is there already"};
  return CreateEmptyFirst(channel, path, text, time); // its file system has no second names
}

} // namespace workbench
