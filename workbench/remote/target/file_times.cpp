#include "workbench/remote/target/file_times.h"

#include <algorithm>
#include <sys/stat.h>

namespace workbench {

deployment::TFileTime FileTimeOf(const timespec& time) {
  return deployment::TFileTime(std::chrono::seconds(time.tv_sec) +
                               std::chrono::nanoseconds(time.tv_nsec));
}

std::optional<deployment::TFileTime> LocalFileTime(const std::string& file) {
  struct stat status = {};
  if (::stat(file.c_str(), &status) != 0)
    return std::nullopt;
  return FileTimeOf(status.st_mtim);
}

std::int64_t WholeSeconds(deployment::TFileTime time) {
  const auto seconds = std::chrono::floor<std::chrono::seconds>(time).time_since_epoch().count();
  return std::max<std::int64_t>(seconds, 0);
}

deployment::TFileTime Truncated(deployment::TFileTime time, std::chrono::nanoseconds resolution) {
  const auto since = time.time_since_epoch();
  auto rest = since % resolution;
  if (rest.count() < 0)
    rest += resolution;
  return time - rest;
}

} // namespace workbench
