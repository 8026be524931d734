#include "locale/encodings.hpp"

#include <fl/i18n/codecvt.hpp>

namespace fl::i18n {

namespace {

std::string canonical_name(UConverter const * converter) {
    UErrorCode status = U_ZERO_ERROR;
    char const * const name = ucnv_getName(converter, &status);
    return U_SUCCESS(status) && name ? name : std::string();
}

/// Returns the name of an encoding under the first standard that has one, else the name itself.
std::string preferred_name(std::string const & name) {
    for (char const * const standard : {"MIME", "IANA", "WINDOWS"}) {
        UErrorCode status = U_ZERO_ERROR;
        char const * const preferred = ucnv_getStandardName(name.c_str(), standard, &status);
        if (U_SUCCESS(status) && preferred) {
            return preferred;
        }
    }
    return name;
}

} // namespace

std::string get_standard_encoding_name(std::string const & name) {
    if (auto const known = lcmgmt::find_standard_encoding_name(name); !known.empty()) {
        return known;
    }
    auto const converter = lcmgmt::open_encoding(name);
    if (!converter) {
        return {};
    }
    return lcmgmt::normalize_encoding_name(preferred_name(canonical_name(converter.get())));
}

} // namespace fl::i18n
