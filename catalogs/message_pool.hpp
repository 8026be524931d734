#pragma once

#include <cstddef>
#include <memory>

namespace fl::i18n {

/// Memory for messages: what small catalogs need lies close together, so that look-ups among many of them
/// stay within few pages.
class message_pool {
public:
    /// Returns memory at the beginning of a cache line; it lives as long as a copy of the pointer.
    ///
    /// A share in it also keeps its neighbours' memory, up to 8 KiB. Throws `std::bad_alloc`.
    std::shared_ptr<void> allocate(std::size_t bytes);

private:
    struct alignas(64) line {
        std::byte bytes[64];
    };
    static constexpr std::size_t block_lines = 8 * 1024 / sizeof(line);

    std::shared_ptr<line[]> block_;
    std::size_t used_lines_ = block_lines;
};

} // namespace fl::i18n
