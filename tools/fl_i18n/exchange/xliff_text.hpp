#pragma once

#include "tools/fl_i18n/exchange/exchange.hpp"

#include <fl/i18n/ustring_type.hpp>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace fl::tool {

/// What elements stand for, by their identifiers; a slash comes before that of what ends a range.
using xliff_codes = std::map<std::string, i18n::ustring>;

/// Gathers the text of a source or target element. An element in it gives the native code for which it
/// stands, else what it shows instead, else what that of the same identifier in the source does, else itself.
class xliff_text {
public:
    /// Begins a text; `known` is what stands in its source.
    explicit xliff_text(xliff_codes known = {})
        : known_(std::move(known)) {}

    void begin_element(std::string_view name, attributes const & all,
                       std::map<std::string, std::string> const & original_data);
    void end_element();
    void append(std::string_view text);

    i18n::ustring const & text() const noexcept { return text_; }
    bool has_codes() const noexcept { return has_codes_; }
    xliff_codes const & codes() const noexcept { return codes_; }
    /// Returns the first element that stands for nothing known; empty without one.
    std::string const & unknown() const noexcept { return unknown_; }

private:
    struct element {
        std::size_t begin = 0;
        std::string id;        ///< empty when it has none, or only marks text
        bool escaped = false;  ///< the content is a backslash escape
        i18n::ustring instead; ///< what stands for an element without content
        std::string literal;   ///< the element itself, when nothing does
        i18n::ustring after;   ///< what stands after its content
    };

    i18n::ustring text_;
    std::vector<element> open_;
    bool has_codes_ = false;
    xliff_codes known_;
    xliff_codes codes_;
    std::string unknown_;

    /// Returns what an element stands for: what it gives itself, else what is known of it.
    i18n::ustring code(std::string const & id, std::string const & given);
};

} // namespace fl::tool
