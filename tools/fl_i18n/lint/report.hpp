#pragma once

#include "tools/fl_i18n/lint/finding.hpp"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace fl::tool::lint {

struct totals {
    std::size_t files = 0;
    std::size_t errors = 0;
    std::size_t warnings = 0;
};

/// Takes pieces of UTF-8 text.
using output = std::function<void(std::string_view)>;

/// Writes findings in a format, each as it comes.
class report {
public:
    virtual ~report() = default;
    virtual void add(std::string const & file, finding const & found) = 0;
    virtual void finish(totals const & counts) = 0;
};

std::unique_ptr<report> make_text_report(output out);
std::unique_ptr<report> make_json_report(output out);
std::unique_ptr<report> make_sarif_report(output out);

} // namespace fl::tool::lint
