// The Beaufort scale, as a library with a version of its own.
#include "Beaufort.h"

int BeaufortOf(int speed) {
  // The speeds at which the next number begins.
  constexpr int Steps[] = {3, 16, 34, 55, 80, 108, 139, 172, 208, 245, 285, 327};
  int number = 0;
  for (const int step : Steps)
    number += speed >= step ? 1 : 0;
  return number;
}
