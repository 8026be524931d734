#include <bit>
#include <boost/throw_exception.hpp>
#include <charconv>
#include <cmath>
#include <fl/i18n/catalog_config.hpp>
#include <fl/i18n/message_catalog.hpp>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <set>
#include <string>
#include <unicode/decimfmt.h>
#include <unicode/messagepattern.h>
#include <unicode/msgfmt.h>
#include <unicode/numberformatter.h>
#include <vector>

// Messages and numbers compared with what ICU makes of them, in the straightforward way. Each repetition
// (--gtest_repeat) goes on to other generated values.

namespace fl::i18n {
namespace {

using Arguments = std::vector<MessageCatalog::Argument>;
using Format = std::optional<numeric_format>;
using icu::UnicodeString;
using icu::number::Notation;
using icu::number::Precision;

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

icu::Locale const & posix_locale() {
    static icu::Locale const locale("en", "US", "POSIX");
    return locale;
}

ustring text_of(UnicodeString const & text) {
    return {text.getBuffer(), static_cast<std::size_t>(text.length())};
}

void check(UErrorCode status) {
    if (U_FAILURE(status)) {
        boost::throw_exception(MessageCatalog::MessageFormatIncorrect());
    }
}

/// A numeric format as ICU writes it.
class icu_format {
public:
    explicit icu_format(Precision const & precision, std::vector<Notation> const & notations) {
        for (auto const & notation : notations) {
            forms_.push_back(
                icu::number::NumberFormatter::with().notation(notation).precision(precision).locale(
                    posix_locale()));
        }
    }

    UnicodeString write(double value) const {
        UErrorCode status = U_ZERO_ERROR;
        auto result = forms_.front().formatDouble(value, status).toString(status);
        auto const other = forms_.back().formatDouble(value, status).toString(status);
        check(status);
        return other.length() <= result.length() ? other : result;
    }

private:
    std::vector<icu::number::LocalizedNumberFormatter> forms_;
};

UnicodeString icu_text(double value, numeric_format format) {
    auto const shorter = [](int fraction, int significant) {
        return icu_format(Precision::maxFraction(fraction).withSignificantDigits(
                              1, significant, UNUM_ROUNDING_PRIORITY_RELAXED),
                          {Notation::simple(), Notation::scientific()});
    };
    static auto const short_fraction = Precision::fixedFraction(4);
    static auto const long_fraction = Precision::fixedFraction(15);
    static icu_format const formats[] = {
        icu_format(short_fraction, {Notation::simple()}),
        icu_format(long_fraction, {Notation::simple()}),
        icu_format(short_fraction, {Notation::scientific()}),
        icu_format(long_fraction, {Notation::scientific()}),
        shorter(4, 5),
        shorter(15, 15),
        icu_format(short_fraction, {Notation::engineering()}),
        icu_format(Precision::fixedSignificantDigits(15), {Notation::engineering()}),
    };
    auto const number = static_cast<unsigned>(format);
    auto const index = number >= 1 && number <= 6     ? number - 1
                       : number == 12 || number == 13 ? number - 6
                                                      : 0;
    return formats[index].write(value);
}

numeric_format chosen(Format const & format) {
    auto const provider = messagecatalog::ConfigurationManagerFactory::Get().FindDoubleFormat();
    return format ? *format : provider ? provider->GetORBLANDoubleFormat() : numeric_format::simple_short;
}

icu::Formattable formattable(MessageCatalog::Argument const & arg) {
    struct {
        icu::Formattable operator()(std::int64_t value) const { return value; }
        icu::Formattable operator()(double value) const { return value; }
        icu::Formattable operator()(ustring const & value) const {
            return UnicodeString(value.data(), static_cast<std::int32_t>(value.size()));
        }
        icu::Formattable operator()(std::string const & value) const {
            return UnicodeString::fromUTF8(value);
        }
    } const convert;
    return std::visit(convert, arg);
}

/// Fills a message with ICU alone; the text of a double takes the place of its plain hole.
ustring fill_by_icu(ustring const & message, Arguments const & args, Format const & format) {
    UErrorCode status = U_ZERO_ERROR;
    UParseError position;
    auto pattern = icu::MessageFormat::autoQuoteApostrophe(
        UnicodeString(message.data(), static_cast<std::int32_t>(message.size())), status);
    icu::MessageFormat(pattern, posix_locale(), position, status);
    icu::MessagePattern const parsed(pattern, nullptr, status);
    check(status);
    std::set<UnicodeString> names;
    bool is_named = false;
    for (std::int32_t i = parsed.countParts() - 1; i >= 0; --i) {
        auto const & part = parsed.getPart(i);
        if (part.getType() != UMSGPAT_PART_TYPE_ARG_START) {
            continue;
        }
        auto const & name = parsed.getPart(i + 1);
        is_named = u_isalpha(parsed.getSubstring(name).char32At(0));
        names.insert(parsed.getSubstring(name));
        auto const number = static_cast<std::size_t>(name.getValue());
        if (part.getArgType() == UMSGPAT_ARG_TYPE_NONE && number < args.size() &&
            std::holds_alternative<double>(args[number])) {
            auto const end = parsed.getPart(parsed.getLimitPartIndex(i)).getLimit();
            pattern.replaceBetween(part.getIndex(), end,
                                   icu_text(std::get<double>(args[number]), chosen(format)));
        }
    }
    if (args.size() != (is_named ? 0 : names.size())) {
        boost::throw_exception(MessageCatalog::IncorrectHoleCount(is_named ? 0 : names.size(), args.size()));
    }
    if (is_named) {
        return message;
    }
    std::vector<icu::Formattable> values;
    for (auto const & arg : args) {
        values.push_back(formattable(arg));
    }
    UnicodeString result;
    icu::FieldPosition ignored(icu::FieldPosition::DONT_CARE);
    icu::MessageFormat(pattern, posix_locale(), position, status)
        .format(values.data(), static_cast<std::int32_t>(values.size()), result, ignored, status);
    check(status);
    return text_of(result);
}

/// Returns the text that a function fills, or what it throws.
template <class Fill>
std::pair<ustring, std::string> outcome(Fill fill, ustring const & message, Arguments const & args,
                                        Format const & format) {
    try {
        return {fill(message, args, format), ""};
    } catch (MessageCatalog::IncorrectHoleCount const & error) {
        return {u"", error.what()};
    } catch (MessageCatalog::MessageFormatIncorrect const & error) {
        return {u"", error.what()};
    }
}

void compare(ustring const & message, Arguments const & args, Format const & format) {
    auto const ours = [](auto const &... given) { return MessageCatalog::GetFormattedMessage(given...); };
    auto const text = outcome(ours, message, args, format);
    auto const expected = outcome(fill_by_icu, message, args, format);
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
