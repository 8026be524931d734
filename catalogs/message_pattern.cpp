#include "catalogs/message_pattern.hpp"

#include "catalogs/double_formats.hpp"
#include "catalogs/hole_style.hpp"
#include "catalogs/icu_check.hpp"
#include "catalogs/pattern_nesting.hpp"
#include "foundation/ascii.hpp"
#include "foundation/process_singleton.hpp"

#include <algorithm>
#include <array>
#include <boost/numeric/conversion/cast.hpp>
#include <boost/throw_exception.hpp>
#include <fl/i18n/catalog_config.hpp>
#include <fl/i18n/limits.hpp>
#include <memory>
#include <unicode/locid.h>
#include <unicode/uchar.h>

namespace fl::i18n {

namespace {

using Argument = MessageCatalog::Argument;

/// The locale by whose rules patterns are read and numbers are written into them.
constinit process_singleton<icu::Locale> pattern_locale;

ustring to_ustring(icu::UnicodeString const & text) {
    return {text.getBuffer(), static_cast<std::size_t>(text.length())};
}

/// Returns a view of a text, which must outlive it.
icu::UnicodeString view(std::u16string_view text) {
    return {false, text.data(), boost::numeric_cast<std::int32_t>(text.size())};
}

/// Doubles apostrophes that are text; the result may point to the message.
icu::UnicodeString quote_apostrophes(std::u16string_view message) {
    if (message.find(u'\'') == message.npos) {
        return view(message);
    }
    UErrorCode status = U_ZERO_ERROR;
    auto pattern = icu::MessageFormat::autoQuoteApostrophe(view(message), status);
    check_format(status, pattern);
    return pattern;
}

/// Refuses what ICU would take too much of time, memory or stack for.
void check_limit(bool within) {
    check_format(within ? U_ZERO_ERROR : U_MESSAGE_PARSE_ERROR);
}

/// Counts what is limited in a pattern that ICU has read.
class pattern_counter {
public:
    void count(icu::MessagePattern::Part const & part, std::u16string_view pattern) {
        switch (part.getType()) {
        case UMSGPAT_PART_TYPE_ARG_START:
            formats_ += makes_format(part.getArgType());
            [[fallthrough]];
        case UMSGPAT_PART_TYPE_ARG_SELECTOR:
        case UMSGPAT_PART_TYPE_REPLACE_NUMBER:
            ++holes_;
            break;
        case UMSGPAT_PART_TYPE_ARG_STYLE:
            check_limit(is_moderate_style(pattern.substr(static_cast<std::size_t>(part.getIndex()),
                                                         static_cast<std::size_t>(part.getLength()))));
            break;
        default:
            break;
        }
        check_limit(holes_ <= limits::most_holes && formats_ <= limits::most_formats);
    }

private:
    static bool makes_format(UMessagePatternArgType type) { return type == UMSGPAT_ARG_TYPE_SIMPLE; }

    std::size_t holes_ = 0;
    std::size_t formats_ = 0;
};

icu::MessageFormat make_format(icu::UnicodeString const & pattern) {
    UErrorCode status = U_ZERO_ERROR;
    UParseError position;
    auto const & locale =
        pattern_locale.get([] { return std::make_unique<icu::Locale>("en", "US", "POSIX"); });
    icu::MessageFormat format(pattern, locale, position, status);
    check_format(status);
    return format;
}

/// Sets a value for ICU.
struct formattable_setter {
    icu::Formattable & value;

