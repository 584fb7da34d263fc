#pragma once

#include <array>

#include <CKVDrawWApp.h>

/// The last call of the module's resize function, and the status that the next one returns.
struct RecordedResize {
    int calls = 0;
    int status = 0;
    const BYTE* source = nullptr;
    const BYTE* target = nullptr;
    std::array<double, 13> numbers{};  ///< all other arguments in their order
};
