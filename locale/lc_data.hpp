#pragma once

#include "locale/event_log.hpp"
#include "locale/lc_tables.hpp"

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

    void addLcName(std::string_view name, std::string_view encoding, std::string_view xpg_name);
    void addAliasLcName(std::string_view name, std::string_view alias);
    void addRegionAliasLcName(std::string_view name, std::string_view alias);
    void addL10nFlag(std::string_view name, std::string_view value);
    void addEncodingName(std::string_view name, std::string_view jvm_name, std::string_view compat);
    void addEncodingAlias(std::string_view name, std::string_view alias);

private:
    void report(int status, std::string_view source, std::string_view key, std::string_view value);

    lc_tables & tables_;
    event_log & log_;
};

} // namespace fl::i18n::lcmgmt