    void operator()(std::int64_t integer) const { value.setInt64(integer); }
    void operator()(double number) const { value.setDouble(number); }
    void operator()(ustring const & text) const { value.setString(view(text)); }
    void operator()(std::string const & text) const {
        auto const length = boost::numeric_cast<std::int32_t>(text.size());
        value.setString(icu::UnicodeString::fromUTF8({text.data(), length}));
    }
};

/// Returns the length of a text, which a hole takes as it is.
struct argument_size {
    std::size_t operator()(std::int64_t) const { return 0; }
    std::size_t operator()(double) const { return 0; }
    template <class Text>
    std::size_t operator()(Text const & text) const {
        return static_cast<std::size_t>(boost::numeric_cast<std::int32_t>(text.size()));
    }
};

/// Returns the double that a hole takes and that its message does not say how to write, or null.
double const * double_for(message_pattern::hole const & hole, std::vector<Argument> const & args) {
    if (hole.has_type || static_cast<std::size_t>(hole.number) >= args.size()) {
        return nullptr;
    }
    return std::get_if<double>(&args[static_cast<std::size_t>(hole.number)]);
}

} // namespace

// The type follows the name and a comma and is made of letters.
std::string message_pattern::hole::type() const {
    std::string letters;
    if (has_type) {
        char16_t const * at = name.data() + name.size();
        while (!ascii::is_letter(*at)) {
            ++at;
        }
        for (; ascii::is_letter(*at); ++at) {
            letters += static_cast<char>(*at);
        }
    }
    return letters;
}

message_pattern::message_pattern(std::u16string_view message)
    : message_(message) {
    boost::numeric_cast<std::int32_t>(message.size());
    if (message.find(u'{') == message.npos) {
        return;
    }
    check_limit(message.size() <= limits::longest_pattern);
    pattern_ = quote_apostrophes(message);
    check_limit(nests_within(limits::deepest_nesting, pattern_text()));
    UErrorCode status = U_ZERO_ERROR;
    icu::MessagePattern const parsed(pattern_, nullptr, status);
    check_format(status);
    collect_holes(parsed);
    count_distinct_holes();
}

void message_pattern::check() const {
    if (is_pattern()) {
        make_format(pattern_);
    }
}

std::u16string_view message_pattern::pattern_text() const {
    return {pattern_.getBuffer(), static_cast<std::size_t>(pattern_.length())};
}

bool message_pattern::has_named_holes() const {
    return !holes_.empty() && u_isalpha(view(holes_.front().name).char32At(0));
}

void message_pattern::collect_holes(icu::MessagePattern const & parsed) {
    pattern_counter counter;
    for (std::int32_t i = 0; i < parsed.countParts(); ++i) {
        auto const & part = parsed.getPart(i);
        counter.count(part, pattern_text());
        if (part.getType() != UMSGPAT_PART_TYPE_ARG_START) {
            continue;
        }
        auto const & name = parsed.getPart(i + 1);
        auto const & limit = parsed.getPart(parsed.getLimitPartIndex(i));
        bool const has_name = name.getType() == UMSGPAT_PART_TYPE_ARG_NAME;
        bool const has_type = part.getArgType() != UMSGPAT_ARG_TYPE_NONE;
        auto const text = pattern_text().substr(static_cast<std::size_t>(name.getIndex()),
                                                static_cast<std::size_t>(name.getLength()));
        holes_.push_back({part.getIndex(), limit.getLimit(), has_name, has_type, name.getValue(), text});
    }
}

void message_pattern::count_distinct_holes() {
    std::vector<std::u16string_view> names;
    names.reserve(holes_.size());
    for (auto const & h : holes_) {
        names.push_back(h.name);
    }
    std::sort(names.begin(), names.end());
    distinct_holes_ = static_cast<std::size_t>(std::unique(names.begin(), names.end()) - names.begin());
}

ustring message_pattern::fill(std::vector<Argument> const & args,
                              std::optional<numeric_format> const & format) const {
    if (args.size() != expected_arguments() || has_named_holes()) {
        check();
        if (args.size() != expected_arguments()) {
            boost::throw_exception(MessageCatalog::IncorrectHoleCount(expected_arguments(), args.size()));
        }
        return ustring(message_);
    }
    if (!is_pattern()) {
        return unquoted();
    }
    std::vector<icu::Formattable> values(args.size());
    try {
        check_limit(size_with(args) <= limits::longest_result);
        for (std::size_t i = 0; i < args.size(); ++i) {
            std::visit(formattable_setter{values[i]}, args[i]);
        }
    } catch (boost::numeric::positive_overflow const &) {
        check(); // a message that is refused comes before an argument that is too long
        throw;
    }
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString result;
    icu::FieldPosition ignored(icu::FieldPosition::DONT_CARE);
    auto const count = boost::numeric_cast<std::int32_t>(values.size());
    make_format(with_doubles_written(args, format)).format(values.data(), count, result, ignored, status);
    check_format(status, result);
    return to_ustring(result);
}

// An apostrophe is text unless a brace follows, which begins a quotation; two are one. After two of them a
// quotation goes on only when another or a brace follows: ICU doubles the second else, and so ends it.
ustring message_pattern::unquoted() const {
    auto const unit_at = [this](std::size_t at) { return at < message_.size() ? message_[at] : u'\0'; };
    ustring result;
    result.reserve(message_.size());
    bool in_quotation = false;
    std::size_t done = 0;
    for (std::size_t at = 0; (at = message_.find(u'\'', at)) != message_.npos; ++at) {
        bool const is_doubled = unit_at(at + 1) == u'\'';
        if (!is_doubled && !in_quotation && unit_at(at + 1) != u'}') {
            continue;
        }
        // This one is left out.
        result.append(message_, done, at - done);
        done = at + 1;
        if (is_doubled) {
            ++at;
            in_quotation = in_quotation && (unit_at(at + 1) == u'\'' || unit_at(at + 1) == u'}');
        } else {
            in_quotation = !in_quotation;
        }
    }
    return result.append(message_, done);
}

std::size_t message_pattern::size_with(std::vector<Argument> const & args) const {
    std::vector<std::size_t> sizes;
    sizes.reserve(args.size());
    for (auto const & arg : args) {
        sizes.push_back(std::visit(argument_size(), arg));
    }
    std::size_t size = message_.size();
    for (auto const & h : holes_) {
        auto const number = static_cast<std::size_t>(h.number); // 0 for a name
        size += !h.has_type && number < sizes.size() ? sizes[number] : 0;
    }
    return size;
}

// The text of a number goes into the pattern in its hole's place: it holds nothing that a pattern would read
// as more than text. A format set for the argument would reach outer holes only, and also those with a format
// of their own.
icu::UnicodeString message_pattern::with_doubles_written(std::vector<Argument> const & args,
                                                         std::optional<numeric_format> format) const {
    icu::UnicodeString pattern;
    std::int32_t done = 0;
    for (auto const & h : holes_) {
        if (double const * const value = double_for(h, args)) {
            format = format ? format : default_format();
            std::array<char16_t, longest_double> text;
            auto const length = write_double(*value, *format, text.data()) - text.data();
            pattern.append(pattern_, done, h.begin - done).append(text.data(), static_cast<int>(length));
            done = h.end;
        }
    }
    pattern.append(pattern_, done, pattern_.length() - done);
    check_format(U_ZERO_ERROR, pattern);
    return pattern;
}

// The provider is not asked for a message that is refused.
numeric_format message_pattern::default_format() const {
    if (messagecatalog::ConfigurationManagerFactory::Get().FindDoubleFormat()) {
        check();
    }
    return default_double_format();
}

} // namespace fl::i18n
