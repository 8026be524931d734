#pragma once

#include "locale/event_log.hpp"
#include "locale/lc_tables.hpp"

#include <string>
#include <string_view>

namespace fl::i18n::lcmgmt {

/// Applies the elements of a locale database to the tables.
///
/// Each operation compares with what the tables hold and modifies them only where something changes. A
/// modification that fails becomes an error event; the operations themselves do not fail.
class LcData {
public:
    LcData(lc_tables & tables, event_log & log)
        : tables_(tables)
        , log_(log) {}

    void addLcName(std::string const & name, std::string const & encoding, std::string const & xpg_name);
    void addAliasLcName(std::string const & name, std::string const & alias);
    void addRegionAliasLcName(std::string const & name, std::string const & alias);
    void addL10nFlag(std::string const & name, std::string const & value);
    void addEncodingName(std::string const & name, std::string const & jvm_name, std::string const & compat);
    void addEncodingAlias(std::string const & name, std::string const & alias);

private:
    void report(int status, std::string_view source, std::string const & key, std::string const & value);

    lc_tables & tables_;
    event_log & log_;
};

} // namespace fl::i18n::lcmgmt
