#pragma once

#include "catalogs/catalog_event_handler.hpp"
#include "tests/fuzz/documents.hpp"
#include "tests/fuzz/fuzz.hpp"

#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <unicode/unistr.h>
#include <vector>

namespace fl::fuzz {

using catalog_texts = std::map<std::string, std::u16string>;

/// Returns the text that a catalog holds for the content of an entry, in the pieces that Expat gives: a line
/// ends with a piece that has a line break, wherever in it. The lines are joined without blank ones and the
/// white space around each, with one blank between them; then the escapes are replaced.
inline std::u16string text_of_pieces(std::vector<std::string> const & pieces) {
    constexpr std::string_view white_space = " \t\v\n\r\f";
    std::vector<std::string> lines(1);
    for (std::string const & piece : pieces) {
        lines.back() += piece;
        if (piece.find_first_of("\n\r\f") != piece.npos) {
            lines.emplace_back();
        }
    }
    std::string joined;
    for (std::string_view line : lines) {
        line.remove_prefix(std::min(line.find_first_not_of(white_space), line.size()));
        line = line.substr(0, line.find_last_not_of(white_space) + 1);
        if (!line.empty()) {
            joined.append(joined.empty() ? "" : " ").append(line);
        }
    }
    auto const text = icu::UnicodeString::fromUTF8(joined).unescape();
    return {text.getBuffer(), static_cast<std::size_t>(text.length())};
}

/// Returns the text for a content whose line breaks are pieces of their own, as they are outside entities.
inline std::u16string text_of_content(std::string_view content) {
    std::vector<std::string> pieces;
    while (!content.empty()) {
        pieces.emplace_back(content.substr(0, std::max<std::size_t>(content.find_first_of("\n\r\f"), 1)));
        content.remove_prefix(pieces.back().size());
    }
    return text_of_pieces(pieces);
}

/// Requires that a store holds exactly some texts, and tells so for any key.
inline void require_texts(i18n::XMLCatalogDataStore const & store, catalog_texts const & expected,
                          std::string_view any_key) {
    std::vector<std::string> keys = store.keys();
    std::sort(keys.begin(), keys.end());
    require(std::equal(keys.begin(), keys.end(), expected.begin(), expected.end(),
                       [](auto const & key, auto const & row) { return key == row.first; }),
            "the keys of a catalog");
    for (auto const & [key, text] : expected) {
        auto const found = store.texts().find(key);
        require(found.has_value() && *found == text, "the text of a key");
    }
    require(store.texts().find(any_key).has_value() == expected.contains(std::string(any_key)),
            "whether a key is there");
}

} // namespace fl::fuzz
