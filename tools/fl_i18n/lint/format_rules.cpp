#include "tools/fl_i18n/lint/text_rules.hpp"

#include "catalogs/hole_style.hpp"
#include "foundation/ascii.hpp"

#include <boost/numeric/conversion/cast.hpp>
#include <fl/i18n/ustring.hpp>
#include <unicode/datefmt.h>
#include <unicode/msgfmt.h>

namespace fl::tool::lint {

namespace {

/// Tells whether a format writes what it is given: that of a date leaves out all from a letter without a
/// meaning on, and nobody is told.
bool can_write(icu::Format const * format) {
    auto const * const date = dynamic_cast<icu::DateFormat const *>(format);
    UErrorCode status = U_ZERO_ERROR;
    if (date != nullptr) {
        icu::UnicodeString ignored;
        date->format(UDate(), ignored, nullptr, status);
    }
    return U_SUCCESS(status);
}

/// Tells whether the formatter builds a pattern of one hole, for the locale that it takes for all of them,
/// and can fill it.
bool can_be_built(i18n::ustring const & pattern) {
    UErrorCode status = U_ZERO_ERROR;
    UParseError ignored;
    icu::UnicodeString const text(pattern.data(), boost::numeric_cast<std::int32_t>(pattern.size()));
    icu::MessageFormat const format(text, icu::Locale("en", "US", "POSIX"), ignored, status);
    std::int32_t count = 0;
    icu::Format const * const * const formats = format.getFormats(count);
    return U_SUCCESS(status) && (count == 0 || can_write(formats[0]));
}

} // namespace

format_rules::verdict format_rules::judge(hole const & each) {
    if (!i18n::is_moderate_style(each.style)) {
        return verdict::absurd;
    }
    i18n::ustring const start = u"{0," + ascii::widen(each.type);
    if (can_be_built(start + (each.style.empty() ? u"" : u"," + each.style) + u"}")) {
        return verdict::good;
    }
    return can_be_built(start + u"}") ? verdict::bad_style : verdict::bad_type;
}

void format_rules::check(pattern const & text, file_findings & out) {
    for (hole const & each : text.holes) {
        if (each.type.empty() || each.has_branches()) {
            continue;
        }
        auto known = known_.find({each.type, each.style});
        if (known == known_.end()) {
            known = known_.insert({{each.type, each.style}, judge(each)}).first;
        }
        std::string const style = in_quotes(i18n::ustring_to_utf8(each.style));
        switch (known->second) {
        case verdict::good:
            break;
        case verdict::bad_type:
            out.add("bad-format",
                    {.offset = each.type_offset, .text = "there is no type " + in_quotes(each.type)});
            break;
        case verdict::bad_style:
            out.add("bad-format",
                    {.offset = each.style_offset, .text = in_quotes(each.type) + " has no style " + style});
            break;
        case verdict::absurd:
            out.add("bad-format",
                    {.offset = each.style_offset, .text = "the style " + style + " is beyond all measure"});
            break;
        }
    }
}

} // namespace fl::tool::lint
