#include "locale/lc_data.hpp"

#include <string>

namespace fl::i18n::lcmgmt {

namespace {

bool is_given_and_different(std::string_view given, std::string_view held) {
    return !given.empty() && given != held;
}

} // namespace

void LcData::addLcName(std::string_view name, std::string_view encoding, std::string_view xpg_name) {
    auto const known = tables_.find_locale(name);
    if (!known) {
        report(tables_.modifyLcEntry(name, encoding, xpg_name), "LcData::addLcName::modifyLcEntry", name,
               encoding);
        return;
    }
    bool const new_encoding = is_given_and_different(encoding, known->encoding);
    bool const new_xpg_name = is_given_and_different(xpg_name, known->xpg_name);
    if (new_encoding) {
        report(tables_.modifyDefEncoding(name, encoding), "LcData::addLcName::modifyDefEncoding", name,
               encoding);
    }
    if (new_xpg_name) {
        report(tables_.modifyXpgName(name, xpg_name), "LcData::addLcName::modifyXpgName", name, xpg_name);
    }
}

void LcData::addAliasLcName(std::string_view name, std::string_view alias) {
    if (tables_.find_locale_alias(alias) != name) {
        report(tables_.modifyLcAliasName(name, alias), "LcData::addAliasLcName::modifyLcAliasName", name,
               alias);
    }
}

void LcData::addRegionAliasLcName(std::string_view name, std::string_view alias) {
    if (tables_.find_region_alias(alias) != name) {
        // The modification is reported under the alias operation's name deliberately.
        report(tables_.modifyRegionAliasName(name, alias), "LcData::addRegionAliasLcName::modifyLcAliasName",
               name, alias);
    }
}

void LcData::addL10nFlag(std::string_view name, std::string_view value) {
    constexpr char option[] = "disable_l10n";
    if (tables_.find_locale_option(name, option) != value) {
        report(tables_.modifyLcOptData(name, option, value), "LcData::addL10nFlag::modifyLcOptData", name,
               value);
    }
}

void LcData::addEncodingName(std::string_view name, std::string_view jvm_name, std::string_view compat) {
    auto const known = tables_.find_encoding(name);
    if (!known) {
        report(tables_.modifyEncodingDataEntry(name, jvm_name, compat),
               "LcData::addEncodingName::modifyEncodingDataEntry", name, jvm_name);
        return;
    }
    bool const new_jvm_name = is_given_and_different(jvm_name, known->jvm_name);
    bool const new_compat = is_given_and_different(compat, known->compat);
    if (new_jvm_name) {
        report(tables_.modifyJvmName(name, jvm_name), "LcData::addEncodingName::modifyJvmName", name,
               jvm_name);
    }
    if (new_compat) {
        report(tables_.modifyCompatEncoding(name, compat), "LcData::addEncodingName::modifyCompatEncoding",
               name, compat);
    }
}

void LcData::addEncodingAlias(std::string_view name, std::string_view alias) {
    if (tables_.find_encoding_alias(alias) != name) {
        report(tables_.modifyEncodingAlias(name, alias), "LcData::addEncodingAlias::modifyEncodingAlias",
               name, alias);
    }
}

void LcData::report(int status, std::string_view source, std::string_view key, std::string_view value) {
    if (status != table_modified) {
        log_.add_error(source, std::string(key).append(1, ':').append(value), status);
    }
}

} // namespace fl::i18n::lcmgmt
