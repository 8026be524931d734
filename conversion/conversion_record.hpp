#pragma once

#include "foundation/icu_converter.hpp"

#include <fl/i18n/codecvt.hpp>
#include <memory>
#include <string>
#include <unicode/ucnv_err.h>

namespace fl::i18n::detail {

/// An open converter and what is needed to undo its call-back modes.
struct conversion_record {
    icu_converter converter;
    codecvt_call_back_mode to_unicode_mode = call_back_default;
    codecvt_call_back_mode from_unicode_mode = call_back_default;
    /// What the mode replaced; meaningful while it is not `call_back_default`.
    UConverterToUCallback replaced_to_unicode = nullptr;
    void const * replaced_to_unicode_context = nullptr;
    UConverterFromUCallback replaced_from_unicode = nullptr;
    void const * replaced_from_unicode_context = nullptr;
};

/// Gives the library's own functions the encoding of a named converter.
struct encoding_access {
    template <class Converter>
    static named_encoding const & of(Converter const & converter) {
        return converter.encoding_;
    }
};

/// Opens the converter of an encoding, the global locale's for an empty name; throws
/// `CvtInvalidEncodingName`.
std::unique_ptr<conversion_record> open_conversion_record(std::string const & encoding);

/// Finds the encoding of a name, the global locale's for an empty one; throws `CvtInvalidEncodingName`.
named_encoding find_named_encoding(std::string const & name);

/// Throws `CvtConversionFailure` when an encoding was moved elsewhere.
void require_encoding(named_encoding const & encoding);

/// Returns the converter that cloning gave; throws `CvtCloneFailure` when it failed.
UConverter * require_clone(icu_converter const & clone);

/// Returns the record of an encoding, which it opens without a mode where there is none.
///
/// Throws `CvtConversionFailure` when the encoding was moved elsewhere, and `CvtCloneFailure`.
conversion_record & open_record(named_encoding & encoding);

/// Undoes the to-Unicode mode and applies another. On failure the mode is `call_back_default`.
void apply_to_unicode_mode(conversion_record & record, codecvt_call_back_mode mode);

/// Undoes the from-Unicode mode and applies another. On failure the mode is `call_back_default`.
void apply_from_unicode_mode(conversion_record & record, codecvt_call_back_mode mode,
                             std::string const & substitution);

} // namespace fl::i18n::detail
