#pragma once

#include "foundation/xml_reader.hpp"

#include <algorithm>
#include <string_view>
#include <vector>

namespace fl::fuzz {

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
