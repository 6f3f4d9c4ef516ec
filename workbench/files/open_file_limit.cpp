#include "workbench/files/open_file_limit.h"

#include <algorithm>
#include <sys/resource.h>

namespace workbench {

void AllowManyOpenFiles() {
  constexpr rlim_t Many = 16384;
  rlimit limit = {};
  if (::getrlimit(RLIMIT_NOFILE, &limit) != 0 || limit.rlim_cur >= Many)
    return;
  limit.rlim_cur = std::max(limit.rlim_cur, std::min(limit.rlim_max, Many));
  static_cast<void>(::setrlimit(RLIMIT_NOFILE, &limit));
}

} // namespace workbench
