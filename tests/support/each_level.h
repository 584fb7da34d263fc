#pragma once

#include <gtest/gtest.h>

#include "base/cpu.h"

/// Calls the function at the baseline and at the best level of this machine, up to the first fatal
/// failure, and puts the level back.
template <typename Function>
void AtEachLevel(const Function& function) {
    const struct Guard {
        kv::CpuLevel before = kv::ActiveCpuLevel();
        ~Guard() { kv::ForceCpuLevel(before); }
    } guard;
    for (const kv::CpuLevel level : {kv::CpuLevel::kBaseline, kv::DetectedCpuLevel()}) {
        SCOPED_TRACE(level == kv::CpuLevel::kBaseline ? "baseline" : "best level");
        kv::ForceCpuLevel(level);
        ASSERT_EQ(kv::ActiveCpuLevel(), level);
        ASSERT_NO_FATAL_FAILURE(function());
    }
}
