#include "conversion/conversion_record.hpp"

#include "locale/encodings.hpp"

#include <boost/throw_exception.hpp>
#include <fl/i18n/locale.hpp>

namespace fl::i18n::detail {

std::unique_ptr<conversion_record> open_conversion_record(std::string const & encoding) {
    auto const name = encoding.empty() ? QzLocale::global().getEncoding() : encoding;
    auto record = std::make_unique<conversion_record>();
    record->converter = lcmgmt::open_encoding(name);
    if (!record->converter) {
        boost::throw_exception(CvtInvalidEncodingName(name));
    }
    return record;
}

conversion_record & require_record(std::unique_ptr<conversion_record> const & record) {
    if (!record) {
        boost::throw_exception(CvtConversionFailure());
    }
    return *record;
}

} // namespace fl::i18n::detail
