#pragma once

#include "tools/fl_i18n/exchange/exchange.hpp"

#include <fl/i18n/ustring_type.hpp>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace fl::tool {

/// Gathers the text of a source or target element. An element in it gives the native code for which it
/// stands, else what it shows instead, else itself.
class xliff_text {
public:
    void begin_element(std::string_view name, attributes const & all,
                       std::map<std::string, std::string> const & original_data);
    void end_element();
    void append(std::string_view text);

    i18n::ustring const & text() const noexcept { return text_; }
    bool has_codes() const noexcept { return has_codes_; }

private:
    struct element {
        std::size_t begin = 0;
        bool escaped = false;  ///< the content is a backslash escape
        i18n::ustring instead; ///< what stands for an element without content
        i18n::ustring after;   ///< what stands after its content
    };

    i18n::ustring text_;
    std::vector<element> open_;
    bool has_codes_ = false;
};

} // namespace fl::tool
