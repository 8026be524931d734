#pragma once

#include <span>
#include <string_view>

namespace fl::i18n::lcmgmt {

/// Describes one built-in locale.
struct builtin_locale {
    std::string_view name;     ///< locale name, "sr_Latn_RS"
    std::string_view encoding; ///< default encoding, a standard name of builtin_encodings()
    std::string_view xpg_name; ///< name in the spelling of POSIX systems, "sr_RS.UTF-8@latin"
};

/// Describes another spelling of a locale or encoding name.
struct builtin_alias {
    std::string_view alias;
    std::string_view name; ///< name of an entry of the table that the alias belongs to, never another alias
};

/// Describes one built-in encoding. All names are ASCII.
struct builtin_encoding {
    std::string_view name;     ///< standard name
    std::string_view jvm_name; ///< name in the Java virtual machine, empty where it has none
    std::string_view compat;   ///< encoding to open where ICU does not know the name, empty where none
};

// The tables live for the whole process and are constant-initialised. Within each of the two families a name
// or an alias occurs once, also when ASCII letter case is ignored.

/// Returns the built-in locales, sorted by name in byte order.
std::span<builtin_locale const> builtin_locales();

/// Returns the other spellings of built-in locale names, grouped by meaning.
std::span<builtin_alias const> builtin_locale_aliases();

/// Returns the built-in encodings, sorted by name in byte order.
std::span<builtin_encoding const> builtin_encodings();

/// Returns the other spellings of built-in encoding names, grouped by encoding.
std::span<builtin_alias const> builtin_encoding_aliases();

/// Return the row of a name or an alias; null when there is none. The case of letters counts in locale names.
builtin_locale const * find_builtin_locale(std::string_view name);
builtin_alias const * find_builtin_locale_alias(std::string_view alias);
builtin_encoding const * find_builtin_encoding(std::string_view name);
builtin_alias const * find_builtin_encoding_alias(std::string_view alias);

} // namespace fl::i18n::lcmgmt
