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

named_encoding find_named_encoding(std::string const & name) {
    named_encoding result;
    kept_encoding const * const kept =
        name.empty() ? lcmgmt::process_encoding() : lcmgmt::find_encoding(name);
    if (kept && kept->has_clones()) {
        result.shared.reset(kept);
    } else {
        result.record = open_conversion_record(name);
    }
    return result;
}

void require_encoding(named_encoding const & encoding) {
    if (!encoding.shared && !encoding.record) {
        boost::throw_exception(CvtConversionFailure());
    }
}

UConverter * require_clone(icu_converter const & clone) {
    if (!clone) {
        boost::throw_exception(CvtCloneFailure());
    }
    return clone.get();
}

conversion_record & open_record(named_encoding & encoding) {
    require_encoding(encoding);
    if (!encoding.record) {
        auto record = std::make_unique<conversion_record>();
        record->converter = encoding.shared->clone();
        require_clone(record->converter);
        encoding.record = std::move(record);
    }
    return *encoding.record;
}

} // namespace fl::i18n::detail
