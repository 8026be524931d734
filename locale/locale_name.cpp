#include "locale/locale_name.hpp"

#include "foundation/ascii.hpp"

#include <algorithm>
#include <array>
#include <utility>

namespace fl::i18n::lcmgmt {

namespace {

constexpr std::size_t longest_locale_name = 157;
constexpr std::string_view subtag_separators = "_-";

bool all_letters(std::string_view text) {
    return std::all_of(text.begin(), text.end(), ascii::is_letter<char>);
}

bool all_digits(std::string_view text) {
    return std::all_of(text.begin(), text.end(), ascii::is_digit<char>);
}

bool is_language(std::string_view tag) {
    return tag.size() >= 2 && tag.size() <= 8 && all_letters(tag);
}

bool is_script(std::string_view tag) {
    return tag.size() == 4 && all_letters(tag);
}

bool is_territory(std::string_view tag) {
    return (tag.size() == 2 && all_letters(tag)) || (tag.size() == 3 && all_digits(tag));
}

/// Takes the text up to the next separator off the front of `rest`.
std::string_view take_subtag(std::string_view & rest) {
    std::size_t const end = rest.find_first_of(subtag_separators);
    std::string_view const tag = rest.substr(0, end);
    rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    return tag;
}

/// The scripts that POSIX names write as modifiers.
std::string_view script_of_modifier(std::string_view modifier) {
    constexpr std::array<std::pair<std::string_view, std::string_view>, 3> scripts{
        {{"latin", "Latn"}, {"cyrillic", "Cyrl"}, {"devanagari", "Deva"}}};
    auto const found =
        std::find_if(scripts.begin(), scripts.end(), [&](auto const & row) { return row.first == modifier; });
    return found == scripts.end() ? std::string_view() : found->second;
}

std::string capitalised(std::string_view tag) {
    std::string result = ascii::to_lower(tag);
    result.front() = ascii::to_upper(result.front());
    return result;
}

} // namespace

bool is_valid_locale_name(std::string_view name) {
    constexpr std::string_view marks = "_-.@=;";
    return name.size() <= longest_locale_name && name.find("..") == std::string_view::npos &&
           std::all_of(name.begin(), name.end(), [&](char c) {
               return ascii::is_letter(c) || ascii::is_digit(c) || marks.find(c) != std::string_view::npos;
           });
}

locale_name_parts split_locale_name(std::string_view name) {
    locale_name_parts parts;
    if (std::size_t const at = name.find('@'); at != std::string_view::npos) {
        parts.modifier = name.substr(at + 1);
        name = name.substr(0, at);
    }
    if (std::size_t const dot = name.find('.'); dot != std::string_view::npos) {
        parts.codeset = name.substr(dot + 1);
        name = name.substr(0, dot);
    }
    parts.language = take_subtag(name);
    std::string_view tag = take_subtag(name);
    if (is_script(tag)) {
        parts.script = tag;
        tag = take_subtag(name);
    }
    if (is_territory(tag)) {
        parts.territory = tag;
    }
    return parts;
}

std::string without_codeset(std::string_view name) {
    std::size_t const at = name.find('@');
    std::size_t const dot = name.substr(0, at).find('.');
    std::string result(name.substr(0, std::min(at, dot)));
    if (at != std::string_view::npos) {
        result += name.substr(at);
    }
    return result;
}

std::optional<system_locale_name> read_system_locale_name(std::string_view system_name) {
    if (!is_valid_locale_name(system_name)) {
        return std::nullopt;
    }
    locale_name_parts const parts = split_locale_name(system_name);
    if (parts.language == "C" || parts.language == "POSIX") {
        return system_locale_name{"en_US_POSIX", std::string(parts.codeset)};
    }
    if (!is_language(parts.language)) {
        return std::nullopt;
    }
    std::string name = ascii::to_lower(parts.language);
    std::string_view const script = parts.script.empty() ? script_of_modifier(parts.modifier) : parts.script;
    if (!script.empty()) {
        name += '_' + capitalised(script);
    }
    if (!parts.territory.empty()) {
        name += '_' + ascii::to_upper(parts.territory);
    }
    return system_locale_name{std::move(name), std::string(parts.codeset)};
}

} // namespace fl::i18n::lcmgmt
