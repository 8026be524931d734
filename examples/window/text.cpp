#include "text.hpp"

#include <fl/filesystem/path.hpp>
#include <fl/i18n/ustring.hpp>

#include <algorithm>
#include <exception>
#include <string_view>

using namespace fl::i18n;

namespace {

// The files resources/tally/<locale>/window.xml.
CatalogID const catalog_id("tally:window");

/// A text that is missing must not cost the user the program: its key shows what is missing.
std::wstring text_in(QzLocale const & locale, std::string const & key,
                     std::vector<MessageCatalog::Argument> const & args) {
    try {
        auto const catalog = MessageCatalog::GetMessageCatalog(catalog_id, locale);
        return to_wstring(MessageCatalog::GetFormattedMessage(catalog->text(key), args));
    } catch (std::exception const &) {
        return {key.begin(), key.end()};
    }
}

} // namespace

void open_catalogs() {
    static char const in_this_program = 0;
    MessageCatalog::MessageCatalogInit(fl::filesystem::get_install_path(&in_this_program).string());
}

std::size_t current_language() {
    std::string const language = QzLocale::global().getLanguage(QzLocale::LcCategory::messages);
    auto const found = std::ranges::find_if(
        languages, [&](std::string_view locale) { return locale.substr(0, locale.find('_')) == language; });
    return found == languages.end() ? 0 : static_cast<std::size_t>(found - languages.begin());
}

std::wstring text(std::string const & key, std::vector<MessageCatalog::Argument> const & args) {
    return text_in(QzLocale::global(), key, args);
}

std::wstring language_name(std::size_t language) {
    return text_in(*QzLocale::createLocale(languages[language]), "LanguageName", {});
}

bool is_right_to_left() {
    return text("Direction") == L"right-to-left";
}
