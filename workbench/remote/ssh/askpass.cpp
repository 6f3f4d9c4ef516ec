#include "workbench/remote/ssh/askpass.h"

#include "workbench/files/own_program.h"
#include "workbench/text/visible_text.h"

#include <array>
#include <cstdlib>
#include <cstring>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/un.h>

namespace workbench {
namespace {

constexpr const char* ProgramName = "deployment-askpass";
constexpr const char* InstalledDirectory = "../libexec/deployment-manager";
constexpr std::size_t LongestMessage = std::size_t(16) * 1024;
constexpr char HasAnswer = '+';
constexpr timeval Patience{5, 0}; // of one side with the other, but for a person's answer

TFileDescriptor OpenSocket() {
  const int file = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (file < 0)
    ThrowSystemError("making a socket");
  return TFileDescriptor(file);
}

sockaddr_un AddressOf(const std::string& path) {
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  if (path.size() >= sizeof(address.sun_path))
    throw std::system_error(ENAMETOOLONG, std::generic_category(), "making a socket");
  std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
  return address;
}

bool SendAll(const TFileDescriptor& file, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = ::send(file.Get(), text.data(), text.size(), MSG_NOSIGNAL);
    if (count < 0 && errno == EINTR)
      continue;
    if (count <= 0)
      return false;
    text.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

// Everything up to the end; empty when it does not come or is too long. It may be a secret, so no
// copies of it are left behind.
std::string ReceiveAll(const TFileDescriptor& file) {
  std::string text(LongestMessage, '\0');
  std::size_t size = 0;
  while (size < text.size()) {
    const ssize_t count = ::recv(file.Get(), text.data() + size, text.size() - size, 0);
    if (count < 0 && errno == EINTR)
      continue;
    if (count == 0) {
      text.resize(size);
      return text;
    }
    if (count < 0)
      break;
    size += static_cast<std::size_t>(count);
  }
  Wipe(text);
  return {};
}

// The other side is not there any more.
bool HasHungUp(const TFileDescriptor& file) {
  pollfd entry{file.Get(), 0, 0};
  return ::poll(&entry, 1, 0) > 0 && (entry.revents & (POLLHUP | POLLERR)) != 0;
}

} // namespace

void Wipe(std::string& secret) {
  ::explicit_bzero(secret.data(), secret.size());
  secret.clear();
}

std::filesystem::path AskpassProgram() {
  const std::filesystem::path directory = OwnProgram().parent_path();
  for (const auto& path : {directory / ProgramName, directory / InstalledDirectory / ProgramName}) {
    if (::access(path.c_str(), X_OK) == 0)
      return path;
  }
  return {};
}

std::vector<std::string> AskingNobody() {
  return {"SSH_ASKPASS=/bin/false", "SSH_ASKPASS_REQUIRE=force"};
}

TAskpassListener::TAskpassListener(TSecretQuestion ask)
    : FAsk(std::move(ask)), FToken(RandomDigits(2)), FSocket(OpenSocket()),
      FStop(::eventfd(0, EFD_CLOEXEC)) {
  const sockaddr_un address = AddressOf(FDirectory.Path() / "s");
  if (!FStop.IsOpen() ||
      ::bind(FSocket.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0 ||
      ::listen(FSocket.Get(), 4) != 0)
    ThrowSystemError("making a socket for questions");
  FThread = std::thread([this] { Listen(); });
}

TAskpassListener::~TAskpassListener() {
  FIsOver = true;
  static_cast<void>(::eventfd_write(FStop.Get(), 1));
  FThread.join();
}

std::vector<std::string> TAskpassListener::Environment() const {
  return {"SSH_ASKPASS=" + AskpassProgram().string(), "SSH_ASKPASS_REQUIRE=force",
          AskpassSocketVariable + ("=" + (FDirectory.Path() / "s").string()),
          AskpassTokenVariable + ("=" + FToken)};
}

void TAskpassListener::Listen() {
  while (!FIsOver) {
    std::array<pollfd, 2> files{{{FSocket.Get(), POLLIN, 0}, {FStop.Get(), POLLIN, 0}}};
    if (::poll(files.data(), files.size(), -1) <= 0 || files[0].revents == 0)
      continue;
    const TFileDescriptor client(::accept4(FSocket.Get(), nullptr, nullptr, SOCK_CLOEXEC));
    if (client.IsOpen())
      Serve(client);
  }
}

void TAskpassListener::Serve(const TFileDescriptor& client) const {
  static_cast<void>(
      ::setsockopt(client.Get(), SOL_SOCKET, SO_RCVTIMEO, &Patience, sizeof(Patience)));
  const std::string message = ReceiveAll(client);
  if (!message.starts_with(FToken + "\n"))
    return;
  std::optional<std::string> answer;
  try {
    answer = FAsk(Visible(std::string_view(message).substr(FToken.size() + 1)),
                  [&] { return FIsOver || HasHungUp(client); });
  } catch (const std::exception&) {
    return; // who asks has told the person, and the client goes on as without an answer
  }
  if (!answer)
    return;
  static_cast<void>(SendAll(client, {&HasAnswer, 1}) && SendAll(client, *answer));
  Wipe(*answer);
}

std::optional<std::string> AskThroughSocket(const std::string& prompt) {
  const char* path = std::getenv(AskpassSocketVariable);
  const char* token = std::getenv(AskpassTokenVariable);
  if (!path || !token)
    return std::nullopt;
  const TFileDescriptor file = OpenSocket();
  const sockaddr_un address = AddressOf(path);
  if (::connect(file.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0 ||
      !SendAll(file, token + ("\n" + prompt).substr(0, LongestMessage / 2)) ||
      ::shutdown(file.Get(), SHUT_WR) != 0)
    return std::nullopt;
  std::string answer = ReceiveAll(file);
  if (!answer.starts_with(HasAnswer))
    return std::nullopt;
  std::string secret = answer.substr(1);
  Wipe(answer);
  return secret;
}

} // namespace workbench
