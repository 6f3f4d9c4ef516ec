// The runtime package that the star chart takes its planets from, and its translated resources.
#ifdef TRANSLATION

extern "C" __attribute__((visibility("default"))) const char* LanguageName() {
  return TRANSLATION;
}

#else

namespace {

// Days that the planets from Mercury to Neptune take around the sun.
constexpr int OrbitDays[] = {88, 225, 365, 687, 4333, 10759, 30687, 60190};
constexpr int PlanetCount = static_cast<int>(sizeof OrbitDays / sizeof OrbitDays[0]);

} // namespace

// Degrees that a planet has gone by a day, counted from its start; -1 for an unknown planet.
extern "C" __attribute__((visibility("default"))) int PlanetDegrees(int planet, int day) {
  if (planet < 0 || planet >= PlanetCount)
    return -1;
  return day % OrbitDays[planet] * 360 / OrbitDays[planet];
}

#endif
