#include "catalogs/message_pattern.hpp"

#include "catalogs/double_formats.hpp"
#include "catalogs/icu_check.hpp"
#include "foundation/ascii.hpp"

#include <algorithm>
#include <boost/numeric/conversion/cast.hpp>
#include <boost/throw_exception.hpp>
#include <fl/i18n/catalog_config.hpp>
#include <set>
#include <unicode/messagepattern.h>
#include <unicode/uchar.h>

namespace fl::i18n {

namespace {

using Argument = MessageCatalog::Argument;

ustring to_ustring(icu::UnicodeString const & text) {
    return {text.getBuffer(), static_cast<std::size_t>(text.length())};
}

/// Returns a view of a text, which must outlive it.
icu::UnicodeString view(std::u16string_view text) {
    return {false, text.data(), boost::numeric_cast<std::int32_t>(text.size())};
}

icu::UnicodeString quote_apostrophes(std::u16string_view message) {
    UErrorCode status = U_ZERO_ERROR;
    auto pattern = icu::MessageFormat::autoQuoteApostrophe(view(message), status);
    check_format(status, pattern);
    return pattern;
}

icu::MessageFormat make_format(icu::UnicodeString const & pattern) {
    UErrorCode status = U_ZERO_ERROR;
    UParseError position;
    icu::MessageFormat format(pattern, pattern_locale(), position, status);
    check_format(status);
    return format;
}

/// Returns the format type of a hole from the position after its name: it follows a comma and is made of
/// letters.
std::string read_type(icu::UnicodeString const & pattern, std::int32_t position) {
    while (!ascii::is_letter(pattern[position])) {
        ++position;
    }
    std::string type;
    for (; ascii::is_letter(pattern[position]); ++position) {
        type += static_cast<char>(pattern[position]);
    }
    return type;
}

struct to_formattable {
    icu::Formattable operator()(std::int64_t value) const { return value; }
    icu::Formattable operator()(double value) const { return value; }
    icu::Formattable operator()(ustring const & value) const { return icu::UnicodeString(view(value)); }
    icu::Formattable operator()(std::string const & value) const {
        auto const length = boost::numeric_cast<std::int32_t>(value.size());
        return icu::UnicodeString::fromUTF8({value.data(), length});
    }
};

numeric_format default_format() {
    auto const provider = messagecatalog::ConfigurationManagerFactory::Get().FindDoubleFormat();
    return provider ? provider->GetORBLANDoubleFormat() : numeric_format::simple_short;
}

/// Returns the double that a hole takes and that its message does not say how to write, or null.
double const * double_for(message_pattern::hole const & hole, std::vector<Argument> const & args) {
    if (!hole.type.empty() || static_cast<std::size_t>(hole.number) >= args.size()) {
        return nullptr;
    }
    return std::get_if<double>(&args[static_cast<std::size_t>(hole.number)]);
}

} // namespace

message_pattern::message_pattern(std::u16string_view message)
    : message_(message)
    , pattern_(quote_apostrophes(message))
    , format_(make_format(pattern_)) {
    collect_holes();
}

bool message_pattern::has_named_holes() const {
    return !holes_.empty() && u_isalpha(icu::UnicodeString(view(holes_.front().name)).char32At(0));
}

void message_pattern::collect_holes() {
    UErrorCode status = U_ZERO_ERROR;
    icu::MessagePattern parsed(status);
    parsed.parse(pattern_, nullptr, status);
    check_format(status);
    std::set<ustring> names;
    for (std::int32_t i = 0; i < parsed.countParts(); ++i) {
        auto const & part = parsed.getPart(i);
        if (part.getType() != UMSGPAT_PART_TYPE_ARG_START) {
            continue;
        }
        auto const & name = parsed.getPart(i + 1);
        auto const & limit = parsed.getPart(parsed.getLimitPartIndex(i));
        bool const has_type = part.getArgType() != UMSGPAT_ARG_TYPE_NONE;
        holes_.push_back({part.getIndex(), limit.getLimit(), name.getType() == UMSGPAT_PART_TYPE_ARG_NAME,
                          name.getValue(), to_ustring(parsed.getSubstring(name)),
                          has_type ? read_type(pattern_, name.getLimit()) : std::string()});
        names.insert(holes_.back().name);
    }
    distinct_holes_ = names.size();
}

ustring message_pattern::fill(std::vector<Argument> const & args,
                              std::optional<numeric_format> const & format) const {
    if (args.size() != expected_arguments()) {
        boost::throw_exception(MessageCatalog::IncorrectHoleCount(expected_arguments(), args.size()));
    }
    if (has_named_holes()) {
        return ustring(message_);
    }
    std::vector<icu::Formattable> values;
    values.reserve(args.size());
    for (auto const & arg : args) {
        values.push_back(std::visit(to_formattable(), arg));
    }
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString result;
    icu::FieldPosition ignored(icu::FieldPosition::DONT_CARE);
    auto const count = boost::numeric_cast<std::int32_t>(values.size());
    if (auto const pattern = with_doubles_written(args, format); pattern == pattern_) {
        format_.format(values.data(), count, result, ignored, status);
    } else {
        make_format(pattern).format(values.data(), count, result, ignored, status);
    }
    check_format(status, result);
    return to_ustring(result);
}

// The text of a number goes into the pattern in its hole's place: it holds nothing that a pattern would read
// as more than text. A format set for the argument would reach outer holes only, and also those with a format
// of their own.
icu::UnicodeString message_pattern::with_doubles_written(std::vector<Argument> const & args,
                                                         std::optional<numeric_format> format) const {
    icu::UnicodeString pattern = pattern_;
    for (auto at = holes_.rbegin(); at != holes_.rend(); ++at) {
        if (double const * const value = double_for(*at, args)) {
            format = format ? format : default_format();
            pattern.replaceBetween(at->begin, at->end, write_double(*value, *format));
        }
    }
    check_format(U_ZERO_ERROR, pattern);
    return pattern;
}

} // namespace fl::i18n
