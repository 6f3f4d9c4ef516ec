#include "workbench/remote/sftp/sftp_channel.h"

#include "workbench/text/visible_text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <poll.h>

namespace workbench {
namespace {

constexpr std::uint32_t ProtocolVersion = 3;
constexpr std::size_t PacketLengthSize = 4;
constexpr std::size_t LargestPacket = std::size_t(256) * 1024; // as the common server has it
constexpr std::size_t OutRoom = std::size_t(64) * 1024; // more waits until the line took some
constexpr std::size_t ReadSize = std::size_t(256) * 1024;
constexpr std::size_t LargestUsefulWrite = std::size_t(128) * 1024;
constexpr std::size_t HandlesLeft = 8; // of those that a server has, for other uses
constexpr std::chrono::milliseconds PollPatience(100);
// An interrupt is to be heard within a second, what takes back included.
constexpr std::chrono::milliseconds CancelPatience(600);
constexpr std::chrono::milliseconds ExitPatience(2000);
constexpr std::chrono::seconds LongSilence(2); // longer than a machine at work is silent
constexpr const char* InterruptedRun = "the run was interrupted";

} // namespace

TSftpChannel::TSftpChannel(const TProcessStart& start, const TSftpPatience& patience,
                           const std::atomic<int>* cancelled)
    : FProcess(start), FSilence(patience.Greeting), FLastSign(std::chrono::steady_clock::now()),
      FCancelled(cancelled) {
  Greet(patience);
}

bool TSftpChannel::IsAlive() const {
  if (FHasFailed || FHasEnded || FPendingCount > 0 || !FOut.IsEmpty())
    return false;
  pollfd output{FProcess.Output(), POLLIN, 0};
  return ::poll(&output, 1, 0) == 0; // bytes that nobody asked for are as bad as an end
}

void TSftpChannel::Fail(const std::string& reason) {
  FHasFailed = true;
  // The program that carries the conversation knows best why it ended.
  static_cast<void>(FProcess.Wait(FHasEnded ? ExitPatience : std::chrono::milliseconds(0)));
  FProcess.ReadErrors();
  const std::string said = SaidText(FProcess.ErrorText());
  FProcess.End();
  throw TConnectionError(said.empty() ? reason : said);
}

void TSftpChannel::Greet(const TSftpPatience& patience) {
  FWriter.Begin(TSftpPacket::Init);
  FWriter.Number(ProtocolVersion);
  FWriter.End();
  std::string_view packet;
  while (!TakePacket(packet)) {
    if (FHasEnded)
      Fail("the machine ended the conversation before it began");
    if (IsCancelled())
      Fail(InterruptedRun);
    Move(PollPatience);
  }
  bool hasLimits = false;
  try {
    hasLimits = ReadGreeting(packet);
  } catch (const TSftpFormatError& error) {
    Fail(std::string("the machine's greeting makes no sense: ") + error.what());
  }
  FSilence = patience.Answer; // nobody is asked for a password any more
  MeasureRoundTrip(hasLimits);
}

// True when the server tells its limits.
bool TSftpChannel::ReadGreeting(std::string_view packet) {
  TSftpParser content(packet);
  if (content.Byte() != static_cast<std::uint8_t>(TSftpPacket::Version) ||
      content.Number() < ProtocolVersion)
    Fail("the machine does not speak version 3 of the file transfer protocol");
  bool hasLimits = false;
  while (!content.IsAtEnd()) {
    const std::string_view name = content.Text();
    const std::string_view version = content.Text();
    if (name == sftp_extension::PosixRename)
      FLimits.HasPosixRename = version == "1";
    else if (name == sftp_extension::HardLink)
      FLimits.HasHardLinks = version == "1";
    else if (name == sftp_extension::SpaceQuery)
      FLimits.HasSpaceQuery = version == "2";
    else if (name == sftp_extension::Sync)
      FLimits.HasSync = version == "1";
    else if (name == sftp_extension::Limits)
      hasLimits = version == "1";
  }
  return hasLimits;
}

void TSftpChannel::MeasureRoundTrip(bool hasLimits) {
  const auto start = std::chrono::steady_clock::now();
  if (hasLimits) {
    ReadLimits();
  } else {
    Post(TSftpPacket::RealPath, ".", 0);
    AskOnce(*this, [](const TSftpReply&) {});
  }
  FLimits.RoundTrip = std::chrono::steady_clock::now() - start;
}

void TSftpChannel::ReadLimits() {
  BeginExtended(sftp_extension::Limits);
  Post(0);
  AskOnce(*this, [this](const TSftpReply& reply) {
    if (reply.Kind != TSftpPacket::ExtendedReply)
      return;
    TSftpParser content = reply.Content;
    content.LongNumber(); // the largest packet
    content.LongNumber(); // the largest read
    const std::uint64_t write = content.LongNumber();
    const std::uint64_t handles = content.LongNumber();
    if (write > 0)
      FLimits.LargestWrite =
          static_cast<std::size_t>(std::min<std::uint64_t>(write, LargestUsefulWrite));
    if (handles > 2 * HandlesLeft)
      FLimits.MostHandles =
          static_cast<std::size_t>(std::min<std::uint64_t>(handles, 1024)) - HandlesLeft;
  });
}

TSftpWriter& TSftpChannel::Begin(TSftpPacket kind) {
  FWriter.Begin(kind);
  FWriter.Number(FFirstId + static_cast<std::uint32_t>(FPending.size()));
  FBegun = {kind};
  return FWriter;
}

TSftpWriter& TSftpChannel::BeginExtended(std::string_view name) {
  Begin(TSftpPacket::Extended).Text(name);
  FBegun.HasResult = name == sftp_extension::SpaceQuery || name == sftp_extension::Limits;
  return FWriter;
}

void TSftpChannel::Post(std::uint64_t cookie) {
  FWriter.End();
  FPending.push_back({cookie, FBegun, true});
  ++FPendingCount;
}

void TSftpChannel::Post(TSftpPacket kind, std::string_view text, std::uint64_t cookie) {
  Begin(kind).Text(text);
  Post(cookie);
}

void TSftpChannel::Run(ISftpExchange& exchange) {
  using TClock = std::chrono::steady_clock;
  if (FHasFailed)
    Fail("the connection was lost");
  std::optional<TClock::time_point> cancelled;
  FLastSign = TClock::now();
  while (true) {
    const bool isStopped = IsCancelled() && exchange.MayBeStopped();
    bool more = !isStopped;
    while (more && FOut.Size() < OutRoom)
      more = exchange.PostNext(*this);
    if (FPendingCount == 0 && FOut.IsEmpty() && !more) {
      if (isStopped)
        throw TConnectionError(InterruptedRun); // and the conversation can go on
      return;
    }
    Move(PollPatience);
    Dispatch(exchange);
    if (FHasEnded && FPendingCount > 0)
      Fail(LossReason());
    if (!IsCancelled())
      continue;
    cancelled = cancelled.value_or(TClock::now());
    if (TClock::now() - *cancelled > CancelPatience)
      Fail(InterruptedRun);
  }
}

// Waits until bytes can go in one of the directions, and lets them.
void TSftpChannel::Move(std::chrono::milliseconds patience) {
  const bool hasOutput = !FOut.IsEmpty();
  std::array<pollfd, 3> files{{{FProcess.Output(), POLLIN, 0},
                               {FProcess.Errors(), POLLIN, 0},
                               {hasOutput ? FProcess.Input() : -1, POLLOUT, 0}}};
  const int count = ::poll(files.data(), files.size(), static_cast<int>(patience.count()));
  if (count < 0 && errno != EINTR)
    Fail("waiting for the machine: " + SystemReason(errno));
  if (count > 0 && files[1].revents != 0)
    FProcess.ReadErrors();
  if (count > 0 && files[0].revents != 0)
    Read();
  if (count > 0 && files[2].revents != 0)
    Write();
  WatchTheClock(count > 0 && !FHasEnded &&
                (files[0].revents != 0 || (files[2].revents & POLLOUT) != 0));
}

void TSftpChannel::WatchTheClock(bool moved) {
  const auto now = std::chrono::steady_clock::now();
  if (moved)
    FLastSign = now;
  else if (now - FLastSign > FSilence)
    Fail("the machine has not answered for " +
         std::to_string(std::chrono::duration_cast<std::chrono::seconds>(FSilence).count()) +
         " seconds");
}

// A program that gave up a silent line says nothing of it.
std::string TSftpChannel::LossReason() const {
  const std::string reason = "the connection was lost";
  const auto silence = std::chrono::duration_cast<std::chrono::seconds>(
      std::chrono::steady_clock::now() - FLastSign);
  return silence < LongSilence ? reason
                               : reason + ": the machine had not answered for " +
                                     std::to_string(silence.count()) + " seconds";
}

void TSftpChannel::Write() {
  const ssize_t count = FProcess.Write(FOut.View());
  if (count < 0) {
    if (errno == EPIPE || errno == ECONNRESET)
      FHasEnded = true;
    else if (errno != EAGAIN && errno != EINTR)
      Fail("the connection was lost: " + SystemReason(errno));
    return;
  }
  FOut.Drop(static_cast<std::size_t>(count));
}

void TSftpChannel::Read() {
  const std::span<char> room = FIn.Room(ReadSize);
  const ssize_t count = ::read(FProcess.Output(), room.data(), room.size());
  const int error = errno;
  FIn.Shrink(ReadSize - (count > 0 ? static_cast<std::size_t>(count) : 0));
  if (count == 0)
    FHasEnded = true;
  else if (count < 0 && error != EAGAIN && error != EINTR)
    Fail("the connection was lost: " + SystemReason(error));
}

// The content of the next packet that came in whole; false when none did. It is good until bytes
// are read.
bool TSftpChannel::TakePacket(std::string_view& packet) {
  const std::string_view rest = FIn.View();
  if (rest.size() < PacketLengthSize)
    return false;
  const std::size_t length = TSftpParser(rest).Number();
  if (length == 0 || length > LargestPacket)
    Fail("the machine does not speak the file transfer protocol; perhaps its start-up files "
         "print text");
  if (rest.size() - PacketLengthSize < length)
    return false;
  packet = rest.substr(PacketLengthSize, length);
  FIn.Drop(PacketLengthSize + length);
  return true;
}

TSftpChannel::TPending& TSftpChannel::PendingOf(std::uint32_t id) {
  const std::uint32_t position = id - FFirstId;
  if (position >= FPending.size() || !FPending[position].IsWaiting)
    Fail("the machine answers what it was not asked");
  return FPending[position];
}

void TSftpChannel::Dispatch(ISftpExchange& exchange) {
  try {
    std::string_view packet;
    while (TakePacket(packet)) {
      TSftpParser content(packet);
      const auto kind = static_cast<TSftpPacket>(content.Byte());
      TPending& pending = PendingOf(content.Number());
      const std::uint64_t cookie = pending.Cookie;
      CheckAnswer(pending.Request, {kind, content});
      pending.IsWaiting = false;
      --FPendingCount;
      while (!FPending.empty() && !FPending.front().IsWaiting) {
        FPending.pop_front();
        ++FFirstId;
      }
      exchange.OnReply(*this, cookie, {kind, content});
    }
  } catch (const TSftpFormatError& error) {
    Fail(std::string("the machine's answer makes no sense: ") + error.what());
  }
}

} // namespace workbench
