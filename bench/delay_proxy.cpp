// Passes bytes between two ports of this machine, each after a delay, as a far machine would get
// them; how many there are at a time is not limited, unless a rate is given: megabits a second, in
// each direction. Usage: delay_proxy TARGET-PORT MILLISECONDS [MEGABITS]. Prints the port on which
// it listens.
#include <algorithm>
#include <arpa/inet.h>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <mutex>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace {

using TClock = std::chrono::steady_clock;

constexpr std::size_t BlockSize = std::size_t(256) * 1024;
constexpr std::size_t SlowBlockSize = std::size_t(16) * 1024; // a few milliseconds of a line

// How a line carries bytes.
struct TLineKind {
  TClock::duration Delay = {};
  double BytesPerSecond = 0; // 0: as many as there are
};

// What is on its way in one direction.
class TLine {
public:
  explicit TLine(const TLineKind& kind) : FKind(kind) {}

  // An empty block ends it.
  void Put(std::string block) {
    const std::lock_guard lock(FMutex);
    FFree = std::max(FFree, TClock::now());
    if (FKind.BytesPerSecond > 0)
      FFree += std::chrono::duration_cast<TClock::duration>(
          std::chrono::duration<double>(static_cast<double>(block.size()) / FKind.BytesPerSecond));
    FBlocks.push_back({FFree + FKind.Delay, std::move(block)});
    FArrived.notify_one();
  }
  std::string Take() {
    std::unique_lock lock(FMutex);
    FArrived.wait(lock, [this] { return !FBlocks.empty(); });
    TBlock block = std::move(FBlocks.front());
    FBlocks.pop_front();
    lock.unlock();
    std::this_thread::sleep_until(block.Due);
    return std::move(block.Bytes);
  }

private:
  struct TBlock {
    TClock::time_point Due;
    std::string Bytes;
  };

  const TLineKind FKind;
  TClock::time_point FFree = {}; // when what was put is on its way
  std::mutex FMutex;
  std::condition_variable FArrived;
  std::deque<TBlock> FBlocks;
};

sockaddr_in Loopback(unsigned port) {
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(static_cast<std::uint16_t>(port));
  return address;
}

void SendAll(int to, const std::string& block) {
  for (std::size_t done = 0; done < block.size();) {
    const ssize_t count = ::send(to, block.data() + done, block.size() - done, MSG_NOSIGNAL);
    if (count <= 0)
      return;
    done += static_cast<std::size_t>(count);
  }
}

// Passes on until `from` ends.
void Pass(int from, int to, const TLineKind& kind) {
  TLine line(kind);
  std::thread sender([&] {
    for (std::string block = line.Take(); !block.empty(); block = line.Take())
      SendAll(to, block);
    ::shutdown(to, SHUT_WR);
  });
  std::string block(kind.BytesPerSecond > 0 ? SlowBlockSize : BlockSize, '\0');
  ssize_t count = 0;
  while ((count = ::recv(from, block.data(), block.size(), 0)) > 0)
    line.Put(block.substr(0, static_cast<std::size_t>(count)));
  line.Put({});
  sender.join();
}

void Serve(int client, unsigned targetPort, TLineKind kind) {
  const int target = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  const sockaddr_in address = Loopback(targetPort);
  const int on = 1;
  for (const int end : {client, target})
    static_cast<void>(::setsockopt(end, IPPROTO_TCP, TCP_NODELAY, &on, sizeof(on)));
  if (::connect(target, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0) {
    std::thread back([&] { Pass(target, client, kind); });
    Pass(client, target, kind);
    back.join();
  }
  ::close(target);
  ::close(client);
}

} // namespace

int main(int argc, char** argv) {
  if (argc != 3 && argc != 4) {
    std::fputs("usage: delay_proxy TARGET-PORT MILLISECONDS [MEGABITS]\n", stderr);
    return 2;
  }
  const auto targetPort = static_cast<unsigned>(std::strtoul(argv[1], nullptr, 10));
  constexpr double BytesPerMegabit = 125000;
  const TLineKind kind{std::chrono::milliseconds(std::strtoul(argv[2], nullptr, 10)),
                       argc == 4 ? std::strtod(argv[3], nullptr) * BytesPerMegabit : 0};
  const int listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address = Loopback(0);
  auto* general = reinterpret_cast<sockaddr*>(&address);
  socklen_t size = sizeof(address);
  if (::bind(listener, general, size) != 0 || ::listen(listener, 16) != 0 ||
      ::getsockname(listener, general, &size) != 0) {
    std::perror("delay_proxy");
    return 1;
  }
  std::printf("%u\n", static_cast<unsigned>(ntohs(address.sin_port)));
  std::fflush(stdout);
  while (true) {
    const int client = ::accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
    if (client >= 0)
      std::thread(Serve, client, targetPort, kind).detach();
  }
}
