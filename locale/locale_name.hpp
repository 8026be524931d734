#pragma once

#include <optional>
#include <string>
#include <string_view>

/// What can be told of a locale name by its spelling alone.
namespace fl::i18n::lcmgmt {

/// Tells whether a name may be used as a locale name: only ASCII letters, digits and "_-.@=;", at most 157
/// characters, no "..". Such a name is safe in a file name and in front of ICU. The empty name is one.
bool is_valid_locale_name(std::string_view name);

/// The parts of a name "language_Script_TERRITORY.codeset@modifier"; absent ones are empty.
struct locale_name_parts {
    std::string_view language;
    std::string_view script;
    std::string_view territory;
    std::string_view codeset;
    std::string_view modifier;
};

/// Splits a locale name; "-" separates like "_". The parts point into `name`.
locale_name_parts split_locale_name(std::string_view name);

/// Returns the name without its codeset: "sr_RS.UTF-8@latin" gives "sr_RS@latin".
std::string without_codeset(std::string_view name);

/// A locale as an operating system names it, in this library's terms.
struct system_locale_name {
    std::string name;
    std::string codeset; ///< as the system spells it; empty when the name tells none
};

/// Reads the system's own name of a locale: "ja-JP", "zh-Hans-CN", "de-DE_phoneb", "ja_JP.eucJP",
/// "sr_RS@latin", "C". Nothing for an empty name or one that is no locale name.
std::optional<system_locale_name> read_system_locale_name(std::string_view system_name);

} // namespace fl::i18n::lcmgmt
