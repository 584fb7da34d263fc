// A module of the right name without the entry.

extern "C" __attribute__((visibility("default"))) const int kOtherEntry = 1;
