// Keeps the last water levels and their mean.
#include "TideLogger.h"

namespace {
constexpr int Capacity = 48; // a day of half hours
int Levels[Capacity];
int Logged = 0;
} // namespace

#ifdef TRACE
extern "C" {
int LastLevel = 0; // for a debugger to look at
}
#endif

void TideLog(int level) {
#ifdef TRACE
  LastLevel = level;
#endif
  Levels[Logged % Capacity] = level;
  ++Logged;
}

int TideMean(void) {
  const int kept = Logged < Capacity ? Logged : Capacity;
  int sum = 0;
  for (int index = 0; index < kept; ++index)
    sum += Levels[index];
  return kept == 0 ? 0 : sum / kept;
}
