// The packets of the SSH file transfer protocol, version 3, as bytes: making them and taking them
// apart. What comes from a server is checked before it is used.
#pragma once

#include "package/host/api/platformapi.h"
#include "workbench/process/byte_buffer.h"

#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace workbench {

/// Kinds of packets, with the numbers of the protocol.
enum class TSftpPacket : std::uint8_t {
  Init = 1,
  Version = 2,
  Open = 3,
  Close = 4,
  Read = 5,
  Write = 6,
  LStat = 7,
  FStat = 8,
  SetStat = 9,
  FSetStat = 10,
  OpenDirectory = 11,
  ReadDirectory = 12,
  Remove = 13,
  MakeDirectory = 14,
  RemoveDirectory = 15,
  RealPath = 16,
  Stat = 17,
  Rename = 18,
  ReadLink = 19,
  MakeLink = 20,
  Status = 101,
  Handle = 102,
  Data = 103,
  Name = 104,
  Attributes = 105,
  Extended = 200,
  ExtendedReply = 201,
};

/// Results of a request, with the numbers of the protocol.
enum class TSftpStatus : std::uint32_t {
  Ok = 0,
  EndOfFile = 1,
  NoSuchFile = 2,
  PermissionDenied = 3,
  Failure = 4,
  BadMessage = 5,
  Unsupported = 8,
};

/// Flags of an open, with the numbers of the protocol.
namespace sftp_open {
inline constexpr std::uint32_t Read = 0x01;
inline constexpr std::uint32_t Write = 0x02;
inline constexpr std::uint32_t Create = 0x08;
inline constexpr std::uint32_t Exclusive = 0x20;
} // namespace sftp_open

/// Kinds of files in a mode, as POSIX has them.
namespace sftp_kind {
inline constexpr std::uint32_t Mask = 0170000;
inline constexpr std::uint32_t File = 0100000;
inline constexpr std::uint32_t Directory = 0040000;
inline constexpr std::uint32_t Link = 0120000;
} // namespace sftp_kind

/// What a server says of a file, or is to set. Times are seconds since 1970.
struct TSftpAttributes {
  std::optional<std::uint64_t> Size = {};
  std::optional<std::uint32_t> Mode = {}; ///< rights and kind, as POSIX has them
  std::optional<std::uint32_t> Accessed = {};
  std::optional<std::uint32_t> Modified = {}; ///< sent and received together with Accessed
};

/// The server sent something that is no packet of the protocol.
class TSftpFormatError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

/// Appends packets to a run of bytes.
class TSftpWriter {
public:
  explicit TSftpWriter(TByteBuffer& bytes) : FBytes(bytes) {}

  void Begin(TSftpPacket kind);
  void Byte(std::uint8_t value) { FBytes.Room(1).front() = static_cast<char>(value); }
  void Number(std::uint32_t value);
  void LongNumber(std::uint64_t value);
  void Text(std::string_view text);
  void Attributes(const TSftpAttributes& attributes);
  /// Room for a text of that many bytes, to be filled before anything else is written.
  std::span<char> Room(std::size_t size);
  /// Completes the packet that was begun.
  void End();

private:
  TByteBuffer& FBytes;
  std::size_t FStart = 0; // of the packet, from the first byte of the buffer
};

/// Takes the content of one packet apart. Every call throws TSftpFormatError where the packet ends
/// early. Texts point into the packet.
class TSftpParser {
public:
  TSftpParser() = default;
  explicit TSftpParser(std::string_view bytes) : FRest(bytes) {}

  std::uint8_t Byte();
  std::uint32_t Number();
  std::uint64_t LongNumber();
  std::string_view Text();
  TSftpAttributes Attributes();
  bool IsAtEnd() const { return FRest.empty(); }

private:
  std::string_view Take(std::size_t size);

  std::string_view FRest;
};

/// An answer: the kind and what follows the number of the request.
struct TSftpReply {
  TSftpPacket Kind = TSftpPacket::Status;
  TSftpParser Content = {};

  /// The status when the reply is one, else BadMessage.
  TSftpStatus Status() const;
};

/// A time stamp as the protocol has it: whole seconds since 1970, the nearest that can be said.
std::uint32_t SftpTime(deployment::TFileTime time);

/// Words for a status that is not Ok, as in "cannot be made: no such file or directory".
std::string SftpStatusText(TSftpStatus status);

} // namespace workbench
