#include "tests/faults/allocation_faults.hpp"

#include <cstdlib>
#include <expat.h>
#include <new>
#include <unicode/uclean.h>

namespace fl::test {

namespace {

bool is_active = false;
bool all_further = false;
std::uint64_t fault_number = 0;
std::uint64_t allocations = 0;
std::int64_t blocks = 0;
std::int64_t icu_blocks = 0;

bool fails() {
    if (!is_active) {
        return false;
    }
    ++allocations;
    return fault_number != 0 && (allocations == fault_number || (allocations > fault_number && all_further));
}

void * allocate(std::size_t size, std::size_t alignment = 0) noexcept {
    if (fails()) {
        return nullptr;
    }
    size += size == 0 ? 1 : 0;
    void * const block = alignment == 0
                             ? std::malloc(size)
                             : std::aligned_alloc(alignment, (size + alignment - 1) & ~(alignment - 1));
    blocks += block != nullptr ? 1 : 0;
    return block;
}

void * allocate_or_throw(std::size_t size, std::size_t alignment = 0) {
    if (void * const block = allocate(size, alignment)) {
        return block;
    }
    throw std::bad_alloc();
}

void release(void * block) noexcept {
    blocks -= block != nullptr ? 1 : 0;
    std::free(block);
}

void * allocate_for_expat(std::size_t size) {
    return allocate(size);
}

void * reallocate_for_expat(void * block, std::size_t size) {
    if (block == nullptr) {
        return allocate(size);
    }
    return fails() ? nullptr : std::realloc(block, size);
}

// ICU's own allocations are counted only: it does not cope with failing ones.
void * allocate_for_icu(void const *, std::size_t size) {
    ++icu_blocks;
    return std::malloc(size);
}

void * reallocate_for_icu(void const *, void * block, std::size_t size) {
    return std::realloc(block, size);
}

void release_for_icu(void const *, void * block) {
    icu_blocks -= block != nullptr ? 1 : 0;
    std::free(block);
}

} // namespace

void count_icu_blocks() {
    UErrorCode status = U_ZERO_ERROR;
    u_setMemoryFunctions(nullptr, allocate_for_icu, reallocate_for_icu, release_for_icu, &status);
    if (U_FAILURE(status)) {
        std::abort();
    }
}

void fail_allocation(std::uint64_t number, bool and_all_further) {
    fault_number = number;
    all_further = and_all_further;
    allocations = 0;
    is_active = true;
}

std::uint64_t end_allocation_faults() {
    is_active = false;
    return allocations;
}

std::int64_t live_blocks() {
    return blocks;
}

std::int64_t live_icu_blocks() {
    return icu_blocks;
}

} // namespace fl::test

using namespace fl::test;

// By the linker's option --wrap in place of the function of that name.
extern "C" XML_Parser __wrap_XML_ParserCreate(XML_Char const * encoding);
extern "C" XML_Parser __wrap_XML_ParserCreate(XML_Char const * encoding) {
    static XML_Memory_Handling_Suite const memory{allocate_for_expat, reallocate_for_expat, release};
    return XML_ParserCreate_MM(encoding, &memory, nullptr);
}

// clang-format off
void * operator new(std::size_t n) { return allocate_or_throw(n); }
void * operator new[](std::size_t n) { return allocate_or_throw(n); }
void * operator new(std::size_t n, std::nothrow_t const &) noexcept { return allocate(n); }
void * operator new[](std::size_t n, std::nothrow_t const &) noexcept { return allocate(n); }
void * operator new(std::size_t n, std::align_val_t a) { return allocate_or_throw(n, std::size_t(a)); }
void * operator new[](std::size_t n, std::align_val_t a) { return allocate_or_throw(n, std::size_t(a)); }
void * operator new(std::size_t n, std::align_val_t a, std::nothrow_t const &) noexcept { return allocate(n, std::size_t(a)); }
void * operator new[](std::size_t n, std::align_val_t a, std::nothrow_t const &) noexcept { return allocate(n, std::size_t(a)); }
void operator delete(void * p) noexcept { release(p); }
void operator delete[](void * p) noexcept { release(p); }
void operator delete(void * p, std::size_t) noexcept { release(p); }
void operator delete[](void * p, std::size_t) noexcept { release(p); }
void operator delete(void * p, std::nothrow_t const &) noexcept { release(p); }
void operator delete[](void * p, std::nothrow_t const &) noexcept { release(p); }
void operator delete(void * p, std::align_val_t) noexcept { release(p); }
void operator delete[](void * p, std::align_val_t) noexcept { release(p); }
void operator delete(void * p, std::size_t, std::align_val_t) noexcept { release(p); }
void operator delete[](void * p, std::size_t, std::align_val_t) noexcept { release(p); }
// clang-format on
