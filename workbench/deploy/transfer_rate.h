// How fast a deploy goes and how long its rest will take.
#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>

namespace workbench {

/// Counts bytes against the clock that its caller reads. The rate is that of the last seconds, so
/// that it follows a line that gets slower.
class TTransferRate {
public:
  using TTime = std::chrono::steady_clock::time_point;
  using TSeconds = std::chrono::duration<double>;

  /// From now on `wanted` bytes are to be sent, and none was.
  void Start(std::uint64_t wanted, TTime now);
  /// So many more were sent.
  void Add(std::uint64_t bytes, TTime now);

  std::uint64_t Wanted() const { return FWanted; }
  std::uint64_t Sent() const { return FSent; }
  /// 0 to 1; 1 when there is nothing to send.
  double Share() const;
  double BytesPerSecond(TTime now) const;
  /// Nothing when all was sent, or when nothing is being sent now.
  std::optional<TSeconds> TimeLeft(TTime now) const;

private:
  struct TSample {
    TTime Time;
    std::uint64_t Sent;
  };

  std::uint64_t FWanted = 0;
  std::uint64_t FSent = 0;
  std::deque<TSample> FSamples; // the first one is the last that is too old, or the start
};

/// Such as "0:07", "12:34" and "1:02:03".
std::string DurationText(TTransferRate::TSeconds duration);

} // namespace workbench
