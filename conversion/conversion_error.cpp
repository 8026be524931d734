#include "conversion/conversion_error.hpp"

#include <boost/throw_exception.hpp>
#include <fl/i18n/converter.hpp>

namespace fl::i18n {

void throw_conversion_error(UErrorCode status) {
    if (status == U_INVALID_CHAR_FOUND || status == U_ILLEGAL_CHAR_FOUND) {
        boost::throw_exception(CvtInvalidCharacter());
    }
    boost::throw_exception(CvtConversionFailure());
}

} // namespace fl::i18n
