#pragma once

#include <span>
#include <string_view>

namespace fl::tool::lint {

enum class severity { error, warning };

/// A kind of fault. The names do not change from version to version.
struct rule {
    std::string_view name;
    severity usual_severity;
    std::string_view meaning;
};

std::span<rule const> all_rules();

/// Returns the rule of a name, or null.
rule const * find_rule(std::string_view name);

/// Returns "error" or "warning".
std::string_view to_string(severity level);

} // namespace fl::tool::lint
