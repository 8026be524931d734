#include "foundation/kept_encoding.hpp"

#include "foundation/ascii_run.hpp"

#include <utility>

namespace fl {

namespace {

/// Tells whether a text that is not empty begins with a run that is worth its call.
template <class Unit>
bool begins_with_run(Unit const * from, Unit const * end) {
    return end - from > 1 && is_printable_ascii(from[0]) && is_printable_ascii(from[1]);
}

} // namespace

kept_encoding::kept_encoding(icu_converter converter)
    : converter_(std::move(converter))
    , form_(form_of(converter_.get())) {}

kept_encoding::~kept_encoding() {
    delete single_bytes_.load();
    for (auto const * const slots : {&double_bytes_, &units_}) {
        for (slot const & s : *slots) {
            delete s.load();
        }
    }
}

kept_encoding::form kept_encoding::form_of(UConverter const * converter) {
    switch (ucnv_getType(converter)) {
    case UCNV_UTF8:
        return form::utf8;
    // Those without a state that outlives a character.
    case UCNV_US_ASCII:
    case UCNV_LATIN_1:
    case UCNV_SBCS:
    case UCNV_DBCS:
    case UCNV_MBCS:
        return form::by_tables;
    case UCNV_COMPOUND_TEXT:
        return form::by_opened_converter;
    default:
        return form::by_converter;
    }
}

template <class Make>
encoding_page const * kept_encoding::page(slot & in, Make make) {
    encoding_page const * const current = in.load(std::memory_order_acquire);
    return current ? current : new_page(in, make);
}

template <class Make>
[[gnu::noinline]] encoding_page const * kept_encoding::new_page(slot & in, Make make) {
    encoding_page const * current = nullptr;
    auto made = make();
    if (made && in.compare_exchange_strong(current, made.get(), std::memory_order_acq_rel)) {
        return made.release();
    }
    return current; // another thread's, which is the same
}

encoding_page const * kept_encoding::unit_page(unsigned high) const {
    return page(units_[high],
                [&] { return make_unit_page(converter_.get(), static_cast<unsigned char>(high)); });
}

conversion_progress kept_encoding::decode_by_tables(char16_t * destination, std::string_view source) const {
    if (form_ != form::by_tables) {
        return {};
    }
    auto const * const singles = page(single_bytes_, [&] { return make_single_byte_page(converter_.get()); });
    if (!singles) {
        return {};
    }
    // Most texts are one run.
    std::size_t const run =
        singles->keeps_printable_ascii ? widen_printable_run(destination, source.data(), source.size()) : 0;
    return run == source.size() ? conversion_progress{run, run}
                                : decode_further(destination, source, run, *singles);
}

conversion_progress kept_encoding::decode_further(char16_t * destination, std::string_view source,
                                                  std::size_t run, encoding_page const & singles) const {
    char const * from = source.data() + run;
    char const * const end = source.data() + source.size();
    char16_t * to = destination + run;
    while (from != end) {
        auto const byte = static_cast<unsigned char>(*from);
        if (singles.keeps_printable_ascii && begins_with_run(from, end)) {
            std::size_t const next_run = widen_printable_run(to, from, static_cast<std::size_t>(end - from));
            from += next_run;
            to += next_run;
            continue;
        }
        std::uint16_t value = singles.values[byte];
        std::ptrdiff_t length = 1;
        if (value == encoding_page::lead_byte && end - from > 1) {
            auto const * const pairs =
                page(double_bytes_[byte], [&] { return make_double_byte_page(converter_.get(), byte); });
            value = pairs ? pairs->values[static_cast<unsigned char>(from[1])] : encoding_page::unknown;
            length = 2;
        }
        if (value >= encoding_page::lead_byte) {
            break;
        }
        *to++ = value;
        from += length;
    }
    return {static_cast<std::size_t>(from - source.data()), static_cast<std::size_t>(to - destination)};
}

conversion_progress kept_encoding::encode_by_tables(char * destination, std::u16string_view source) const {
    if (form_ != form::by_tables) {
        return {};
    }
    auto const * const first = unit_page(0);
    std::size_t const run = first && first->keeps_printable_ascii
                                ? narrow_printable_run(destination, source.data(), source.size())
                                : 0;
    return run == source.size() ? conversion_progress{run, run} : encode_further(destination, source, run);
}

conversion_progress kept_encoding::encode_further(char * destination, std::u16string_view source,
                                                  std::size_t run) const {
    auto const * const first = unit_page(0);
    bool const runs = first && first->keeps_printable_ascii;
    char16_t const * from = source.data() + run;
    char16_t const * const end = source.data() + source.size();
    char * to = destination + run;
    while (from != end) {
        if (runs && begins_with_run(from, end)) {
            std::size_t const next_run = narrow_printable_run(to, from, static_cast<std::size_t>(end - from));
            from += next_run;
            to += next_run;
            continue;
        }
        auto const * const units = unit_page(*from >> 8);
        std::uint16_t const value = units ? units->values[*from & 0xFF] : encoding_page::unknown;
        if (value == encoding_page::unknown) {
            break;
        }
        if (value > 0xFF) {
            *to++ = static_cast<char>(value >> 8);
        }
        *to++ = static_cast<char>(value);
        ++from;
    }
    return {static_cast<std::size_t>(from - source.data()), static_cast<std::size_t>(to - destination)};
}

} // namespace fl
