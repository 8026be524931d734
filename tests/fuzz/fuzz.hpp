#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

/// The one operation of a fuzz target; returns 0.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size);

namespace fl::fuzz {

/// Reports an input for which an answer is wrong, by ending the process.
inline void require(bool holds, char const * what) {
    if (!holds) {
        std::fprintf(stderr, "wrong answer: %s\n", what);
        std::abort();
    }
}

/// Takes the bytes of an input one behind the other; when they are used up, zeros and empty texts come.
class fuzz_input {
public:
    fuzz_input(std::uint8_t const * data, std::size_t size)
        : rest_(reinterpret_cast<char const *>(data), size) {}

    bool empty() const { return rest_.empty(); }

    std::uint8_t byte() { return empty() ? std::uint8_t(0) : static_cast<std::uint8_t>(take(1).front()); }

    /// Returns a number below `end`, which is at most 256, from one byte.
    std::size_t below(std::size_t end) { return byte() % end; }

    /// Returns one of the elements of a table of at most 256.
    template <class Table>
    auto const & pick(Table const & table) {
        return table[below(std::size(table))];
    }

    /// Returns the next bytes, of which there may be fewer.
    std::string_view take(std::size_t count) {
        std::string_view const taken = rest_.substr(0, count);
        rest_.remove_prefix(taken.size());
        return taken;
    }

    /// Returns a text of bytes up to a zero byte, which is skipped.
    std::string text() {
        std::string const result(take(std::min(rest_.find('\0'), rest_.size())));
        take(1);
        return result;
    }

    /// Returns all that is left.
    std::string_view rest() { return take(rest_.size()); }

private:
    std::string_view rest_;
};

} // namespace fl::fuzz
