#pragma once

#include <cstddef>
#include <string>
#ifdef _WIN32
#include <windows.h>

#include <psapi.h>
#else
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <limits>
#endif

namespace fl::test {

/// What this process has of the system at a moment.
struct process_usage {
    std::size_t memory;    ///< in KiB: in RAM, or promised to this process alone where the system counts that
    std::size_t addresses; ///< in KiB: all address space in use
    std::size_t handles;   ///< open files, threads and the like
};

#ifdef _WIN32

inline process_usage query_usage() {
    PROCESS_MEMORY_COUNTERS_EX memory{};
    GetProcessMemoryInfo(GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS *>(&memory),
                         sizeof memory);
    DWORD handles = 0;
    GetProcessHandleCount(GetCurrentProcess(), &handles);
    return {memory.WorkingSetSize / 1024, memory.PrivateUsage / 1024, handles};
}

#else

inline process_usage query_usage() {
    process_usage usage{};
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (word == "VmRSS:") {
            status >> usage.memory;
        } else if (word == "VmSize:") {
            status >> usage.addresses;
        }
        status.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
    }
    status.close();
    std::filesystem::directory_iterator const entries("/proc/self/fd");
    usage.handles = static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
    return usage;
}

#endif

} // namespace fl::test
