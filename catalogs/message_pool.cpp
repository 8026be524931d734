#include "catalogs/message_pool.hpp"

namespace fl::i18n {

std::shared_ptr<void> message_pool::allocate(std::size_t bytes) {
    std::size_t const lines = (bytes + sizeof(line) - 1) / sizeof(line);
    if (lines > block_lines / 4) {
        return std::make_shared_for_overwrite<line[]>(lines);
    }
    if (lines > block_lines - used_lines_) {
        block_ = std::make_shared_for_overwrite<line[]>(block_lines);
        used_lines_ = 0;
    }
    std::shared_ptr<void> result(block_, &block_[static_cast<std::ptrdiff_t>(used_lines_)]);
    used_lines_ += lines;
    return result;
}

} // namespace fl::i18n
