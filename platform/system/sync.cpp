// Giving up the processor.

#include "platform/sync.h"

#include <chrono>
#include <thread>

#include <sched.h>

namespace {

using Clock = std::chrono::steady_clock;

// A yield costs as much as copying some ten thousand bytes. Loops that yield after every small
// chunk would spend their time on it; others get their turn as well when yields this close are one.
constexpr std::chrono::microseconds kOneYield{50};

void Yield() {
    thread_local Clock::time_point last;
    const Clock::time_point now = Clock::now();
    if (now - last >= kOneYield) {
        last = now;
        sched_yield();
    }
}

}  // namespace

void Sleep(DWORD milliseconds) {
    if (milliseconds == 0) {
        Yield();
        return;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}
