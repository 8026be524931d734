// Conversions among UTF-8, UTF-16 and UTF-32, ASCII, wide and Java's text, comparisons and letter case,
// against slow functions that take one unit after the other and against the conversion library.
//
// The first bytes of an input choose what is checked, a locale, where the texts begin in memory, how many
// ASCII letters stand before the text, and how texts that are compared differ. The others are the text: bytes
// of UTF-8, or one UTF-16 unit each.

#include "foundation/ascii_run.hpp"
#include "foundation/find_unit.hpp"
#include "foundation/utf8.hpp"
#include "foundation/utf8_decode.hpp"
#include "foundation/utf8_encode.hpp"
#include "tests/fuzz/fuzz.hpp"

#include <algorithm>
#include <cstring>
#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/ctype.hpp>
#include <fl/i18n/ustring.hpp>
#include <memory>
#include <unicode/unorm2.h>
#include <unicode/ustring.h>

namespace {

using namespace fl::i18n;
using fl::fuzz::require;

template <class Text, class Other>
void require_same(Text const & text, Other const & expected, char const * what) {
    // By a quick comparison: that of the strings is instrumented.
    require(std::size(text) == std::size(expected) &&
                std::memcmp(std::data(text), std::data(expected), std::size(text) * sizeof text[0]) == 0,
            what);
}

bool is_high(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}
bool is_low(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

void append_utf16(ustring & text, char32_t c) {
    if (c > 0xFFFF) {
        text += static_cast<char16_t>(0xD800 + (c - 0x10000) / 0x400);
        text += static_cast<char16_t>(0xDC00 + (c - 0x10000) % 0x400);
    } else {
        text += static_cast<char16_t>(c);
    }
}

void append_utf8(std::string & text, char32_t c) {
    auto const add = [&text](char32_t byte) { text += static_cast<char>(byte); };
    if (c < 0x80) {
        add(c);
        return;
    }
    int const more = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
    add((0xFF00u >> (more + 1) & 0xFF) | c >> 6 * more);
    for (int i = more; i-- > 0;) {
        add(0x80 | (c >> 6 * i & 0x3F));
    }
}

struct decoded {
    ustring text;
    std::size_t well_formed; ///< bytes before the first piece that is not
};

decoded slowly_decoded(std::string_view bytes) {
    decoded result{{}, bytes.size()};
    for (std::size_t i = 0; i < bytes.size();) {
        std::size_t const begin = i;
        auto const first = static_cast<unsigned char>(bytes[i++]);
        int missing = first < 0x80                   ? 0
                      : first < 0xC2 || first > 0xF4 ? -1
                      : first < 0xE0                 ? 1
                      : first < 0xF0                 ? 2
                                                     : 3;
        unsigned low = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
        unsigned high = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
        char32_t c = missing > 0 ? first & (0x3Fu >> missing) : first;
        for (; missing > 0 && i < bytes.size(); --missing, ++i, low = 0x80, high = 0xBF) {
            auto const next = static_cast<unsigned char>(bytes[i]);
            if (next < low || next > high) {
                break;
            }
            c = c << 6 | (next & 0x3F);
        }
        if (missing != 0) {
            c = 0xFFFD;
            result.well_formed = std::min(result.well_formed, begin);
        }
        append_utf16(result.text, c);
    }
    return result;
}

std::u32string slowly_to_utf32(std::u16string_view text, std::size_t & well_formed) {
    std::u32string result;
    well_formed = text.size();
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t const unit = text[i];
        if (is_high(unit) && i + 1 < text.size() && is_low(text[i + 1])) {
            result += 0x10000 + (unit - 0xD800) * 0x400 + (text[++i] - 0xDC00u);
            continue;
        }
        bool const is_lone = is_high(unit) || is_low(unit);
        well_formed = is_lone ? std::min(well_formed, i) : well_formed;
        result += is_lone ? U'\xFFFD' : unit;
    }
    return result;
}

/// A text at the end of a block, so that nothing behind it may be read, some units from the block's
/// beginning.
template <class Unit>
class tight_text {
public:
    tight_text(std::basic_string_view<Unit> text, std::size_t offset)
        : block_(new Unit[offset + text.size()])
        , view_(block_.get() + offset, text.size()) {
        std::copy(text.begin(), text.end(), block_.get() + offset);
    }
    std::basic_string_view<Unit> view() const { return view_; }

private:
    std::unique_ptr<Unit[]> block_;
    std::basic_string_view<Unit> view_;
};

/// Returns what a function writes into a block of `room` units; it may announce more.
template <class To, class Function>
std::basic_string<To> written(std::size_t room, Function function) {
    std::unique_ptr<To[]> const block(new To[room]);
    std::size_t const length = function(block.get());
    return {block.get(), std::min(room, length)};
}

/// Checks each operation of a converter that announces what it writes.
template <class To, class From>
void check_converter(converter<To, From> && with, std::basic_string_view<From> text,
                     std::basic_string<To> const & expected, std::size_t room, char const * what) {
    auto const * const at = text.data();
    require_same(with.convert(at, text.size()), expected, what);
    require(with.get_destination_size(at, text.size()) == expected.size(), what);
    for (std::size_t const size : {room, expected.size()}) {
        if (size != 0) {
            auto const part =
                written<To>(size, [&](To * to) { return with.convert(to, size, at, text.size()); });
            // Java's form takes whole sequences only, which are up to two bytes shorter.
            require(expected.starts_with(part.substr(0, size - std::min<std::size_t>(size, 2))), what);
            if (size >= expected.size()) {
                require_same(part, expected, what);
            }
        }
    }
}

template <class Operation>
bool refuses(Operation operation) {
    try {
        operation();
    } catch (CvtInvalidCharacter const &) {
        return true;
    }
    return false;
}

template <class Unit>
std::size_t run_length(std::basic_string_view<Unit> text, bool printable) {
    auto const ends = [printable](Unit unit) {
        auto const value = static_cast<std::make_unsigned_t<Unit>>(unit);
        return printable ? value < 0x20 || value > 0x7E : value > 0x7F;
    };
    return static_cast<std::size_t>(std::find_if(text.begin(), text.end(), ends) - text.begin());
}

/// Checks the copying of ASCII, by functions that begin with a run and by converters.
template <class To, class Ascii, class From, class Copy>
void check_ascii(std::basic_string_view<From> text, To substitute, Copy copy_run, Copy copy_printable) {
    std::size_t const run = run_length(text, false);
    require(fl::ascii_run_length(text.data(), text.size()) == run, "the length of an ASCII run");
    auto const copied = [text](Copy copy) {
        return written<To>(text.size(), [&](To * to) { return copy(to, text.data(), text.size()); });
    };
    std::basic_string<To> const start(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(run));
    require_same(copied(copy_run), start, "an ASCII run");
    require_same(copied(copy_printable), start.substr(0, run_length(text, true)), "a printable run");
    std::basic_string<To> all;
    for (From const unit : text) {
        all += static_cast<std::make_unsigned_t<From>>(unit) < 0x80 ? static_cast<To>(unit) : substitute;
    }
    require_same(Ascii(true).convert(text.data(), text.size()), all, "lenient ASCII");
    require(refuses([&] {
                require_same(Ascii(false).convert(text.data(), text.size()), start, "strict ASCII");
            }) == (run != text.size()),
            "strict ASCII refuses");
}

void check_utf8(std::string_view bytes) {
    auto const expected = slowly_decoded(bytes);
    std::string const text(bytes);
    require_same(utf8_to_ustring(text), expected.text, "UTF-8 to UTF-16");
    require_same(utf8_to_ustring(text.c_str()), slowly_decoded(text.c_str()).text, "UTF-8 up to NUL");
    require_same(written<char16_t>(bytes.size(), [&](char16_t * to) { return fl::decode_utf8(to, bytes); }),
                 expected.text, "decoding");
    fl::conversion_progress progress;
    auto const start = written<char16_t>(bytes.size(), [&](char16_t * to) {
        progress = fl::decode_well_formed_utf8(to, bytes);
        return progress.produced;
    });
    require(progress.consumed == expected.well_formed && expected.text.starts_with(start),
            "decoding of well-formed text");
    require_same(slowly_decoded(bytes.substr(0, progress.consumed)).text, start,
                 "what well-formed text decodes to");
}

void check_utf16(std::u16string_view units) {
    std::size_t well_formed = 0;
    auto const points = slowly_to_utf32(units, well_formed);
    std::string utf8;
    ustring repaired;
    for (char32_t const c : points) {
        append_utf8(utf8, c);
        append_utf16(repaired, c);
    }
    ustring const text(units);
    std::size_t ignored = 0;
    require_same(to_u32string(text), points, "UTF-16 to UTF-32");
    require_same(to_u32string(text.c_str()), slowly_to_utf32(text.c_str(), ignored), "UTF-16 up to NUL");
    require_same(to_ustring(points), repaired, "UTF-32 to UTF-16");
    require_same(to_ustring(points.c_str()), repaired.substr(0, repaired.find(u'\0')), "UTF-32 up to NUL");
    require(ustring_to_utf8(units) == utf8 && ustring_to_utf8(text) == utf8 &&
                fl::to_readable_utf8(units) == utf8 && ustring_to_utf8(units.data(), units.size()) == utf8,
            "UTF-16 to UTF-8");
    require_same(ustring_to_utf8(text.c_str()), utf8.substr(0, utf8.find('\0')), "UTF-16 up to NUL to UTF-8");
    require(written<char>(3 * units.size(), [&](char * to) { return fl::encode_utf8(to, units); }) == utf8,
            "encoding");
    fl::conversion_progress progress;
    auto const start = written<char>(3 * units.size(), [&](char * to) {
        progress = fl::encode_well_formed_utf8(to, units);
        return progress.produced;
    });
    require(progress.consumed == well_formed && utf8.starts_with(start) &&
                ustring_to_utf8(units.substr(0, well_formed)) == start,
            "encoding of well-formed text");
}

void check_other_forms(std::u16string_view units, std::size_t room) {
    ustring const text(units);
    std::wstring const wide(units.begin(), units.end());
    require_same(to_wstring(text), wide, "UTF-16 to wide text");
    require_same(to_ustring(wide), units, "wide text to UTF-16");
    require_same(to_ustring(wide.c_str()), text.substr(0, text.find(u'\0')), "wide text up to NUL");
    std::string java;
    for (char16_t const unit : units) {
        unit == 0 ? void(java += "\xC0\x80") : append_utf8(java, unit);
    }
    check_converter(codecvt_ustring_to_java_nonstandard_utf8(), units, java, room, "Java's UTF-8");
    check_converter(codecvt_ustring_to_wstring(), units, wide, room, "a converter to wide text");
    check_converter<char16_t, wchar_t>(codecvt_wstring_to_ustring(), wide, text, room,
                                       "a converter of wide text");
    check_ascii<char, codecvt_ustring_to_ascii>(units, '\xFF', fl::narrow_ascii_run,
                                                fl::narrow_printable_run);

    char16_t const a = units.empty() ? u'{' : units[room % units.size()];
    char16_t const either[] = {a, u'\''};
    require(fl::find_either(units.data(), units.data() + units.size(), a, u'\'') ==
                std::find_first_of(units.data(), units.data() + units.size(), either, either + 2),
            "the first place of two units");
}

int sign(int value) {
    return (value > 0) - (value < 0);
}

/// Returns what a function of the conversion library makes of a text.
template <class Function>
ustring by_icu(std::u16string_view text, Function function) {
    std::size_t const room = 4 * text.size() + 16;
    std::unique_ptr<char16_t[]> const result(new char16_t[room]);
    UErrorCode status = U_ZERO_ERROR;
    auto const length = function(result.get(), static_cast<std::int32_t>(room), text.data(),
                                 static_cast<std::int32_t>(text.size()), &status);
    require(U_SUCCESS(status), "a mapping by the conversion library");
    return {result.get(), static_cast<std::size_t>(length)};
}

ustring folded(std::u16string_view text) {
    return by_icu(text, [](auto... arguments) {
        auto const [to, capacity, from, length, status] = std::tuple(arguments...);
        return u_strFoldCase(to, capacity, from, length, U_FOLD_CASE_DEFAULT, status);
    });
}

void check_order(std::u16string_view a, std::u16string_view b, std::size_t n) {
    static character_handling_mode_context const without_case(
        character_handling_mode_context::case_insensitive_mode);
    int const by_units = sign(a.compare(b));
    int const by_folding = sign(folded(a).compare(folded(b)));
    require(sign(detail::compare(a, b, 0u)) == by_units, "an order");
    require(sign(detail::compare(a, b, without_case)) == by_folding, "an order without case");
    auto const before_nul = [](std::u16string_view text) {
        return ustring(text.substr(0, text.find(u'\0')));
    };
    ustring const left = before_nul(a);
    ustring const right = before_nul(b);
    require(sign(fl::i18n::strcmp(left.c_str(), right.c_str())) == sign(left.compare(right)), "strcmp");
    require(sign(fl::i18n::strncmp(left.c_str(), right.c_str(), n)) == sign(left.compare(0, n, right, 0, n)),
            "strncmp");
    // Without a NUL among the units nothing may be read behind the last.
    require(strlen_lim(a.data(), a.size()) == left.size(), "strlen_lim");
    require((lcctype::strcasecmp(left.c_str(), right.c_str()) == 0) == (folded(left) == folded(right)),
            "strcasecmp");
}

template <class... Modes>
void check_transform(std::u16string_view text, ustring const & expected, std::size_t room,
                     Modes const &... modes) {
    require_same(fl::i18n::transform(text, modes...), expected, "a transformation");
    for (std::size_t const size : {room, expected.size()}) {
        std::unique_ptr<char16_t[]> const block(new char16_t[size]);
        require(fl::i18n::detail::transform(block.get(), size, text.data(), text.size(), modes...) ==
                    expected.size(),
                "the length of a transformation");
        if (size >= expected.size()) {
            require_same(std::u16string_view(block.get(), expected.size()), expected,
                         "a transformation into a buffer");
        }
    }
}

void check_case(std::u16string_view text, std::size_t language, std::size_t room) {
    static char const * const languages[] = {"en", "tr", "lt", "el", "de", "az"};
    static std::shared_ptr<QzLocale const> locales[std::size(languages)];
    language %= std::size(languages);
    auto & locale = locales[language];
    if (!locale) {
        locale = QzLocale::createLocale(languages[language]);
    }
    auto const mapped = [&](auto function) {
        return by_icu(text,
                      [&](auto * to, auto capacity, auto const * from, auto length, UErrorCode * status) {
                          return function(to, capacity, from, length, languages[language], status);
                      });
    };
    if (room % 2) {
        check_transform(text, mapped(u_strToUpper), room, to_upper_locale(*locale));
    } else {
        check_transform(text, mapped(u_strToLower), room, to_lower_locale(*locale));
    }
}

void check_normalization(std::u16string_view text, std::size_t room) {
    UErrorCode status = U_ZERO_ERROR;
    auto const * const normalizer =
        room % 2 ? unorm2_getNFCInstance(&status) : unorm2_getNFDInstance(&status);
    auto const form = room % 2 ? normalization_form::compose : normalization_form::decompose;
    auto const expected =
        by_icu(text, [&](auto * to, auto capacity, auto const * from, auto length, UErrorCode * failure) {
            return unorm2_normalize(normalizer, from, length, to, capacity, failure);
        });
    check_transform(text, expected, room, form);
}

/// Returns the UTF-16 unit that a byte stands for: ASCII, what is hard to map, and surrogates.
char16_t unit_of(unsigned char byte) {
    static constexpr char16_t hard[] = {
        0x80,   0xAD,   0xB5,   0xC5,   0xDF,   0xE9,   0xFF,   0x100,  0x130,  0x131,  0x149,
        0x17F,  0x1C5,  0x1F0,  0x300,  0x301,  0x307,  0x308,  0x323,  0x345,  0x390,  0x3A3,
        0x3B1,  0x3C2,  0x3C3,  0x587,  0x5B0,  0x7FF,  0x800,  0x93C,  0x1100, 0x1161, 0x11A8,
        0x1E9E, 0x1F80, 0x1FB3, 0x1FBE, 0x200D, 0x2126, 0x212B, 0x20AC, 0x3042, 0x3099, 0x4E00,
        0x65E5, 0xAB70, 0xAC00, 0xD7FF, 0xE000, 0xF900, 0xFB03, 0xFB13, 0xFE0F, 0xFEFF, 0xFF21,
        0xFFFD, 0xFFFE, 0xFFFF, 0x2019, 0xB7,   0x0F73, 0x1D16, 0x386,  0x10D0};
    static_assert(std::size(hard) == 64);
    if (byte < 0x80) {
        return byte;
    }
    static constexpr char16_t high[] = {0xD800, 0xD801, 0xD834, 0xD83A, 0xD83D, 0xD87E, 0xDBFE, 0xDBFF};
    return byte < 0xC0   ? hard[byte - 0x80]
           : byte < 0xE0 ? high[byte % 8]
                         : static_cast<char16_t>(byte == 0xFF ? 0xDFFF : 0xDC00 + (byte - 0xE0) * 2);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
    std::uint8_t chosen[4] = {};
    std::size_t const header = std::min(size, sizeof chosen);
    std::copy_n(data, header, chosen);
    // Few texts are so long that they are converted in more pieces than one.
    std::size_t const ascii = chosen[1] < 0xF8 ? chosen[1] % 72 : 1020u + chosen[1] % 8;
    std::string bytes(ascii, 'a');
    bytes.append(reinterpret_cast<char const *>(data) + header, size - header);
    ustring units(bytes.size(), u'\0');
    std::transform(bytes.begin(), bytes.end(), units.begin(),
                   [](char c) { return unit_of(static_cast<unsigned char>(c)); });

    std::size_t const offset = chosen[0] % 16;
    std::size_t const room = chosen[2];
    tight_text<char16_t> const text(units, offset);
    switch (chosen[0] / 32) {
    case 0:
    case 1:
        check_utf8(tight_text<char>(bytes, offset).view());
        break;
    case 2:
        check_ascii<char16_t, codecvt_ascii_to_ustring>(tight_text<char>(bytes, offset).view(), u'\xFFFD',
                                                        fl::widen_ascii_run, fl::widen_printable_run);
        break;
    case 3:
        check_utf16(text.view());
        break;
    case 4:
        check_other_forms(text.view(), room);
        break;
    case 5:
        check_case(text.view(), chosen[0], room);
        break;
    case 6:
        check_normalization(text.view(), room);
        break;
    default:
        ustring other = units;
        if (!other.empty()) {
            auto & unit = other[room % other.size()];
            unit = chosen[3] & 0x80 ? unit_of(chosen[3])
                                    : static_cast<char16_t>(unit ^ (chosen[3] & 0x40 ? 0x20 : chosen[3]));
        }
        check_order(text.view(), tight_text<char16_t>(other, chosen[3] % 8).view(), room);
    }
    return 0;
}
