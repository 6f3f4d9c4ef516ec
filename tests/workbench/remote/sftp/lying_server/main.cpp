// An SFTP server that does not tell the truth: it stands before a true one and changes what goes
// through it.
//   lying_server LIE PROGRAM [ARGUMENT...]
#include "workbench/remote/sftp/sftp_wire.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using workbench::TSftpPacket;
using workbench::TSftpParser;

constexpr std::size_t LengthSize = 4;

std::string Number(std::uint32_t value) {
  std::string bytes;
  for (const unsigned shift : {24U, 16U, 8U, 0U})
    bytes += static_cast<char>(value >> shift & 0xffU);
  return bytes;
}

std::string Text(std::string_view text) {
  return Number(static_cast<std::uint32_t>(text.size())) + std::string(text);
}

bool ReadExactly(int file, std::string& bytes, std::size_t size) {
  bytes.resize(size);
  for (std::size_t done = 0; done < size;) {
    const ssize_t count = ::read(file, bytes.data() + done, size - done);
    if (count <= 0)
      return false;
    done += static_cast<std::size_t>(count);
  }
  return true;
}

// The content of a packet, without its length.
std::optional<std::string> ReadPacket(int file) {
  std::string length;
  std::string content;
  if (!ReadExactly(file, length, LengthSize) ||
      !ReadExactly(file, content, TSftpParser(length).Number()))
    return std::nullopt;
  return content;
}

