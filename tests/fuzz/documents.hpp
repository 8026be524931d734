#pragma once

#include "foundation/xml_reader.hpp"
#include "tests/fuzz/fuzz.hpp"

#include <algorithm>
#include <fl/i18n/limits.hpp>
#include <memory>
#include <string_view>
#include <type_traits>
#include <vector>

// Without it the header of Expat hides the protection against entities that grow.
#define XML_DTD 1
#include <expat.h>

namespace fl::fuzz {

using parser_handle = std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)>;

/// Makes a parser with the limit of entities.
inline parser_handle make_parser(char const * forced_encoding) {
    parser_handle parser(XML_ParserCreate(forced_encoding), XML_ParserFree);
    XML_SetBillionLaughsAttackProtectionActivationThreshold(parser.get(), i18n::limits::free_entity_bytes);
    return parser;
}

/// Requires that two readings of a document have ended alike. Of what stands behind the root, Expat tells by
/// the cuts whether it is no token or only misplaced; and it counts the columns in the line of a declared
/// encoding by what it has taken for the encoding until then.
inline void require_same_end(xml::read_result const & one, xml::read_result const & other,
                             std::string_view document) {
    require(one.status == other.status, "whether a document is well-formed");
    auto const has = [&](int code) { return one.error_code == code || other.error_code == code; };
    if (one.error_code != other.error_code) {
        require(has(XML_ERROR_JUNK_AFTER_DOC_ELEMENT) &&
                    (has(XML_ERROR_INVALID_TOKEN) || has(XML_ERROR_UNCLOSED_TOKEN) ||
                     has(XML_ERROR_PARTIAL_CHAR)),
                "what is wrong with a document");
    } else if (!has(XML_ERROR_JUNK_AFTER_DOC_ELEMENT)) {
        std::string_view const declaration = document.substr(0, document.find("?>"));
        bool const has_encoding = declaration.find("encoding") != declaration.npos;
        auto const lines = 1 + std::count(declaration.begin(), declaration.end(), '\n');
        bool const is_declared_there = has_encoding && one.line <= static_cast<unsigned long>(lines);
        require(one.line == other.line && (is_declared_there || one.column == other.column),
                "where a document is wrong");
    }
}

/// Cuts a document into blocks, each in memory of exactly its size. The bytes of the plan are their sizes, in
/// turn until the end; a plan of an odd size puts an empty block there.
inline xml::block_source cut(std::string_view document, std::string_view plan) {
    return [rest = document, plan, i = std::size_t(0), is_first = true,
            held = std::vector<char>()]() mutable -> std::optional<xml::block> {
        std::size_t size = rest.size();
        if (!plan.empty()) {
            // Sizes of zero make no way: once for each of them is enough.
            std::size_t const named = static_cast<unsigned char>(plan[i % plan.size()]);
            std::size_t const least = i < plan.size() && named == 0 ? 0 : is_first ? 2 : 1;
            size = std::min(size, std::max(named, least));
            ++i;
        }
        is_first = is_first && size == 0;
        bool const was_at_end = rest.empty();
        held = std::vector<char>(rest.begin(), rest.begin() + static_cast<std::ptrdiff_t>(size));
        rest.remove_prefix(size);
        return xml::block{{held.data(), size}, rest.empty() && (was_at_end || plan.size() % 2 == 0)};
    };
}

} // namespace fl::fuzz
