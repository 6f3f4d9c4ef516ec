// The runtime package that the tide logger takes its tables from, and its translated resources.
#ifdef TRANSLATION

extern "C" __attribute__((visibility("default"))) const char* LanguageName() {
  return TRANSLATION;
}

#else

// Minutes from one high water to the next.
extern "C" __attribute__((visibility("default"))) int TidePeriodMinutes() {
  return 745;
}

#endif
