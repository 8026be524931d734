#pragma once

#include <fl/i18n/message_catalog.hpp>

#include <boost/throw_exception.hpp>
#include <unicode/locid.h>
#include <unicode/unistr.h>

namespace fl::i18n {

/// Returns the locale by whose rules message patterns are read and numbers are written into them.
inline icu::Locale pattern_locale() {
    return {"en", "US", "POSIX"};
}

inline void check_format(UErrorCode status) {
    if (U_FAILURE(status)) {
        boost::throw_exception(MessageCatalog::MessageFormatIncorrect());
    }
}

/// Checks a status and the text that came with it: one that is too long has a good status but is bogus.
inline void check_format(UErrorCode status, icu::UnicodeString const & text) {
    check_format(status);
    if (text.isBogus()) {
        boost::throw_exception(MessageCatalog::MessageFormatIncorrect());
    }
}

} // namespace fl::i18n
