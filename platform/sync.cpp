#include <chrono>
#include <thread>

#include <platform/sync.h>
#include <sched.h>

void Sleep(DWORD milliseconds) {
    if (milliseconds == 0) {
        sched_yield();
        return;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}
