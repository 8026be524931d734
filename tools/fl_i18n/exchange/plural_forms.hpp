#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace fl::tool {

/// How a language chooses among plural forms.
struct plural_rule {
    std::string_view languages; ///< their codes, each followed by a blank
    std::size_t forms;
    std::string_view expression;       ///< as gettext evaluates it
    std::size_t (*choose)(unsigned n); ///< the same in C++
};

/// Returns the rule of a locale ("pt_BR"); null for one whose rule is not known here.
plural_rule const * find_plural_rule(std::string_view locale);

/// Returns the value of the header field "Plural-Forms"; empty where the rule is not known.
std::string plural_forms(std::string_view locale);

} // namespace fl::tool
