// Servers that are not what a client hopes for.
#pragma once

#include <atomic>
#include <cstddef>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace workbench::testing {

/// Listens on a free port of the loopback device until it goes.
class TLoopbackListener {
public:
  /// Gets each connection and closes it. Called on the thread that listens.
  using TServe = std::function<void(int connection)>;

  /// Throws std::runtime_error.
  explicit TLoopbackListener(TServe serve);
  ~TLoopbackListener();
  TLoopbackListener(const TLoopbackListener&) = delete;
  TLoopbackListener& operator=(const TLoopbackListener&) = delete;

  unsigned Port() const { return FPort; }

private:
  void Listen() const;

  const TServe FServe;
  int FSocket = -1;
  int FStop = -1;
  unsigned FPort = 0;
  std::thread FThread;
};

/// Says one text to whoever connects, and nothing more; the connection stays open.
class TTextServer {
public:
  explicit TTextServer(const std::string& text);

  unsigned Port() const { return FListener.Port(); }
  /// How many have connected so far.
  std::size_t Count() const { return FCount; }

private:
  // Closed when they go.
  struct TConnections {
    TConnections() = default;
    ~TConnections();
    TConnections(const TConnections&) = delete;
    TConnections& operator=(const TConnections&) = delete;

    std::vector<int> Sockets = {};
  };

  TConnections FConnections; // outlive the listener, whose thread adds to them
  std::atomic<std::size_t> FCount = 0;
  TLoopbackListener FListener;
};

/// A port on which nobody listens.
unsigned ClosedPort();

} // namespace workbench::testing
