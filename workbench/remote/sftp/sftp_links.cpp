#include "workbench/remote/sftp/sftp_links.h"

namespace workbench {
namespace {

TRemoteLink LinkFrom(const TSftpReply& reply) {
  if (reply.Kind != TSftpPacket::Name) {
    const TSftpStatus status = reply.Status();
    // A server says no more than this about what is there and no link.
    return {.Problem = status == TSftpStatus::Ok ? "the server gives no answer"
                                                 : "reading the link: " + SftpStatusText(status)};
  }
  TSftpParser content = reply.Content;
  if (content.Number() != 1)
    return {.Problem = "the server gives no answer"};
  return {.Text = std::string(content.Text())};
}

class TLinkQuestions final : public ISftpExchange {
public:
  explicit TLinkQuestions(std::span<const TRemoteName> names)
      : Answers(names.size()), FNames(names) {}

  bool PostNext(TSftpChannel& channel) override {
    if (FNext == FNames.size())
      return false;
    channel.Post(TSftpPacket::ReadLink, FNames[FNext].Path(), FNext);
    ++FNext;
    return true;
  }
  void OnReply(TSftpChannel&, std::uint64_t cookie, const TSftpReply& reply) override {
    Answers[cookie] = LinkFrom(reply);
  }

  std::vector<TRemoteLink> Answers;

private:
  std::span<const TRemoteName> FNames;
  std::size_t FNext = 0;
};

// The answer to the one request that was posted.
TSftpStatus Answer(TSftpChannel& channel) {
  TSftpStatus status = TSftpStatus::Ok;
  AskOnce(channel, [&status](const TSftpReply& reply) { status = reply.Status(); });
  return status;
}

} // namespace

bool CanMakeLinks(const TSftpLimits& limits) {
  return limits.HasPosixRename;
}

std::vector<TRemoteLink> ReadRemoteLinks(TSftpChannel& channel,
                                         std::span<const TRemoteName> names) {
  TLinkQuestions questions(names);
  channel.Run(questions);
  return std::move(questions.Answers);
}

std::string MakeRemoteLink(TSftpChannel& channel, const TRemoteName& name,
                           const TRemoteName& unfinished, const std::string& text) {
  TSftpWriter& link = channel.Begin(TSftpPacket::MakeLink);
  link.Text(text); // where it leads comes first, other than the protocol's text has it
  link.Text(unfinished.Path());
  channel.Post(0);
  if (const TSftpStatus status = Answer(channel); status != TSftpStatus::Ok)
    return "making a link beside it: " + SftpStatusText(status);

  TSftpWriter& rename = channel.BeginExtended(sftp_extension::PosixRename);
  rename.Text(unfinished.Path());
  rename.Text(name.Path());
  channel.Post(0);
  const TSftpStatus status = Answer(channel);
  if (status == TSftpStatus::Ok)
    return {};
  channel.Post(TSftpPacket::Remove, unfinished.Path(), 0);
  static_cast<void>(Answer(channel)); // what stays is removed by a later deploy
  return "putting it in place: " + SftpStatusText(status);
}

} // namespace workbench
