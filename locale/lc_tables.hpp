#pragma once

#include "foundation/ascii.hpp"

#include <boost/unordered/unordered_flat_map.hpp>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace fl::i18n::lcmgmt {

/// The outcome of a table modification, as the event log shows it.
enum table_status : int {
    table_modified = 0,
    table_invalid_name = 1,  ///< a name holds characters that no locale or encoding name has, or is empty
    table_unknown_entry = 2, ///< there is no entry of that name
    table_fixed_entry = 3,   ///< the name is the classic locale's or its encoding's, which do not change
};

/// The data of one locale; the texts live until the tables are changed.
struct locale_data {
    std::string_view encoding;
    std::string_view xpg_name;
};

/// The data of one encoding; the texts live until the tables are changed.
struct encoding_data {
    std::string_view name; ///< the standard name in its own spelling
    std::string_view jvm_name;
    std::string_view compat;
};

/// The locale and encoding tables: the built-in ones under the changes that a locale database makes.
///
/// Locale names are compared as they are, encoding names without regard to ASCII letter case. An alias leads
/// to an entry in one step, and one of the database goes before a built-in entry of its name. Look-ups return
/// nothing or an empty text for an unknown name. Each modification returns a `table_status`; a failed one
/// changes nothing. Not synchronised.
class lc_tables {
public:
    /// Returns the data of a locale by its own name, without following aliases.
    std::optional<locale_data> find_locale(std::string_view name) const;

    /// Returns an option that the database gave a locale, such as "disable_l10n".
    std::string_view find_locale_option(std::string_view name, std::string_view option) const;

    /// Returns the locale name that an alias, or a region alias, stands for.
    std::string_view find_locale_alias(std::string_view alias) const;
    std::string_view find_region_alias(std::string_view alias) const;

    /// Returns the locale name under which there is data: what the name is an alias of, the name itself, or
    /// the same of the name without its codeset.
    std::string resolve_locale(std::string_view name) const;

    /// Returns the data of an encoding by its standard name, without following aliases.
    std::optional<encoding_data> find_encoding(std::string_view name) const;

    /// Returns the standard name that an alias stands for.
    std::string_view find_encoding_alias(std::string_view alias) const;

    /// Returns the data of an encoding by an alias or its standard name.
    std::optional<encoding_data> resolve_encoding(std::string_view name) const;

    int modifyLcEntry(std::string_view name, std::string_view encoding, std::string_view xpg_name);
    int modifyDefEncoding(std::string_view name, std::string_view encoding);
    int modifyXpgName(std::string_view name, std::string_view xpg_name);
    int modifyLcAliasName(std::string_view name, std::string_view alias);
    int modifyRegionAliasName(std::string_view name, std::string_view alias);
    int modifyLcOptData(std::string_view name, std::string_view option, std::string_view value);
    int modifyEncodingDataEntry(std::string_view name, std::string_view jvm_name, std::string_view compat);
    int modifyJvmName(std::string_view name, std::string_view jvm_name);
    int modifyCompatEncoding(std::string_view name, std::string_view compat);
    int modifyEncodingAlias(std::string_view name, std::string_view alias);

private:
    struct locale_entry {
        std::string encoding;
        std::string xpg_name;
        std::map<std::string, std::string, std::less<>> options;
    };
    struct encoding_entry {
        std::string name;
        std::string jvm_name;
        std::string compat;
    };
    template <class Value>
    using locale_map =
        boost::unordered_flat_map<std::string, Value, ascii::hash_ignoring_case, std::equal_to<>>;
    template <class Value>
    using encoding_map =
        boost::unordered_flat_map<std::string, Value, ascii::hash_ignoring_case, ascii::same_ignoring_case>;

    /// Returns the entry to change, copied from the built-in tables when need be; null for an unknown name.
    locale_entry * own_locale(std::string_view name);
    encoding_entry * own_encoding(std::string_view name);

    // What the database added or changed.
    locale_map<locale_entry> locales_;
    encoding_map<encoding_entry> encodings_;
    locale_map<std::string> locale_aliases_;
    locale_map<std::string> region_aliases_;
    encoding_map<std::string> encoding_aliases_;
};

/// Tells whether a name may be handed to the conversion library: printable ASCII without "/", "\" and "..",
/// not empty. The library reads nothing outside its data for such a name.
bool is_safe_encoding_name(std::string_view name);

} // namespace fl::i18n::lcmgmt
