#include <fl/i18n/ustring.hpp>
#include <unicode/ustring.h>

namespace fl::i18n {

int strcmp(char16_t const * a, char16_t const * b) {
    return u_strcmp(a, b);
}

int strncmp(char16_t const * a, char16_t const * b, std::size_t n) {
    if (n > 0x7fffffff) {
        return -1;
    }
    return u_strncmp(a, b, static_cast<std::int32_t>(n));
}

std::size_t strlen_lim(char16_t const * text, std::size_t limit) {
    std::size_t length = 0;
    while (length < limit && text[length] != 0) {
        ++length;
    }
    return length;
}

} // namespace fl::i18n
