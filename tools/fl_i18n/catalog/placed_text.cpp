#include "tools/fl_i18n/catalog/placed_text.hpp"

#include <boost/numeric/conversion/cast.hpp>
#include <unicode/ustring.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>
#include <utility>

namespace fl::tool {

namespace {

constexpr std::string_view white_space = " \t\v\n\r\f";
constexpr std::string_view line_breaks = "\n\r\f";

std::uint32_t to_place(std::size_t offset) {
    return boost::numeric_cast<std::uint32_t>(offset);
}

void append(placed_text & text, UChar32 c, std::uint32_t place) {
    char16_t units[U16_MAX_LENGTH];
    std::int32_t length = 0;
    U16_APPEND_UNSAFE(units, length, c);
    text.units.append(units, static_cast<std::size_t>(length));
    text.places.insert(text.places.end(), static_cast<std::size_t>(length), place);
}

/// Appends the UTF-8 text from `begin` to `end`, which is valid.
void append_decoded(placed_text & text, std::string const & bytes, std::vector<std::uint32_t> const & places,
                    std::size_t begin, std::size_t end) {
    for (std::size_t i = begin; i < end;) {
        std::uint32_t const place = places[i];
        UChar32 c = 0;
        U8_NEXT_UNSAFE(bytes.data(), i, c);
        append(text, c, place);
    }
}

char16_t unit_at(std::int32_t i, void * units) {
    return (*static_cast<i18n::ustring const *>(units))[static_cast<std::size_t>(i)];
}

} // namespace

void text_builder::append(std::string_view content, std::size_t offset, bool literal) {
    bytes_ += content;
    for (std::size_t i = 0; i < content.size(); ++i) {
        places_.push_back(to_place(literal ? offset + i : offset));
    }
}

placed_text text_builder::finish(std::size_t end, std::optional<std::size_t> & bad_escape) {
    placed_text joined;
    for (std::size_t line = 0; line < bytes_.size();) {
        std::size_t const limit = std::min(bytes_.find_first_of(line_breaks, line), bytes_.size());
        std::size_t const first = std::min(bytes_.find_first_not_of(white_space, line), limit);
        if (first < limit) {
            if (!joined.units.empty()) {
                tool::append(joined, u' ', places_[line - 1]);
            }
            std::size_t const last = bytes_.find_last_not_of(white_space, limit - 1);
            append_decoded(joined, bytes_, places_, first, last + 1);
        }
        line = limit + 1;
    }
    bytes_.clear();
    places_.clear();

    placed_text text;
    bad_escape.reset();
    auto const length = boost::numeric_cast<std::int32_t>(joined.units.size());
    for (std::int32_t i = 0; i < length && !bad_escape;) {
        auto const start = static_cast<std::size_t>(i++);
        if (joined.units[start] != u'\\') {
            text.units += joined.units[start];
            text.places.push_back(joined.places[start]);
        } else if (UChar32 const c = u_unescapeAt(unit_at, &i, length, &joined.units); c >= 0) {
            tool::append(text, c, joined.places[start]);
        } else {
            bad_escape = joined.places[start];
            text = {};
        }
    }
    text.places.push_back(to_place(end));
    return text;
}

} // namespace fl::tool
