#include "tests/support/formatting_by_icu.hpp"

#include <bit>
#include <charconv>
#include <cmath>
#include <fl/i18n/message_catalog.hpp>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>
#include <unicode/numfmt.h>
#include <vector>

// Messages and numbers compared with what ICU makes of them, in the straightforward way. Each repetition
// (--gtest_repeat) goes on to other generated values.

namespace fl::i18n {
namespace {

using icu::UnicodeString;
using test::Arguments;
using test::Format;
using test::icu_text;
using test::outcome;
using test::posix_locale;
using test::text_of;

constexpr std::uint64_t seed = 20250117;

std::mt19937_64 & random_bits() {
    static std::mt19937_64 generator(seed);
    return generator;
}

std::size_t below(std::size_t limit) {
    return random_bits()() % limit;
}

template <class Container>
auto const & any_of(Container const & container) {
    return container[below(std::size(container))];
}

void compare(ustring const & message, Arguments const & args, Format const & format) {
    auto const ours = [](auto const &... given) { return MessageCatalog::GetFormattedMessage(given...); };
    auto const text = outcome(ours, message, args, format);
    auto const expected = outcome(test::fill_by_icu, message, args, format);
    if (text != expected) {
        ADD_FAILURE() << testing::PrintToString(message) << " of " << testing::PrintToString(args)
                      << " in format " << (format ? static_cast<int>(*format) : -1) << ": "
                      << testing::PrintToString(text) << "\ninstead of " << testing::PrintToString(expected);
    }
}

double decimal(std::string const & text) {
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

/// A double of one of the kinds in which mistakes hide.
double any_double() {
    auto const bits = random_bits()();
    double const sign = bits % 2 == 0 ? 1 : -1;
    auto const neighbour = [bits](double value) {
        return std::bit_cast<double>(std::bit_cast<std::uint64_t>(value) + (bits >> 8) % 5 - 2);
    };
    switch (below(7)) {
    case 0: // any
        return std::bit_cast<double>(bits);
    case 1: // few digits, often with a five at the end
        return sign * decimal(std::to_string(bits >> (4 + below(60))) + (below(2) ? "5e-" : "e-") +
                              std::to_string(below(24)));
    case 2: // the middle of two decimals
        return sign * static_cast<double>(bits >> (11 + below(53))) / static_cast<double>(1ull << below(24));
    case 3: // about powers of ten
        return sign * neighbour(decimal("1e" + std::to_string(static_cast<int>(below(616)) - 307)));
    case 4: // about powers of two
        return sign * neighbour(std::ldexp(1.0, static_cast<int>(below(2044)) - 1022));
    case 5: // subnormal
        return sign * std::bit_cast<double>(bits >> (12 + below(52)));
    default: // a carry over nines
        return sign * decimal(std::string(1 + below(17), '9') + "e-" + std::to_string(below(25)));
    }
}

double const edges[] = {0.0,
                        -0.0,
                        0.5,
                        1.5,
                        2.5,
                        -0.5,
                        0.00005,
                        0.00015,
                        0.00025,
                        -0.00004,
                        0.000004999,
                        9.99995,
                        99999.5,
                        999.99995,
                        999.99994,
                        99999.00005,
                        0.000123456,
                        123456789.123456789,
                        999999999999999.5,
                        9999999999999998,
                        2147483647,
                        2147483648,
                        -2147483648,
                        9007199254740993.0,
                        1e15,
                        1e16,
                        1e21,
                        1e22,
                        1e23,
                        123456.5,
                        0.1 + 0.2,
                        5e-324,
                        1.7976931348623157e308,
                        2.2250738585072014e-308,
                        2.225073858507201e-308,
                        std::numeric_limits<double>::infinity(),
                        -std::numeric_limits<double>::infinity(),
                        std::numeric_limits<double>::quiet_NaN(),
                        -std::numeric_limits<double>::quiet_NaN(),
                        std::bit_cast<double>(0x7FF0000000000001),
                        std::bit_cast<double>(0xFFF8123456789ABC)};

void compare_formats(double value) {
    UErrorCode status = U_ZERO_ERROR;
    static std::unique_ptr<icu::NumberFormat> const plain(
        icu::NumberFormat::createInstance(posix_locale(), status));
    static auto const whole = [] {
        std::unique_ptr<icu::NumberFormat> result(plain->clone());
        result->setMaximumFractionDigits(0);
        return result;
    }();
    auto const expect = [value](ustring const & message, Format const & format,
                                UnicodeString const & expected) {
        auto const text = MessageCatalog::GetFormattedMessage(message, {value}, format);
        if (text != text_of(expected)) {
            ADD_FAILURE() << std::hexfloat << value << " in " << testing::PrintToString(message)
                          << ", format " << (format ? static_cast<int>(*format) : 0) << ": "
                          << testing::PrintToString(text) << " instead of "
                          << testing::PrintToString(text_of(expected));
        }
    };
    for (unsigned const number : {1u, 2u, 3u, 4u, 5u, 6u, 12u, 13u}) {
        auto const format = static_cast<numeric_format>(number);
        expect(u"{0}", format, icu_text(value, format));
    }
    UnicodeString text;
    expect(u"{0,number}", {}, plain->format(value, text));
    text.remove();
    expect(u"{0,number,integer}", {}, whole->format(value, text));
}

TEST(FormattingByIcu, DoublesHaveTheSameDigits) {
    for (double const value : edges) {
        compare_formats(value);
    }
    for (int i = 0; i < 20'000 && !HasFailure(); ++i) {
        compare_formats(any_double());
    }
}

MessageCatalog::Argument any_argument() {
    static std::vector<MessageCatalog::Argument> const rare{std::numeric_limits<std::int64_t>::min(),
                                                            std::numeric_limits<std::int64_t>::max(),
                                                            std::int64_t{0},
                                                            "",
                                                            "a text of more than sixteen bytes",
                                                            "\xC3\xA9\xF0\x9F\x98\x80z",
                                                            "a\xFF\xE3\x81z\xED\xA0\x80",
                                                            std::string("\0{1}'", 5),
                                                            ustring(),
                                                            ustring(u"{0} it's \u3042"),
                                                            ustring(1, char16_t(0xDC00)),
                                                            ustring(700, u'x'),
                                                            std::string(700, 'y')};
    switch (below(4)) {
    case 0:
        return static_cast<std::int64_t>(random_bits()()) >> below(64);
    case 1:
        return any_double();
    default:
        return any_of(rare);
    }
}

ustring any_message() {
    static std::vector<ustring> const usual{u"{0}",
                                            u"{1}",
                                            u"{0}",
                                            u"{1}",
                                            u"{2}",
                                            u"{0,number}",
                                            u"{1,number}",
                                            u"{ 1 , number }",
                                            u"{0,number,integer}",
                                            u"{0, number, integer }",
                                            u"it's",
                                            u"''",
                                            u" a text ",
                                            u"\u3042\U0001F600",
                                            u"}",
                                            u"# |",
                                            ustring(1, char16_t(0xD800)),
                                            ustring(1, u'\0')};
    static std::vector<ustring> const unusual{u"'",
                                              u"'",
                                              u"{",
                                              u"{0",
                                              u"0}",
                                              u"'{'",
                                              u"'}",
                                              u"{00}",
                                              u"{01}",
                                              u"{10}",
                                              u"{63}",
                                              u"{64}",
                                              u"{256}",
                                              u"{32768}",
                                              u"{}",
                                              u"{-1}",
                                              u"{0x}",
                                              u"{x}",
                                              u"{_}",
                                              u"{0 1}",
                                              u"{0,}",
                                              u"{0,number,}",
                                              u"{0,Number}",
                                              u"{0,numbers}",
                                              u"{0,number,percent}",
                                              u"{0,number,#.#}",
                                              u"{0,number,'}'}",
                                              u"{0,number,integers}",
                                              u"{0\t}",
                                              u"{\u20280,\u200Enumber}",
                                              u"{0\u00A0}",
                                              u"{0,number integer}",
                                              u"{0,nonsense}",
                                              u"{0,plural,one{# {1}}other{#'s '{1}' {1}}}",
                                              u"{1,select,x{}other{it's {0,number}}}",
                                              u"{0,choice,0#{1}|1<'{'{0}'}}",
                                              u"{0,plural,offset:1 =0{{0}}other{{0} #}}"};
    ustring message;
    bool const is_usual = below(3) != 0;
    for (auto tokens = below(5) + below(5); tokens > 0; --tokens) {
        message += is_usual || below(3) != 0 ? any_of(usual) : any_of(unusual);
    }
    return message;
}

/// Returns how many of the holes 0, 1 and 2 a message is likely to have.
std::size_t likely_count(ustring const & message) {
    std::size_t count = 0;
    for (char16_t const number : {u'0', u'1', u'2'}) {
        count += message.find(ustring(u"{") + number) != ustring::npos ||
                 message.find(ustring(u"{ ") + number) != ustring::npos;
    }
    return count;
}

TEST(FormattingByIcu, MessagesHaveTheSameTextOrException) {
    for (int i = 0; i < 20'000 && !HasFailure(); ++i) {
        auto const message = any_message();
        Arguments args(below(8) == 0 ? below(5) : likely_count(message));
        for (auto & arg : args) {
            arg = any_argument();
        }
        compare(message, args, below(3) == 0 ? Format() : Format(static_cast<numeric_format>(below(15))));
    }
}

TEST(FormattingByIcu, ManyHolesHaveTheSameText) {
    ustring message;
    Arguments args;
    for (std::size_t i = 0; i < 70; ++i) {
        args.push_back(any_argument());
        message += u"{" + text_of(UnicodeString::fromUTF8(std::to_string(i))) + u"} ''";
        compare(message, args, {});
    }
}

} // namespace
} // namespace fl::i18n
