#include "conversion/conversion_record.hpp"
#include "platform/icu_symbol.hpp"

#include <atomic>
#include <boost/throw_exception.hpp>
#include <fl/i18n/converter.hpp>
#include <limits>
#include <unicode/ucnv.h>
#include <unicode/uvernum.h>

// The name of a symbol as the conversion library exports it, with the suffix of its version.
#define FL_I18N_TEXT(name) #name
#define FL_I18N_EXPANDED_TEXT(name) FL_I18N_TEXT(name)
#define FL_I18N_ICU_NAME(name) FL_I18N_EXPANDED_TEXT(U_ICU_ENTRY_POINT_RENAME(name))

namespace fl::i18n::detail {

namespace {

constexpr int escape_bits = 0x7F00;

void check_setting(UErrorCode status) {
    if (U_FAILURE(status)) {
        boost::throw_exception(CvtCallBackSettingFailure());
    }
}

using found_call_back = std::atomic<UConverterFromUCallback>;

/// Returns a call-back that some builds of the conversion library export, or the standard one.
///
/// No thread waits for another that finds it: that takes the loader's lock, which a thread that initialises a
/// module holds.
UConverterFromUCallback find_call_back(found_call_back & kept, UConverter const * converter,
                                       char const * name, UConverterFromUCallback standard) {
    if (UConverterFromUCallback const known = kept.load(std::memory_order_relaxed)) {
        return known;
    }
    // What a fresh converter calls lies in the conversion library itself, not in an import thunk.
    UConverterFromUCallback current = nullptr;
    void const * context = nullptr;
    ucnv_getFromUCallBack(converter, &current, &context);
    void * const found = platform::find_icu_symbol(reinterpret_cast<void const *>(current), name);
    auto const result = found ? reinterpret_cast<UConverterFromUCallback>(found) : standard;
    kept.store(result, std::memory_order_relaxed);
    return result;
}

UConverterFromUCallback stop_call_back(UConverter const * converter) {
    static constinit found_call_back kept = nullptr;
    return find_call_back(kept, converter, FL_I18N_ICU_NAME(UCNV_FROM_U_CALLBACK_STOP_WITH_INVISIBLE_CHARS),
                          UCNV_FROM_U_CALLBACK_STOP);
}

UConverterFromUCallback escape_call_back(UConverter const * converter) {
    static constinit found_call_back kept = nullptr;
    return find_call_back(kept, converter, FL_I18N_ICU_NAME(UCNV_FROM_U_CALLBACK_ESCAPE_WITH_INVISIBLE_CHARS),
                          UCNV_FROM_U_CALLBACK_ESCAPE);
}

/// Returns the option letter of an escape mode; null, the default format, for a value that is none of the
/// six.
char const * escape_option(codecvt_call_back_mode mode) {
    switch (mode) {
    case call_back_escape_java:
        return UCNV_ESCAPE_JAVA;
    case call_back_escape_c:
        return UCNV_ESCAPE_C;
    case call_back_escape_xml_dec:
        return UCNV_ESCAPE_XML_DEC;
    case call_back_escape_xml_hex:
        return UCNV_ESCAPE_XML_HEX;
    case call_back_escape_unicode:
        return UCNV_ESCAPE_UNICODE;
    case call_back_escape_css2:
        return UCNV_ESCAPE_CSS2;
    default:
        return UCNV_ESCAPE_ICU;
    }
}

void undo_to_unicode_mode(conversion_record & record) {
    if (record.to_unicode_mode == call_back_default) {
        return;
    }
    UErrorCode status = U_ZERO_ERROR;
    ucnv_setToUCallBack(record.converter.get(), record.replaced_to_unicode,
                        record.replaced_to_unicode_context, nullptr, nullptr, &status);
    check_setting(status);
    record.replaced_to_unicode = nullptr;
    record.replaced_to_unicode_context = nullptr;
    record.to_unicode_mode = call_back_default;
}

void undo_from_unicode_mode(conversion_record & record) {
    if (record.from_unicode_mode == call_back_default) {
        return;
    }
    UErrorCode status = U_ZERO_ERROR;
    ucnv_setFromUCallBack(record.converter.get(), record.replaced_from_unicode,
                          record.replaced_from_unicode_context, nullptr, nullptr, &status);
    check_setting(status);
    record.replaced_from_unicode = nullptr;
    record.replaced_from_unicode_context = nullptr;
    record.from_unicode_mode = call_back_default;
}

void install_from_unicode(conversion_record & record, codecvt_call_back_mode mode,
                          UConverterFromUCallback call_back, void const * context) {
    UErrorCode status = U_ZERO_ERROR;
    ucnv_setFromUCallBack(record.converter.get(), call_back, context, &record.replaced_from_unicode,
                          &record.replaced_from_unicode_context, &status);
    check_setting(status);
    record.from_unicode_mode = mode;
}

void set_substitution(UConverter * converter, std::string const & substitution) {
    if (substitution.empty()) {
        boost::throw_exception(CvtInvalidArgument());
    }
    if (substitution.size() > std::numeric_limits<std::int8_t>::max()) {
        boost::throw_exception(CvtSizeTooLarge());
    }
    UErrorCode status = U_ZERO_ERROR;
    ucnv_setSubstChars(converter, substitution.data(), static_cast<std::int8_t>(substitution.size()),
                       &status);
    check_setting(status);
}

} // namespace

void apply_to_unicode_mode(conversion_record & record, codecvt_call_back_mode mode) {
    undo_to_unicode_mode(record);
    switch (mode) {
    case call_back_default:
        return;
    case call_back_stop:
        break;
    case call_back_substitute:
    case call_back_skip:
    case call_back_escape_java:
    case call_back_escape_c:
    case call_back_escape_xml_dec:
    case call_back_escape_xml_hex:
    case call_back_escape_unicode:
    case call_back_escape_css2:
        boost::throw_exception(CvtNonSupportedMode());
    default:
        boost::throw_exception(CvtInvalidArgument());
    }
    UErrorCode status = U_ZERO_ERROR;
    ucnv_setToUCallBack(record.converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, &record.replaced_to_unicode,
                        &record.replaced_to_unicode_context, &status);
    check_setting(status);
    record.to_unicode_mode = mode;
}

void apply_from_unicode_mode(conversion_record & record, codecvt_call_back_mode mode,
                             std::string const & substitution) {
    undo_from_unicode_mode(record);
    UConverter * const converter = record.converter.get();
    switch (mode) {
    case call_back_default:
        return;
    case call_back_stop:
        install_from_unicode(record, mode, stop_call_back(converter), nullptr);
        return;
    case call_back_substitute:
        // Deliberately not remembered as the mode: there is no call-back to undo.
        set_substitution(converter, substitution);
        return;
    case call_back_skip:
        boost::throw_exception(CvtNonSupportedMode());
    default:
        if ((mode & escape_bits) == 0) {
            boost::throw_exception(CvtInvalidArgument());
        }
        install_from_unicode(record, mode, escape_call_back(converter), escape_option(mode));
    }
}

} // namespace fl::i18n::detail
