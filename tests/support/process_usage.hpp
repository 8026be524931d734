#pragma once

#include "tests/support/system_queries.hpp"

#include <cstddef>
#include <string>
#ifdef _WIN32
#include <windows.h>
#else
#include <fstream>
#include <limits>
#endif

namespace fl::test {

/// What this process has of the system at a moment.
struct process_usage {
    std::size_t memory;  ///< in KiB: what is in RAM, on Windows what is committed to this process alone
    std::size_t mapped;  ///< in KiB: all of its address space that is in use
    std::size_t handles; ///< open files and the like
};

#ifdef _WIN32

/// Asks for each region, as Wine does not count them.
inline process_usage query_usage() {
    std::size_t own = 0;
    std::size_t mapped = 0;
    MEMORY_BASIC_INFORMATION region{};
    for (char * at = nullptr; VirtualQuery(at, &region, sizeof region) == sizeof region;
         at += region.RegionSize) {
        own += region.State == MEM_COMMIT && region.Type == MEM_PRIVATE ? region.RegionSize : 0;
        mapped += region.State != MEM_FREE ? region.RegionSize : 0;
    }
    return {own / 1024, mapped / 1024, count_open_handles()};
}

#else

inline process_usage query_usage() {
    process_usage usage{};
    usage.handles = count_open_handles();
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (word == "VmRSS:") {
            status >> usage.memory;
        } else if (word == "VmSize:") {
            status >> usage.mapped;
        }
        status.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
    }
    return usage;
}

#endif

} // namespace fl::test
