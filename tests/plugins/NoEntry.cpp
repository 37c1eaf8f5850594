// A library that is no plug-in: it lacks the entry.
extern "C" __attribute__((visibility("default"))) int notTheEntry() { return 1; }
