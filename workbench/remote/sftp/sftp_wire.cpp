#include "workbench/remote/sftp/sftp_wire.h"

#include <algorithm>
#include <chrono>

namespace workbench {
namespace {

// What an attribute record has, with the numbers of the protocol.
constexpr std::uint32_t HasSize = 0x1;
constexpr std::uint32_t HasOwner = 0x2;
constexpr std::uint32_t HasMode = 0x4;
constexpr std::uint32_t HasTimes = 0x8;
constexpr std::uint32_t HasExtended = 0x80000000;

constexpr std::size_t NumberSize = 4;

void PutNumber(char* place, std::uint32_t value) {
  for (const unsigned shift : {24U, 16U, 8U, 0U})
    *place++ = static_cast<char>(value >> shift & 0xffU);
}

std::uint32_t NumberAt(std::string_view bytes) {
  std::uint32_t value = 0;
  for (const char byte : bytes.substr(0, NumberSize))
    value = value << 8U | static_cast<unsigned char>(byte);
  return value;
}

} // namespace

void TSftpWriter::Begin(TSftpPacket kind) {
  FStart = FBytes.Size();
  Number(0);
  Byte(static_cast<std::uint8_t>(kind));
}

void TSftpWriter::Number(std::uint32_t value) {
  PutNumber(FBytes.Room(NumberSize).data(), value);
}

void TSftpWriter::LongNumber(std::uint64_t value) {
  Number(static_cast<std::uint32_t>(value >> 32U));
  Number(static_cast<std::uint32_t>(value & 0xffffffffU));
}

void TSftpWriter::Text(std::string_view text) {
  Number(static_cast<std::uint32_t>(text.size()));
  FBytes.Append(text);
}

void TSftpWriter::Attributes(const TSftpAttributes& attributes) {
  const bool times = attributes.Accessed && attributes.Modified;
  Number((attributes.Size ? HasSize : 0) | (attributes.Mode ? HasMode : 0) |
         (times ? HasTimes : 0));
  if (attributes.Size)
    LongNumber(*attributes.Size);
  if (attributes.Mode)
    Number(*attributes.Mode);
  if (times) {
    Number(*attributes.Accessed);
    Number(*attributes.Modified);
  }
}

std::span<char> TSftpWriter::Room(std::size_t size) {
  Number(static_cast<std::uint32_t>(size));
  return FBytes.Room(size);
}

void TSftpWriter::End() {
  PutNumber(FBytes.At(FStart), static_cast<std::uint32_t>(FBytes.Size() - FStart - NumberSize));
}

std::string_view TSftpParser::Take(std::size_t size) {
  if (size > FRest.size())
    throw TSftpFormatError("a packet ends early");
  const std::string_view taken = FRest.substr(0, size);
  FRest.remove_prefix(size);
  return taken;
}

std::uint8_t TSftpParser::Byte() {
  return static_cast<std::uint8_t>(Take(1).front());
}

std::uint32_t TSftpParser::Number() {
  return NumberAt(Take(NumberSize));
}

std::uint64_t TSftpParser::LongNumber() {
  const std::uint64_t high = Number();
  return high << 32U | Number();
}

std::string_view TSftpParser::Text() {
  return Take(Number());
}

TSftpAttributes TSftpParser::Attributes() {
  TSftpAttributes attributes;
  const std::uint32_t flags = Number();
  if (flags & HasSize)
    attributes.Size = LongNumber();
  if (flags & HasOwner)
    LongNumber();
  if (flags & HasMode)
    attributes.Mode = Number();
  if (flags & HasTimes) {
    attributes.Accessed = Number();
    attributes.Modified = Number();
  }
  if (flags & HasExtended) {
    for (std::uint32_t count = Number(); count > 0; --count) {
      Text();
      Text();
    }
  }
  return attributes;
}

TSftpStatus TSftpReply::Status() const {
  if (Kind != TSftpPacket::Status)
    return TSftpStatus::BadMessage;
  TSftpParser content = Content;
  return static_cast<TSftpStatus>(content.Number());
}

std::uint32_t SftpTime(deployment::TFileTime time) {
  const auto seconds = std::chrono::floor<std::chrono::seconds>(time.time_since_epoch()).count();
  return static_cast<std::uint32_t>(std::clamp<std::int64_t>(seconds, 0, UINT32_MAX));
}

std::string SftpStatusText(TSftpStatus status) {
  switch (status) {
  case TSftpStatus::Ok:
    return "done";
  case TSftpStatus::EndOfFile:
    return "the file ends early";
  case TSftpStatus::NoSuchFile:
    return "no such file or directory";
  case TSftpStatus::PermissionDenied:
    return "permission denied";
  case TSftpStatus::Failure:
    return "the server reports a failure";
  case TSftpStatus::BadMessage:
    return "the server does not understand";
  case TSftpStatus::Unsupported:
    return "the server cannot do this";
  }
  return "the server reports error " + std::to_string(static_cast<std::uint32_t>(status));
}

} // namespace workbench
