#pragma once

#include "tools/fl_i18n/catalog/source_text.hpp"
#include "tools/fl_i18n/lint/rules.hpp"

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace fl::tool::lint {

/// What is certain to mend a fault: a text in the place of what stands from the fault's place up to an end.
template <class Place>
struct mend {
    Place end;
    std::string text;
};

/// A fault as it is reported.
struct finding {
    rule const * broken = nullptr;
    severity level = severity::error;
    position begin;
    std::string text;
    std::optional<mend<position>> repair;
    std::optional<position> first; ///< the place of what it repeats
};

/// A fault as a rule finds it, with places as offsets.
struct fault {
    std::size_t offset = 0;
    std::string text;
    std::optional<mend<std::size_t>> repair = std::nullopt;
    std::optional<std::size_t> first = std::nullopt;
    std::optional<severity> level = std::nullopt; ///< the usual one of the rule unless given
};

/// How strict a run is.
struct strictness {
    std::set<std::string, std::less<>> disabled; ///< names of rules
    bool warnings_are_errors = false;
};

/// Gathers the faults of one file.
class file_findings {
public:
    file_findings(source_text const & source, strictness const & measure)
        : source_(source)
        , measure_(measure) {}

    /// Adds a fault unless its rule, which exists, is disabled.
    void add(std::string_view rule_name, fault const & found);

    /// Returns the findings by their places and leaves none.
    std::vector<finding> take();

private:
    source_text const & source_;
    strictness const & measure_;
    std::vector<finding> findings_;
};

/// Returns a text in double quotes, shortened when it is long.
std::string in_quotes(std::string_view text);

} // namespace fl::tool::lint
