#include "foundation/encoding_page.hpp"

#include "foundation/ascii_run.hpp"
#include "foundation/icu_converter.hpp"

#include <unicode/ucnv_err.h>
#include <unicode/utf16.h>

namespace fl {

namespace {

/// A converter that stops where it would call back, so that what it gives is what it maps.
class mapping_probe {
public:
    explicit mapping_probe(UConverter const * converter) {
        converter_.reset(ucnv_clone(converter, &status_));
        ucnv_setToUCallBack(converter_.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status_);
        ucnv_setFromUCallBack(converter_.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                              &status_);
    }

    explicit operator bool() const { return U_SUCCESS(status_); }

    /// Returns the unit that bytes are, whatever follows them.
    std::uint16_t unit_of(char const * bytes, std::size_t length) {
        char16_t units[8];
        char16_t * next = units;
        char const * const end = bytes + length;
        UErrorCode status = U_ZERO_ERROR;
        ucnv_reset(converter_.get());
        ucnv_toUnicode(converter_.get(), &next, std::end(units), &bytes, end, nullptr, false, &status);
        int const pending = ucnv_toUCountPending(converter_.get(), &status_);
        if (U_FAILURE(status) || U_FAILURE(status_)) {
            return encoding_page::unknown;
        }
        if (next == units && pending == 1 && length == 1) {
            return encoding_page::lead_byte;
        }
        bool const plain = next == units + 1 && pending == 0 && !U16_IS_SURROGATE(units[0]) &&
                           units[0] < encoding_page::lead_byte;
        return plain ? units[0] : encoding_page::unknown;
    }

    /// Returns the one or two bytes that a unit is, whatever follows it.
    std::uint16_t bytes_of(char16_t unit) {
        if (U16_IS_SURROGATE(unit)) {
            return encoding_page::unknown;
        }
        char bytes[32];
        char * next = bytes;
        char16_t const * source = &unit;
        UErrorCode status = U_ZERO_ERROR;
        ucnv_reset(converter_.get());
        ucnv_fromUnicode(converter_.get(), &next, std::end(bytes), &source, &unit + 1, nullptr, false,
                         &status);
        if (U_FAILURE(status)) {
            return encoding_page::unknown;
        }
        auto const byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
        if (next == bytes + 1) {
            return byte(0);
        }
        // Two bytes of which the first is 0 would look like one.
        return next == bytes + 2 && byte(0) != 0 ? static_cast<std::uint16_t>(byte(0) << 8 | byte(1))
                                                 : encoding_page::unknown;
    }

private:
    icu_converter converter_;
    UErrorCode status_ = U_ZERO_ERROR;
};

template <class ValueOf>
std::unique_ptr<encoding_page const> make_page(UConverter const * converter, ValueOf value_of) {
    mapping_probe probe(converter);
    if (!probe) {
        return nullptr;
    }
    auto page = std::make_unique<encoding_page>();
    page->keeps_printable_ascii = true;
    for (unsigned i = 0; i < 256; ++i) {
        page->values[i] = value_of(probe, static_cast<unsigned char>(i));
        page->keeps_printable_ascii &= !is_printable_ascii(i) || page->values[i] == i;
    }
    return page;
}

} // namespace

std::unique_ptr<encoding_page const> make_single_byte_page(UConverter const * converter) {
    return make_page(converter, [](mapping_probe & probe, unsigned char i) {
        char const byte = static_cast<char>(i);
        return probe.unit_of(&byte, 1);
    });
}

std::unique_ptr<encoding_page const> make_double_byte_page(UConverter const * converter, unsigned char lead) {
    return make_page(converter, [lead](mapping_probe & probe, unsigned char i) {
        char const bytes[] = {static_cast<char>(lead), static_cast<char>(i)};
        return probe.unit_of(bytes, 2);
    });
}

std::unique_ptr<encoding_page const> make_unit_page(UConverter const * converter, unsigned char high) {
    return make_page(converter, [high](mapping_probe & probe, unsigned char i) {
        return probe.bytes_of(static_cast<char16_t>(high << 8 | i));
    });
}

} // namespace fl
