#include "tools/fl_i18n/exchange/holes.hpp"

#include "foundation/ascii.hpp"

#include <algorithm>
#include <boost/numeric/conversion/cast.hpp>
#include <unicode/messagepattern.h>
#include <unicode/unistr.h>

namespace fl::tool {

std::vector<hole> simple_holes(i18n::ustring const & text) {
    std::vector<hole> result;
    if (text.find(u'{') == i18n::ustring::npos) {
        return result;
    }
    UErrorCode status = U_ZERO_ERROR;
    auto const length = boost::numeric_cast<std::int32_t>(text.size());
    icu::MessagePattern const pattern(icu::UnicodeString(false, text.data(), length), nullptr, status);
    if (U_FAILURE(status)) {
        return result;
    }
    for (std::int32_t i = 0; i < pattern.countParts(); ++i) {
        icu::MessagePattern::Part const & part = pattern.getPart(i);
        if (part.getType() != UMSGPAT_PART_TYPE_ARG_START) {
            continue;
        }
        std::int32_t const limit = pattern.getLimitPartIndex(i);
        bool const simple =
            part.getArgType() == UMSGPAT_ARG_TYPE_NONE || part.getArgType() == UMSGPAT_ARG_TYPE_SIMPLE;
        if (simple) {
            result.push_back({static_cast<std::size_t>(part.getIndex()),
                              static_cast<std::size_t>(pattern.getPart(limit).getLimit())});
        }
        i = limit;
    }
    return result;
}

bool has_plain_braces(i18n::ustring const & text) {
    auto const holes = simple_holes(text);
    auto const braces =
        std::count_if(text.begin(), text.end(), [](char16_t c) { return c == u'{' || c == u'}'; });
    return static_cast<std::size_t>(braces) == 2 * holes.size() &&
           std::all_of(holes.begin(), holes.end(), [&](hole const & each) {
               return std::all_of(text.begin() + static_cast<std::ptrdiff_t>(each.begin) + 1,
                                  text.begin() + static_cast<std::ptrdiff_t>(each.end) - 1, [](char16_t c) {
                                      return ascii::is_letter(c) || ascii::is_digit(c) || c == u'_';
                                  });
           });
}

bool has_plain_holes(i18n::ustring const & text) {
    return has_plain_braces(text) && text.find(u'{') != i18n::ustring::npos;
}

} // namespace fl::tool
