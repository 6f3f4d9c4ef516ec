#include "workbench/deploy/transfer_rate.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace workbench {
namespace {

constexpr std::chrono::seconds Window(5);
constexpr std::chrono::milliseconds SampleInterval(100);

} // namespace

void TTransferRate::Start(std::uint64_t wanted, TTime now) {
  FWanted = wanted;
  FSent = 0;
  FSamples.assign(1, {now, 0});
}

void TTransferRate::Add(std::uint64_t bytes, TTime now) {
  FSent += bytes;
  if (FSamples.size() > 1 && now - FSamples[FSamples.size() - 2].Time < SampleInterval)
    FSamples.back() = {now, FSent};
  else
    FSamples.push_back({now, FSent});
  while (FSamples.size() > 1 && now - FSamples[1].Time > Window)
    FSamples.pop_front();
}

double TTransferRate::Share() const {
  return FWanted == 0 ? 1.0
                      : std::min(1.0, static_cast<double>(FSent) / static_cast<double>(FWanted));
}

double TTransferRate::BytesPerSecond(TTime now) const {
  if (FSamples.empty())
    return 0;
  const auto isOld = [&](const TSample& sample) { return now - sample.Time > Window; };
  auto from = std::find_if_not(FSamples.begin(), FSamples.end(), isOld);
  if (from != FSamples.begin())
    --from;
  const double seconds = TSeconds(now - from->Time).count();
  return seconds > 0 ? static_cast<double>(FSent - from->Sent) / seconds : 0;
}

std::optional<TTransferRate::TSeconds> TTransferRate::TimeLeft(TTime now) const {
  const double rate = BytesPerSecond(now);
  if (FSent >= FWanted || rate <= 0)
    return std::nullopt;
  return TSeconds(static_cast<double>(FWanted - FSent) / rate);
}

std::string DurationText(TTransferRate::TSeconds duration) {
  const long long seconds = std::llround(std::max(0.0, duration.count()));
  const long long minutes = seconds / 60;
  std::array<char, 48> text = {};
  if (minutes < 60)
    std::snprintf(text.data(), text.size(), "%lld:%02lld", minutes, seconds % 60);
  else
    std::snprintf(text.data(), text.size(), "%lld:%02lld:%02lld", minutes / 60, minutes % 60,
                  seconds % 60);
  return text.data();
}

} // namespace workbench
