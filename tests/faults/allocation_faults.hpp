#pragma once

#include <cstdint>

/// Failing allocations: those of `operator new` in all its forms, and Expat's. What the exception machinery
/// takes is not among them, nor what the C library and ICU take. One thread only.
namespace fl::test {

/// Counts ICU's blocks, too; to be called before ICU is used.
void count_icu_blocks();

/// Counts allocations from now on, and lets the one of this number fail, from 1 on, and perhaps all after it;
/// 0 lets none fail.
void fail_allocation(std::uint64_t number, bool and_all_further);

/// Ends that. Returns how many allocations there were, those that failed included.
std::uint64_t end_allocation_faults();

/// Returns how many blocks are allocated.
std::int64_t live_blocks();

/// Returns how many blocks ICU has, whose caches may have given some back meanwhile.
std::int64_t live_icu_blocks();

} // namespace fl::test
