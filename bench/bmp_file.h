#pragma once

#include <cstdio>
#include <string>

#include <unistd.h>

namespace bench {

inline constexpr int kBmpWidth = 1920;
inline constexpr int kBmpHeight = 1080;

/// A file in memory that all benchmarks of the process use; gone with it.
inline const char* BmpPath() {
    static const struct File {
        std::string path = "/dev/shm/kvdraw_bench_" + std::to_string(getpid()) + ".bmp";
        ~File() { std::remove(path.c_str()); }
    } file;
    return file.path.c_str();
}

}  // namespace bench
