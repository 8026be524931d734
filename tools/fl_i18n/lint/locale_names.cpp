#include "tools/fl_i18n/lint/locale_names.hpp"

namespace fl::tool::lint {

void name_table::add_name(std::string const & name, std::size_t offset, file_findings & out) {
    auto const [first, is_new] = names_.try_emplace(fold_(name), offset);
    if (!is_new) {
        out.add("repeated-name", {.offset = offset,
                                  .text = "the " + what_ + " " + in_quotes(name) + " is there already",
                                  .first = first->second});
    }
}

void name_table::add_alias(std::string const & alias, std::string const & target, std::size_t offset,
                           file_findings & out) {
    auto const [first, is_new] = aliases_.try_emplace(fold_(alias), alias_entry{fold_(target), offset});
    if (is_new) {
        return;
    }
    bool const same = first->second.target == fold_(target);
    out.add("repeated-name", {.offset = offset,
                              .text = "the alias " + in_quotes(alias) + " is there already" +
                                      (same ? "" : ", for another " + what_ + ": the last one counts"),
                              .first = first->second.offset});
    first->second.target = fold_(target);
}

bool name_table::contains(std::string const & name) const {
    return names_.contains(fold_(name)) || aliases_.contains(fold_(name));
}

bool name_table::leads_back(std::string const & alias) const {
    std::string at = alias;
    for (std::size_t steps = 0; steps <= aliases_.size(); ++steps) {
        auto const next = aliases_.find(at);
        if (next == aliases_.end()) {
            return false;
        }
        at = next->second.target;
        if (at == alias) {
            return true;
        }
    }
    return false;
}

void name_table::check_aliases(file_findings & out) const {
    for (auto const & [alias, entry] : aliases_) {
        if (leads_back(alias)) {
            out.add("alias-cycle", {.offset = entry.offset, .text = "this alias leads back to itself"});
        } else if (auto const hidden = names_.find(alias); hidden != names_.end()) {
            out.add("shadowed-name", {.offset = entry.offset,
                                      .text = "this alias hides the " + what_ + " of its name",
                                      .first = hidden->second});
        }
    }
}

} // namespace fl::tool::lint
