// A star chart reduced to its arithmetic: small enough to be built for every platform without its
// libraries.
#include "SkyChart.h"

#ifdef TRACE
extern "C" {
int LastHourAngle = 0; // for a debugger to look at
}
#endif

int Altitude(int culmination, int hourAngle) {
#ifdef TRACE
  LastHourAngle = hourAngle;
#endif
  const int hours = hourAngle < 0 ? -hourAngle : hourAngle;
  const int altitude = culmination - 15 * hours;
  return altitude < -90 ? -90 : altitude;
}

// Entry point: exits with the number of stars of a small catalog that are up four hours from now.
extern "C" int RunProgram() {
  int visible = 0;
  for (int culmination = 10; culmination <= 90; culmination += 20)
    visible += Altitude(culmination, 4) > 0 ? 1 : 0;
  return visible;
}
