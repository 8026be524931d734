#include "bench/answers.hpp"
#include "bench/conversion_cases.hpp"

#include <iconv.h>
#include <iterator>
#include <memory>
#include <stdexcept>

// The conversions of the C library, in and out of the encodings of processes.

namespace fl::bench {
namespace {

constexpr char utf16[] = "UTF-16LE";

/// An open conversion between two encodings.
class conversion {
public:
    conversion(char const * to, char const * from)
        : handle_(iconv_open(to, from)) {}
    ~conversion() { iconv_close(handle_); }
    conversion(conversion const &) = delete;
    conversion & operator=(conversion const &) = delete;

    /// Converts a short text.
    template <class To, class From>
    std::basic_string<To> convert(std::basic_string<From> const & text) const {
        To buffer[1024];
        auto * from = const_cast<char *>(reinterpret_cast<char const *>(text.data()));
        auto * to = reinterpret_cast<char *>(buffer);
        std::size_t from_left = text.size() * sizeof(From);
        std::size_t to_left = sizeof buffer;
        if (iconv(handle_, &from, &from_left, &to, &to_left) == static_cast<std::size_t>(-1)) {
            throw std::runtime_error("iconv");
        }
        return {buffer, std::size(buffer) - to_left / sizeof(To)};
    }

private:
    iconv_t handle_;
};

bool const registered = [] {
    for (encoding_case const & c : encoding_cases()) {
        auto const to = c.contest("to_ustring");
        auto const from = c.contest("to_string");
        auto const kept_to = std::make_shared<conversion>(utf16, c.encoding);
        auto const kept_from = std::make_shared<conversion>(c.encoding, utf16);
        add_answer(to + "iconv kept", c.utf16, [=, &c] { return kept_to->convert<char16_t>(c.bytes); });
        add_answer(to + "iconv opened each time", c.utf16,
                   [&c] { return conversion(utf16, c.encoding).convert<char16_t>(c.bytes); });
        add_answer(from + "iconv kept", c.bytes, [=, &c] { return kept_from->convert<char>(c.utf16); });
        add_answer(from + "iconv opened each time", c.bytes,
                   [&c] { return conversion(c.encoding, utf16).convert<char>(c.utf16); });
    }
    return true;
}();

} // namespace
} // namespace fl::bench
