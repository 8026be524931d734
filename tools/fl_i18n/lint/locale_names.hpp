#pragma once

#include "tools/fl_i18n/lint/finding.hpp"

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace fl::tool::lint {

/// Names and aliases of one kind in a locale database, as they come, and what is wrong among them.
class name_table {
public:
    /// `what` is what is named ("locale"). `fold` brings a name to the form in which names are compared.
    name_table(std::string what, std::function<std::string(std::string_view)> fold)
        : what_(std::move(what))
        , fold_(std::move(fold)) {}

    void add_name(std::string const & name, std::size_t offset, file_findings & out);
    void add_alias(std::string const & alias, std::string const & target, std::size_t offset,
                   file_findings & out);
    bool contains(std::string const & name) const;

    /// Reports, once all is added, aliases that hide names or lead back to themselves.
    void check_aliases(file_findings & out) const;

private:
    struct alias_entry {
        std::string target;
        std::size_t offset;
    };
    bool leads_back(std::string const & alias) const;

    std::string what_;
    std::function<std::string(std::string_view)> fold_;
    std::map<std::string, std::size_t> names_;
    std::map<std::string, alias_entry> aliases_;
};

} // namespace fl::tool::lint
