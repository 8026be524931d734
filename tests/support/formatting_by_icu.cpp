#include "tests/support/formatting_by_icu.hpp"

#include <boost/throw_exception.hpp>
#include <fl/i18n/catalog_config.hpp>
#include <set>
#include <unicode/messagepattern.h>
#include <unicode/msgfmt.h>
#include <unicode/numberformatter.h>

namespace fl::i18n::test {

namespace {

using icu::UnicodeString;
using icu::number::Notation;
using icu::number::Precision;

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

} // namespace

icu::Locale const & posix_locale() {
    static icu::Locale const locale("en", "US", "POSIX");
    return locale;
}

ustring text_of(UnicodeString const & text) {
    return {text.getBuffer(), static_cast<std::size_t>(text.length())};
}

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

} // namespace fl::i18n::test
