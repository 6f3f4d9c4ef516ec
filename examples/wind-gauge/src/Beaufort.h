// What the wind gauge takes from its library.
#pragma once

/// The number of the Beaufort scale, 0 to 12, for a wind speed in tenths of a metre a second.
extern "C" __attribute__((visibility("default"))) int BeaufortOf(int speed);
