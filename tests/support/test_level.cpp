// With KVDRAW_TEST_LEVEL=baseline in the environment, a test program runs without AVX2 except where
// a case itself asks for a level.

#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "base/cpu.h"

namespace {

const bool g_LevelIsSet = [] {
    const char* const level = std::getenv("KVDRAW_TEST_LEVEL");
    if (level == nullptr) {
        return false;
    }
    if (level != std::string_view("baseline")) {
        std::fputs("KVDRAW_TEST_LEVEL knows no other value than baseline\n", stderr);
        std::abort();
    }
    kv::ForceCpuLevel(kv::CpuLevel::kBaseline);
    return true;
}();

}  // namespace
