// An SFTP server that is honest but once: it stands between a client and the real server and, at
// one request of all its conversations, does or says something else.
//   fault_server SERVER COUNTER AT LIE [OPTION...]
// COUNTER is a file that grows by a byte with each request; AT is the request that is lied about,
// counted from 1; OPTIONs go to the server.
#include "tests/faults/lies.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace {

using faults::TLie;
using faults::TLieWay;

constexpr std::size_t HeadSize = 4;
constexpr std::uint8_t StatusPacket = 101;

std::string Number(std::uint32_t value) {
  std::string bytes;
  for (const unsigned shift : {24U, 16U, 8U, 0U})
    bytes.push_back(static_cast<char>(value >> shift & 0xffU));
  return bytes;
}

// Exactly that many bytes; fewer at the end of the conversation.
std::string Read(int file, std::size_t size) {
  std::string bytes(size, '\0');
  std::size_t filled = 0;
  while (filled < size) {
    const ssize_t count = ::read(file, bytes.data() + filled, size - filled);
    if (count <= 0 && errno != EINTR)
      break;
    filled += count > 0 ? static_cast<std::size_t>(count) : 0;
  }
  bytes.resize(filled);
  return bytes;
}

void Write(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(file, bytes.data(), bytes.size());
    if (count < 0 && errno != EINTR)
      std::exit(0);
    bytes.remove_prefix(count > 0 ? static_cast<std::size_t>(count) : 0);
  }
}

// A packet with its length; empty at the end.
std::string ReadPacket(int file) {
  const std::string head = Read(file, HeadSize);
  if (head.size() < HeadSize)
    return {};
  std::size_t length = 0;
  for (const char byte : head)
    length = length << 8U | static_cast<unsigned char>(byte);
  return head + Read(file, length);
}

std::string Packet(std::uint8_t kind, std::string_view id, const std::string& content) {
  const std::string body = static_cast<char>(kind) + std::string(id) + content;
  return Number(static_cast<std::uint32_t>(body.size())) + body;
}

std::string Status(std::string_view id, std::uint32_t status) {
  return Packet(StatusPacket, id, Number(status) + Number(4) + "said" + Number(0));
}

// Which request of all conversations this one is.
std::uint64_t CountRequest(const char* counter) {
  const int file = ::open(counter, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
  Write(file, ".");
  const off_t count = ::lseek(file, 0, SEEK_CUR);
  ::close(file);
  return static_cast<std::uint64_t>(count);
}

struct TConversation {
  int ToServer = -1;
  int FromServer = -1;
};

TConversation StartServer(const char* server, char** options) {
  std::array<int, 2> there{};
  std::array<int, 2> back{};
  if (::pipe2(there.data(), O_CLOEXEC) != 0 || ::pipe2(back.data(), O_CLOEXEC) != 0)
    std::exit(1);
  if (::fork() == 0) {
    ::dup2(there[0], 0);
    ::dup2(back[1], 1);
    std::vector<char*> command{const_cast<char*>(server)};
    for (; *options; ++options)
      command.push_back(*options);
    command.push_back(nullptr);
    ::execv(server, command.data());
    ::_exit(127);
  }
  ::close(there[0]);
  ::close(back[1]);
  return {there[1], back[0]};
}

// The reply to a request, told wrongly.
void Tell(const TConversation& server, const TLie& lie, const std::string& request) {
  const std::string_view id = std::string_view(request).substr(HeadSize + 1, HeadSize);
  if (lie.Way == TLieWay::AnswerWithout)
    return Write(1, Packet(lie.Kind, id,
                           lie.Kind == StatusPacket ? Status(id, lie.Value).substr(9)
                                                    : Number(lie.Value) + "lies"));
  Write(server.ToServer, request);
  const std::string reply = ReadPacket(server.FromServer);
  switch (lie.Way) {
  case TLieWay::AnswerAfter:
    return Write(1, Status(id, lie.Value));
  case TLieWay::WrongId:
    return Write(1, reply.substr(0, 5) + Number(lie.Value) + reply.substr(9));
  case TLieWay::Half:
    Write(1, reply.substr(0, reply.size() / 2));
    std::exit(0);
  case TLieWay::Twice:
    return Write(1, reply + reply);
  case TLieWay::WrongLength:
    Write(1, Number(lie.Value) + reply.substr(HeadSize));
    std::exit(0);
  case TLieWay::Noise:
    Write(1, "Welcome to the machine!\r\n");
    std::exit(0);
  default:
    std::exit(0);
  }
}

} // namespace

int main(int count, char** arguments) {
  if (count < 5)
    return 2;
  const TLie* lie = faults::FindLie(arguments[4]);
  const std::uint64_t at = std::strtoull(arguments[3], nullptr, 10);
  const TConversation server = StartServer(arguments[1], arguments + 5);
  while (true) {
    const std::string request = ReadPacket(0);
    if (request.size() < HeadSize + 1)
      return 0;
    if (CountRequest(arguments[2]) == at && lie && request.size() >= 2 * HeadSize + 1) {
      Tell(server, *lie, request);
      continue;
    }
    Write(server.ToServer, request);
    Write(1, ReadPacket(server.FromServer));
  }
}
