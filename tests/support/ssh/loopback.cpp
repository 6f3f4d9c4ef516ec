#include "tests/support/ssh/loopback.h"

#include <array>
#include <netinet/in.h>
#include <poll.h>
#include <stdexcept>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

namespace workbench::testing {

TLoopbackListener::TLoopbackListener(TServe serve)
    : FServe(std::move(serve)), FSocket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)),
      FStop(::eventfd(0, EFD_CLOEXEC)) {
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  auto* general = reinterpret_cast<sockaddr*>(&address);
  socklen_t size = sizeof(address);
  if (FSocket < 0 || FStop < 0 || ::bind(FSocket, general, size) != 0 ||
      ::listen(FSocket, 16) != 0 || ::getsockname(FSocket, general, &size) != 0)
    throw std::runtime_error("no port of the loopback device");
  FPort = ntohs(address.sin_port);
  FThread = std::thread([this] { Listen(); });
}

TLoopbackListener::~TLoopbackListener() {
  static_cast<void>(::eventfd_write(FStop, 1));
  FThread.join();
  ::close(FSocket);
  ::close(FStop);
}

void TLoopbackListener::Listen() const {
  while (true) {
    std::array<pollfd, 2> files{{{FSocket, POLLIN, 0}, {FStop, POLLIN, 0}}};
    ::poll(files.data(), files.size(), -1);
    if (files[1].revents != 0)
      return;
    const int connection =
        files[0].revents == 0 ? -1 : ::accept4(FSocket, nullptr, nullptr, SOCK_CLOEXEC);
    if (connection >= 0)
      FServe(connection);
  }
}

TTextServer::TTextServer(const std::string& text)
    : FListener([this, text](int connection) {
        FConnections.Sockets.push_back(connection);
        static_cast<void>(::send(connection, text.data(), text.size(), MSG_NOSIGNAL));
        ++FCount;
      }) {}

TTextServer::TConnections::~TConnections() {
  for (const int connection : Sockets)
    ::close(connection);
}

unsigned ClosedPort() {
  return TLoopbackListener([](int connection) { ::close(connection); }).Port();
}

} // namespace workbench::testing
