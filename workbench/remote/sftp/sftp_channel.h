// One conversation with an SFTP server: requests go out as fast as the line takes them, answers
// come back in any order.
#pragma once

#include "workbench/process/child_process.h"
#include "workbench/remote/sftp/sftp_answers.h"
#include "workbench/remote/sftp/sftp_wire.h"
#include "workbench/remote/target/remote_connection.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <deque>
#include <string>
#include <type_traits>

namespace workbench {

class TSftpChannel;

/// A piece of work made of many requests. Its calls come from TSftpChannel::Run.
class ISftpExchange {
public:
  virtual ~ISftpExchange() = default;
  /// Posts one request more; false when there is nothing to post just now. It is called again
  /// after each answer.
  virtual bool PostNext(TSftpChannel& channel) = 0;
  /// The answer to the request that was posted with that number of the exchange's own.
  virtual void OnReply(TSftpChannel& channel, std::uint64_t cookie, const TSftpReply& reply) = 0;
  /// False for one that goes on when the run is interrupted: it is short, or takes back by itself
  /// what it began. It gets a moment for that. Others are asked for nothing more.
  virtual bool MayBeStopped() const { return true; }
};

/// Names of requests that some servers know beyond the protocol.
namespace sftp_extension {
inline constexpr std::string_view PosixRename = "posix-rename@openssh.com";
inline constexpr std::string_view HardLink = "hardlink@openssh.com";
inline constexpr std::string_view SpaceQuery = "statvfs@openssh.com";
inline constexpr std::string_view Sync = "fsync@openssh.com";
inline constexpr std::string_view Limits = "limits@openssh.com";
} // namespace sftp_extension

/// What a server can do beyond the protocol's version 3.
struct TSftpLimits {
  bool HasPosixRename = false; ///< a rename that replaces what is there, at once
  bool HasHardLinks = false;   ///< a second name for a file
  bool HasSpaceQuery = false;  ///< how full the disk is
  bool HasSync = false;        ///< brings an open file to the disk
  std::size_t LargestWrite = std::size_t(32) * 1024; ///< bytes in one request
  std::size_t MostHandles = 100;                     ///< files that may be open at a time
  std::chrono::nanoseconds RoundTrip = {};           ///< from a request to its answer
};

/// How long a server may say nothing.
struct TSftpPatience {
  std::chrono::milliseconds Greeting; ///< at the start, while keys are exchanged and people asked
  std::chrono::milliseconds Answer;
};

/// Speaks with the program that it is given, which is a client that carries the protocol to the
/// server, or a server itself. Used by one thread at a time. Every call throws TConnectionError
/// when the conversation ends; the object is of no use after that.
class TSftpChannel {
public:
  /// Greets the server.
  TSftpChannel(const TProcessStart& start, const TSftpPatience& patience,
               const std::atomic<int>* cancelled = nullptr);

  /// What interrupts exchanges from now on when it turns to something else than 0; null: nothing
  /// does. It must live as long as it is set.
  void SetCancelled(const std::atomic<int>* cancelled) { FCancelled = cancelled; }
  bool IsCancelled() const { return FCancelled && *FCancelled != 0; }

  /// False when the conversation has ended, or stands in the middle of an exchange that broke.
  bool IsAlive() const;

  const TSftpLimits& Limits() const { return FLimits; }

  /// Begins a request; its fields follow through the writer.
  TSftpWriter& Begin(TSftpPacket kind);
  /// Begins a request beyond the protocol, of one of the names above.
  TSftpWriter& BeginExtended(std::string_view name);
  /// Sends the request that was begun. The answer comes with `cookie`.
  void Post(std::uint64_t cookie);
  /// A request of one text, such as a path or a handle.
  void Post(TSftpPacket kind, std::string_view text, std::uint64_t cookie);

  /// Works on the exchange until it has nothing more to post and all is answered. An answer that
  /// does not fit its request ends the conversation.
  void Run(ISftpExchange& exchange);
  /// Requests that wait for their answer.
  std::size_t Pending() const { return FPendingCount; }

private:
  struct TPending {
    std::uint64_t Cookie = 0;
    TSftpRequest Request;
    bool IsWaiting = false;
  };

  void Greet(const TSftpPatience& patience);
  bool ReadGreeting(std::string_view packet);
  void MeasureRoundTrip(bool hasLimits);
  void ReadLimits();
  void Move(std::chrono::milliseconds patience);
  void Write();
  void Read();
  bool TakePacket(std::string_view& packet);
  void Dispatch(ISftpExchange& exchange);
  TPending& PendingOf(std::uint32_t id);
  void WatchTheClock(bool moved);
  std::string LossReason() const;
  [[noreturn]] void Fail(const std::string& reason);

  TChildProcess FProcess;
  std::chrono::milliseconds FSilence; // the longest allowed just now
  std::chrono::steady_clock::time_point FLastSign;
  const std::atomic<int>* FCancelled;
  TSftpLimits FLimits;
  TByteBuffer FOut;
  TSftpWriter FWriter{FOut};
  TByteBuffer FIn;
  bool FHasEnded = false;
  bool FHasFailed = false;
  std::deque<TPending> FPending; // by number, the first one's being FFirstId
  std::uint32_t FFirstId = 1;
  std::size_t FPendingCount = 0;
  TSftpRequest FBegun; // and not posted yet
};

/// Runs what was posted and hands the answers to `take`, with their cookies where it wants these.
template <class TTake>
void AskOnce(TSftpChannel& channel, TTake take) {
  class TOne final : public ISftpExchange {
  public:
    explicit TOne(TTake& take) : FTake(take) {}
    bool PostNext(TSftpChannel&) override { return false; }
    bool MayBeStopped() const override { return false; }
    void OnReply(TSftpChannel&, std::uint64_t cookie, const TSftpReply& reply) override {
      if constexpr (std::is_invocable_v<TTake&, const TSftpReply&, std::uint64_t>)
        FTake(reply, cookie);
      else
        FTake(reply);
    }

  private:
    TTake& FTake;
  };
  TOne one(take);
  channel.Run(one);
}

} // namespace workbench
