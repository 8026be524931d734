#include "locale/lc_tables.hpp"

#include "foundation/ascii.hpp"
#include "locale/builtin_tables.hpp"
#include "locale/classic_name.hpp"
#include "locale/locale_name.hpp"

#include <algorithm>

namespace fl::i18n::lcmgmt {

namespace {

std::string_view name_of(builtin_alias const * row) {
    return row != nullptr ? row->name : std::string_view();
}

template <class Map>
std::string_view value_of(Map const & map, std::string_view key) {
    auto const found = map.find(key);
    return found != map.end() ? std::string_view(found->second) : std::string_view();
}

bool is_usable_locale_name(std::string_view name) {
    return !name.empty() && is_valid_locale_name(name);
}

} // namespace

bool is_safe_encoding_name(std::string_view name) {
    return !name.empty() && name.find("..") == std::string_view::npos &&
           std::all_of(name.begin(), name.end(),
                       [](char c) { return c >= ' ' && c <= '~' && c != '/' && c != '\\'; });
}

std::optional<locale_data> lc_tables::find_locale(std::string_view name) const {
    if (auto const own = locales_.find(name); own != locales_.end()) {
        return locale_data{own->second.encoding, own->second.xpg_name};
    }
    if (builtin_locale const * const row = find_builtin_locale(name)) {
        return locale_data{row->encoding, row->xpg_name};
    }
    return std::nullopt;
}

std::string_view lc_tables::find_locale_option(std::string_view name, std::string_view option) const {
    auto const own = locales_.find(name);
    return own != locales_.end() ? value_of(own->second.options, option) : std::string_view();
}

std::string_view lc_tables::find_locale_alias(std::string_view alias) const {
    std::string_view const own = value_of(locale_aliases_, alias);
    return own.empty() ? name_of(find_builtin_locale_alias(alias)) : own;
}

std::string_view lc_tables::find_region_alias(std::string_view alias) const {
    return value_of(region_aliases_, alias);
}

std::string lc_tables::resolve_locale(std::string_view name) const {
    if (std::string_view const target = find_locale_alias(name); !target.empty()) {
        return std::string(target);
    }
    if (find_locale(name)) {
        return std::string(name);
    }
    if (std::string_view const target = find_region_alias(name); !target.empty()) {
        return std::string(target);
    }
    std::string const plain = without_codeset(name);
    return plain.size() < name.size() ? resolve_locale(plain) : std::string();
}

std::optional<encoding_data> lc_tables::find_encoding(std::string_view name) const {
    if (auto const own = encodings_.find(name); own != encodings_.end()) {
        return encoding_data{own->second.name, own->second.jvm_name, own->second.compat};
    }
    if (builtin_encoding const * const row = find_builtin_encoding(name)) {
        return encoding_data{row->name, row->jvm_name, row->compat};
    }
    return std::nullopt;
}

std::string_view lc_tables::find_encoding_alias(std::string_view alias) const {
    std::string_view const own = value_of(encoding_aliases_, alias);
    return own.empty() ? name_of(find_builtin_encoding_alias(alias)) : own;
}

std::optional<encoding_data> lc_tables::resolve_encoding(std::string_view name) const {
    std::string_view const target = find_encoding_alias(name);
    return find_encoding(target.empty() ? name : target);
}

lc_tables::locale_entry * lc_tables::own_locale(std::string_view name) {
    auto const data = find_locale(name);
    if (!data) {
        return nullptr;
    }
    locale_entry copy{std::string(data->encoding), std::string(data->xpg_name), {}};
    return &locales_.try_emplace(std::string(name), std::move(copy)).first->second;
}

lc_tables::encoding_entry * lc_tables::own_encoding(std::string_view name) {
    auto const data = find_encoding(name);
    if (!data) {
        return nullptr;
    }
    encoding_entry copy{std::string(data->name), std::string(data->jvm_name), std::string(data->compat)};
    return &encodings_.try_emplace(std::string(name), std::move(copy)).first->second;
}

int lc_tables::modifyLcEntry(std::string_view name, std::string_view encoding, std::string_view xpg_name) {
    if (!is_usable_locale_name(name) || (!encoding.empty() && !is_safe_encoding_name(encoding))) {
        return table_invalid_name;
    }
    locales_.insert_or_assign(
        std::string(name),
        locale_entry{std::string(encoding.empty() ? classic_encoding : encoding), std::string(xpg_name), {}});
    return table_modified;
}

int lc_tables::modifyDefEncoding(std::string_view name, std::string_view encoding) {
    if (!is_safe_encoding_name(encoding)) {
        return table_invalid_name;
    }
    if (name == classic_name) {
        return table_fixed_entry;
    }
    locale_entry * const entry = own_locale(name);
    if (entry == nullptr) {
        return table_unknown_entry;
    }
    entry->encoding = encoding;
    return table_modified;
}

int lc_tables::modifyXpgName(std::string_view name, std::string_view xpg_name) {
    if (name == classic_name) {
        return table_fixed_entry;
    }
    locale_entry * const entry = own_locale(name);
    if (entry == nullptr) {
        return table_unknown_entry;
    }
    entry->xpg_name = xpg_name;
    return table_modified;
}

int lc_tables::modifyLcAliasName(std::string_view name, std::string_view alias) {
    if (!is_usable_locale_name(alias)) {
        return table_invalid_name;
    }
    if (alias == classic_name) {
        return table_fixed_entry;
    }
    if (!find_locale(name)) {
        return table_unknown_entry;
    }
    locale_aliases_.insert_or_assign(std::string(alias), std::string(name));
    return table_modified;
}

int lc_tables::modifyRegionAliasName(std::string_view name, std::string_view alias) {
    if (!is_usable_locale_name(alias)) {
        return table_invalid_name;
    }
    if (!find_locale(name)) {
        return table_unknown_entry;
    }
    region_aliases_.insert_or_assign(std::string(alias), std::string(name));
    return table_modified;
}

int lc_tables::modifyLcOptData(std::string_view name, std::string_view option, std::string_view value) {
    locale_entry * const entry = own_locale(name);
    if (entry == nullptr) {
        return table_unknown_entry;
    }
    entry->options.insert_or_assign(std::string(option), value);
    return table_modified;
}

int lc_tables::modifyEncodingDataEntry(std::string_view name, std::string_view jvm_name,
                                       std::string_view compat) {
    if (!is_safe_encoding_name(name) || (!compat.empty() && !is_safe_encoding_name(compat))) {
        return table_invalid_name;
    }
    encodings_.insert_or_assign(
        std::string(name), encoding_entry{std::string(name), std::string(jvm_name), std::string(compat)});
    return table_modified;
}

int lc_tables::modifyJvmName(std::string_view name, std::string_view jvm_name) {
    encoding_entry * const entry = own_encoding(name);
    if (entry == nullptr) {
        return table_unknown_entry;
    }
    entry->jvm_name = jvm_name;
    return table_modified;
}

int lc_tables::modifyCompatEncoding(std::string_view name, std::string_view compat) {
    if (!is_safe_encoding_name(compat)) {
        return table_invalid_name;
    }
    encoding_entry * const entry = own_encoding(name);
    if (entry == nullptr) {
        return table_unknown_entry;
    }
    entry->compat = compat;
    return table_modified;
}

int lc_tables::modifyEncodingAlias(std::string_view name, std::string_view alias) {
    if (!is_safe_encoding_name(alias)) {
        return table_invalid_name;
    }
    if (ascii::equal_ignoring_case(alias, classic_encoding)) {
        return table_fixed_entry;
    }
    if (!find_encoding(name)) {
        return table_unknown_entry;
    }
    encoding_aliases_.insert_or_assign(std::string(alias), std::string(name));
    return table_modified;
}

} // namespace fl::i18n::lcmgmt
