#pragma once

#include <fl/i18n/message_catalog.hpp>

#include <boost/throw_exception.hpp>
#include <unicode/unistr.h>

namespace fl::i18n {

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
