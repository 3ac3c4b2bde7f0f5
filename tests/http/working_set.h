#pragma once

#include <windows.h>
// Needs windows.h ahead of it.
#include <psapi.h>

#include <cstddef>

/// The memory that this process has in use, in bytes.
struct WorkingSet {
    size_t now = 0;
    size_t peak = 0;
};

inline WorkingSet ReadWorkingSet() {
    PROCESS_MEMORY_COUNTERS counters = {};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return {counters.WorkingSetSize, counters.PeakWorkingSetSize};
}
