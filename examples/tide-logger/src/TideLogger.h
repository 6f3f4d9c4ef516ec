// The tide logger's interface to programs that load it.
#pragma once

#ifdef _WIN32
#define TIDE_API extern "C" __declspec(dllexport)
#else
#define TIDE_API extern "C" __attribute__((visibility("default")))
#endif

/// Adds a water level, in centimetres over chart datum. Older levels make room for newer ones.
TIDE_API void TideLog(int level);

/// The mean of the levels that are kept; 0 when there is none.
TIDE_API int TideMean(void);
