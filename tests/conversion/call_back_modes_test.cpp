#include "conversion/conversion_record.hpp"
#include "platform/icu_symbol.hpp"

#include <gtest/gtest.h>
#include <string>
#include <unicode/ucnv.h>

namespace fl::i18n::detail {
namespace {

void other_to_unicode(void const *, UConverterToUnicodeArgs *, char const *, std::int32_t,
                      UConverterCallbackReason, UErrorCode *) {}
void other_from_unicode(void const *, UConverterFromUnicodeArgs *, char16_t const *, std::int32_t, UChar32,
                        UConverterCallbackReason, UErrorCode *) {}

TEST(CallBackRecord, RestoresWhatWasThereBefore) {
    auto const record = open_conversion_record("US-ASCII");
    auto * const converter = record->converter.get();
    char const context[] = "context";
    UErrorCode status = U_ZERO_ERROR;
    ucnv_setToUCallBack(converter, other_to_unicode, context, nullptr, nullptr, &status);
    ucnv_setFromUCallBack(converter, other_from_unicode, context, nullptr, nullptr, &status);

    UConverterToUCallback to = nullptr;
    UConverterFromUCallback from = nullptr;
    void const * seen = nullptr;
    for (int const mode : {1, 4096, 1, 1, 768, 0}) {
        apply_from_unicode_mode(*record, codecvt_call_back_mode(mode), {});
        ucnv_getFromUCallBack(converter, &from, &seen);
        EXPECT_EQ(from == other_from_unicode, mode == 0) << mode;
    }
    EXPECT_EQ(seen, context);
    for (int const mode : {1, 1, 0}) {
        apply_to_unicode_mode(*record, codecvt_call_back_mode(mode));
        ucnv_getToUCallBack(converter, &to, &seen);
        EXPECT_EQ(to == other_to_unicode, mode == 0) << mode;
    }
    EXPECT_EQ(seen, context);
}

TEST(IcuSymbol, IsFoundByAnAddressInTheLibrary) {
    auto const record = open_conversion_record("US-ASCII");
    UConverterFromUCallback address = nullptr;
    void const * context = nullptr;
    ucnv_getFromUCallBack(record->converter.get(), &address, &context);
    auto const * const inside = reinterpret_cast<void const *>(address);
    auto const open = "ucnv_open_" + std::to_string(U_ICU_VERSION_MAJOR_NUM);
    EXPECT_NE(platform::find_icu_symbol(inside, open.c_str()), nullptr);
    EXPECT_EQ(platform::find_icu_symbol(inside, "no_such_symbol"), nullptr);
    EXPECT_EQ(platform::find_icu_symbol(nullptr, "ucnv_open"), nullptr);
}

} // namespace
} // namespace fl::i18n::detail
