#include "workbench/remote/sftp/sftp_examination.h"

#include <chrono>
#include <cstdint>
#include <utility>

namespace workbench {
namespace {

constexpr std::uint32_t RightsMask = 0777;

TRemoteStatus StatusFrom(const TSftpReply& reply) {
  TRemoteStatus status;
  if (reply.Kind != TSftpPacket::Attributes) {
    if (reply.Status() != TSftpStatus::NoSuchFile)
      status.Problem = SftpStatusText(reply.Status());
    return status;
  }
  TSftpParser content = reply.Content;
  const TSftpAttributes attributes = content.Attributes();
  const std::uint32_t mode = attributes.Mode.value_or(sftp_kind::File);
  status.Kind = (mode & sftp_kind::Mask) == sftp_kind::File        ? TRemoteKind::File
                : (mode & sftp_kind::Mask) == sftp_kind::Directory ? TRemoteKind::Directory
                : (mode & sftp_kind::Mask) == sftp_kind::Link      ? TRemoteKind::Link
                                                                   : TRemoteKind::Other;
  status.Size = attributes.Size.value_or(0);
  status.Modified = deployment::TFileTime(std::chrono::seconds(attributes.Modified.value_or(0)));
  status.Mode = mode & RightsMask;
  return status;
}

class TStatusQuestions final : public ISftpExchange {
public:
  explicit TStatusQuestions(std::span<const TRemoteName> names)
      : Answers(names.size()), FNames(names) {}

  bool PostNext(TSftpChannel& channel) override {
    if (FNext == FNames.size())
      return false;
    channel.Post(TSftpPacket::LStat, FNames[FNext].Path(), FNext);
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

} // namespace

std::vector<TRemoteStatus> ExamineRemote(TSftpChannel& channel,
                                         std::span<const TRemoteName> names) {
  TStatusQuestions questions(names);
  channel.Run(questions);
  return std::move(questions.Answers);
}

} // namespace workbench
