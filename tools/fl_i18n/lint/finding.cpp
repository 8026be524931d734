#include "tools/fl_i18n/lint/finding.hpp"

#include <algorithm>
#include <tuple>
#include <utility>

namespace fl::tool::lint {

void file_findings::add(std::string_view rule_name, fault const & found) {
    if (measure_.disabled.contains(rule_name)) {
        return;
    }
    finding result;
    result.broken = find_rule(rule_name);
    result.level =
        measure_.warnings_are_errors ? severity::error : found.level.value_or(result.broken->usual_severity);
    result.begin = source_.position_of(found.offset);
    result.text = found.text;
    if (found.repair) {
        result.text += ", write " + in_quotes(found.repair->text);
        result.repair = {source_.position_of(found.repair->end), found.repair->text};
    }
    if (found.first) {
        result.first = source_.position_of(*found.first);
        result.text += "; the first is in line " + std::to_string(result.first->line) + ", column " +
                       std::to_string(result.first->column);
    }
    findings_.push_back(std::move(result));
}

std::vector<finding> file_findings::take() {
    std::ranges::stable_sort(
        findings_, {}, [](finding const & each) { return std::tuple(each.begin.line, each.begin.column); });
    return std::exchange(findings_, {});
}

std::string in_quotes(std::string_view text) {
    constexpr std::size_t longest = 60;
    if (text.size() <= longest) {
        return "\"" + std::string(text) + "\"";
    }
    std::size_t end = longest;
    while ((static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) {
        --end;
    }
    return "\"" + std::string(text.substr(0, end)) + "...\"";
}

} // namespace fl::tool::lint
