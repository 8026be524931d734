#include "foundation/utf8.hpp"

#include <algorithm>
#include <cstdint>
#include <unicode/ustring.h>

namespace fl {

std::string to_readable_utf8(std::u16string_view text) {
    constexpr std::int32_t most_bytes_per_unit = 3;
    auto const length = static_cast<std::int32_t>(std::min<std::size_t>(text.size(), 1 << 20));
    std::string result(static_cast<std::size_t>(length * most_bytes_per_unit), '\0');
    std::int32_t written = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strToUTF8WithSub(result.data(), length * most_bytes_per_unit, &written, text.data(), length, 0xFFFD,
                       nullptr, &status);
    result.resize(U_FAILURE(status) ? 0 : static_cast<std::size_t>(written));
    return result;
}

} // namespace fl
