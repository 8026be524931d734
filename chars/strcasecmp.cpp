#include <fl/i18n/ctype.hpp>
#include <unicode/uchar.h>
#include <unicode/ustring.h>

namespace fl::i18n::lcctype {

int strcasecmp(char16_t const * a, char16_t const * b) noexcept {
    return u_strcasecmp(a, b, U_FOLD_CASE_DEFAULT);
}

int strncasecmp(char16_t const * a, char16_t const * b, std::size_t n) noexcept {
    if (n > 0x7fffffff) {
        return -1;
    }
    return u_strncasecmp(a, b, static_cast<std::int32_t>(n), U_FOLD_CASE_DEFAULT);
}

} // namespace fl::i18n::lcctype