void WriteBytes(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(file, bytes.data(), bytes.size());
    if (count <= 0)
      std::_Exit(0);
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

// What a request is: its kind, and the name where it is an extended one or a look at a file.
struct TRequest {
  TSftpPacket Kind = TSftpPacket::Status;
  std::string Name;
};

class TLiar {
public:
  TLiar(std::string lie, int toServer, int fromServer)
      : FLie(std::move(lie)), FToServer(toServer), FFromServer(fromServer) {}

  void HearClient() {
    while (const auto packet = ReadPacket(STDIN_FILENO)) {
      const TRequest request = RequestOf(*packet);
      const std::string id = packet->substr(1, LengthSize);
      if (packet->size() > LengthSize && request.Kind != TSftpPacket::Init) {
        const std::lock_guard lock(FMutex);
        FRequests[id] = request;
      }
      if (IsDenied(request))
        Answer(Status(id, 3));
      else if (FLie == "no-second-names" && IsSecondName(request))
        Answer(Status(id, 4));
      else if (IsPretended(request))
        Answer(Status(id, 0));
      else if (!IsSwallowed(request))
        WriteBytes(FToServer, Text(*packet));
    }
    ::close(FToServer);
  }

  void HearServer() {
    bool isGreeting = true;
    while (auto packet = ReadPacket(FFromServer)) {
      if (isGreeting && FLie.starts_with("plain"))
        *packet = packet->substr(0, 1 + LengthSize); // knows nothing beyond the protocol
      if (!isGreeting) {
        std::string id = packet->substr(1, LengthSize);
        TRequest request;
        {
          const std::lock_guard lock(FMutex);
          request = FRequests[id];
        }
        Change(*packet, id, request);
      }
      isGreeting = false;
      Answer(*packet);
    }
  }

private:
  static TRequest RequestOf(const std::string& packet) {
    TRequest request{static_cast<TSftpPacket>(packet.front()), {}};
    if (request.Kind == TSftpPacket::Extended || request.Kind == TSftpPacket::LStat) {
      TSftpParser content(std::string_view(packet).substr(1 + LengthSize));
      request.Name = content.Text();
    }
    return request;
  }
  // Tests call their file so; directories are told of truly.
  static bool IsLook(const TRequest& request) {
    return request.Kind == TSftpPacket::LStat && request.Name.ends_with("/a");
  }
  static bool IsRename(const TRequest& request) {
    return request.Kind == TSftpPacket::Rename || request.Name.starts_with("posix-rename");
  }
  static bool IsSecondName(const TRequest& request) { return request.Name.starts_with("hardlink"); }
  static std::string Status(const std::string& id, std::uint32_t code) {
    return std::string(1, static_cast<char>(TSftpPacket::Status)) + id + Number(code) + Text("") +
           Text("");
  }

  // "plain-denied:2" refuses the second rename.
  bool IsDenied(const TRequest& request) {
    if (FLie == "no-sync" && request.Name.starts_with("fsync"))
      return true;
    const std::string_view start = "plain-denied:";
    return FLie.starts_with(start) && IsRename(request) &&
           FLie.substr(start.size()).find(std::to_string(++FRenames)) != std::string::npos;
  }
  // "plain-pretends:3" does not carry out the third rename, and says that it did.
  bool IsPretended(const TRequest& request) {
    const std::string_view start = "plain-pretends:";
    if (FLie.starts_with(start) && IsRename(request))
      return FLie.substr(start.size()) == std::to_string(++FRenames);
    return (FLie == "write-nothing" && request.Kind == TSftpPacket::Write) ||
           (FLie == "rename-nothing" && IsRename(request)) ||
           (FLie == "link-nothing" && IsSecondName(request));
  }
  bool IsSwallowed(const TRequest& request) const {
    return (FLie == "silent-stat" && IsLook(request)) ||
           (FLie == "silent-write" && request.Kind == TSftpPacket::Write) ||
           (FLie == "silent-list" && request.Kind == TSftpPacket::OpenDirectory);
  }

  void Change(std::string& packet, std::string& id, const TRequest& request) {
    const auto as = [&](TSftpPacket kind, const std::string& content) {
      packet = std::string(1, static_cast<char>(kind)) + id + content;
    };
    const bool isWrite = request.Kind == TSftpPacket::Write;
    const bool isList = request.Kind == TSftpPacket::ReadDirectory;
    const bool isLook = IsLook(request);
    const std::string attributes = Number(4) + Number(0100644);
    if (const std::string_view start = "kind:"; FLie.starts_with(start)) {
      if (isWrite || IsRename(request))
        packet[0] = static_cast<char>(std::atoi(FLie.c_str() + start.size()));
    } else if (const std::string_view renaming = "rename-kind:"; FLie.starts_with(renaming)) {
      if (IsRename(request))
        packet[0] = static_cast<char>(std::atoi(FLie.c_str() + renaming.size()));
    } else if (FLie == "handle-for-data" && request.Kind == TSftpPacket::Read) {
      as(TSftpPacket::Handle, Text("h"));
    } else if (FLie == "empty-data" && request.Kind == TSftpPacket::Read) {
      as(TSftpPacket::Data, Text(""));
    } else if (FLie == "list-for-ever" && isList) {
      std::string names = Number(100);
      for (int i = 0; i < 100; ++i)
        names += Text("n") + Text("n") + attributes;
      as(TSftpPacket::Name, names);
    } else if (FLie == "list-of-none" && isList) {
      as(TSftpPacket::Name, Number(0));
    } else if (FLie == "list-of-handles" && isList) {
      as(TSftpPacket::Handle, Text("h"));
    } else if (FLie == "list-of-paths" && isList && !FSaidPaths) {
      FSaidPaths = true;
      const std::string unfinished = ".deploymgr-0-1-0-0-.part"; // changed in 1970
      std::string names = Number(3);
      for (const std::string& name : {"../" + unfinished, "/" + unfinished, std::string("\0x", 2)})
        names += Text(name) + Text("") + Number(8) + Number(0) + Number(0);
      as(TSftpPacket::Name, names);
    } else if (FLie == "end" && isLook) {
      std::_Exit(0);
    } else if (FLie == "half" && isLook) {
      WriteBytes(STDOUT_FILENO, Text(packet).substr(0, packet.size() / 2));
      std::_Exit(0);
    } else if (FLie == "garbage" && isLook) {
      packet = "\xff\xff" + id + "nonsense";
    } else if (FLie == "wrong-id" && isLook) {
      id[0] = '\x7f';
      packet.replace(1, LengthSize, id);
    } else if (FLie == "long" && isLook) {
      packet += "more";
    } else if (FLie == "short" && isLook) {
      packet.resize(packet.size() - 1);
    } else if (FLie == "many-attributes" && isLook) {
      as(TSftpPacket::Attributes, Number(0x80000000) + Number(0xffffffff));
    } else if (FLie == "many-names" && request.Kind == TSftpPacket::RealPath) {
      as(TSftpPacket::Name, Number(0xffffffff) + Text("/x") + Text("") + Number(0));
    } else if (FLie == "early-look" && isLook && !FHasLooked) {
      FHasLooked = true; // as if it had been looked at before the rename
      packet = Status(id, 2);
    } else if (FLie == "well-but-nothing" && isLook) {
      packet = Status(id, 0);
    }
  }

  void Answer(const std::string& packet) {
    const std::lock_guard lock(FOutput);
    WriteBytes(STDOUT_FILENO, Text(packet));
  }

  const std::string FLie;
  const int FToServer;
  const int FFromServer;
  std::mutex FMutex; // of the requests
  std::map<std::string, TRequest> FRequests;
  std::mutex FOutput;
  int FRenames = 0;
  bool FSaidPaths = false;
  bool FHasLooked = false;
};

} // namespace

int main(int argc, char** argv) {
  std::array<int, 2> toServer{};
  std::array<int, 2> fromServer{};
  if (argc < 3 || ::pipe(toServer.data()) != 0 || ::pipe(fromServer.data()) != 0)
    return 2;
  const pid_t server = ::fork();
  if (server == 0) {
    ::dup2(toServer[0], STDIN_FILENO);
    ::dup2(fromServer[1], STDOUT_FILENO);
    for (const int file : {toServer[0], toServer[1], fromServer[0], fromServer[1]})
      ::close(file);
    ::execvp(argv[2], argv + 2);
    std::_Exit(127);
  }
  ::close(toServer[0]);
  ::close(fromServer[1]);
  TLiar liar(argv[1], toServer[1], fromServer[0]);
  std::thread client([&liar] { liar.HearClient(); });
  liar.HearServer();
  std::_Exit(0); // the client may still be reading
}
