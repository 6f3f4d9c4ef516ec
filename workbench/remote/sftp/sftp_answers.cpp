#include "workbench/remote/sftp/sftp_answers.h"

namespace workbench {
namespace {

constexpr std::size_t LongestHandle = 256; // as the protocol has it

// The kind that brings what was asked for; Status where there is nothing to be brought.
TSftpPacket ResultOf(const TSftpRequest& request) {
  switch (request.Kind) {
  case TSftpPacket::Open:
  case TSftpPacket::OpenDirectory:
    return TSftpPacket::Handle;
  case TSftpPacket::Read:
    return TSftpPacket::Data;
  case TSftpPacket::ReadDirectory:
  case TSftpPacket::RealPath:
  case TSftpPacket::ReadLink:
    return TSftpPacket::Name;
  case TSftpPacket::LStat:
  case TSftpPacket::FStat:
  case TSftpPacket::Stat:
    return TSftpPacket::Attributes;
  case TSftpPacket::Extended:
    return request.HasResult ? TSftpPacket::ExtendedReply : TSftpPacket::Status;
  default:
    return TSftpPacket::Status;
  }
}

// A server may leave out the words for people.
void CheckStatus(TSftpPacket result, TSftpParser content) {
  if (static_cast<TSftpStatus>(content.Number()) == TSftpStatus::Ok &&
      result != TSftpPacket::Status)
    throw TSftpFormatError("all is well, but what was asked for is not there");
  if (content.IsAtEnd())
    return;
  content.Text();
  if (!content.IsAtEnd())
    content.Text();
  if (!content.IsAtEnd())
    throw TSftpFormatError("a packet ends late");
}

void CheckNames(const TSftpRequest& request, TSftpParser& content) {
  const std::uint32_t count = content.Number();
  if (count == 0 || (count > 1 && request.Kind != TSftpPacket::ReadDirectory))
    throw TSftpFormatError("a wrong number of names");
  for (std::uint32_t i = 0; i < count; ++i) {
    content.Text();
    content.Text(); // the same for people
    content.Attributes();
  }
}

} // namespace

void CheckAnswer(const TSftpRequest& request, const TSftpReply& answer) {
  const TSftpPacket result = ResultOf(request);
  TSftpParser content = answer.Content;
  if (answer.Kind == TSftpPacket::Status)
    return CheckStatus(result, content);
  if (answer.Kind != result)
    throw TSftpFormatError(
        "an answer of kind " + std::to_string(static_cast<unsigned>(answer.Kind)) +
        " to a request of kind " + std::to_string(static_cast<unsigned>(request.Kind)));
  switch (result) {
  case TSftpPacket::Handle:
    if (const std::size_t size = content.Text().size(); size == 0 || size > LongestHandle)
      throw TSftpFormatError("a handle of " + std::to_string(size) + " bytes");
    break;
  case TSftpPacket::Data:
    if (content.Text().empty())
      throw TSftpFormatError("no bytes, and not the end of the file");
    break;
  case TSftpPacket::Name:
    CheckNames(request, content);
    break;
  case TSftpPacket::Attributes:
    content.Attributes();
    break;
  default:
    return; // each extended request has an answer of its own
  }
  if (!content.IsAtEnd())
    throw TSftpFormatError("a packet ends late");
}

} // namespace workbench
