#include <fl/i18n/locale.hpp>
#include <fl/i18n/message_catalog.hpp>
#include <fl/i18n/ustring.hpp>
#include <iostream>

using namespace fl::i18n;

/// Usage: consumer DIRECTORY, which has the directory "resources".
int main(int, char ** arguments) {
    MessageCatalog::MessageCatalogInit(utf8_to_ustring(arguments[1]));
    auto const catalog =
        MessageCatalog::GetMessageCatalog(CatalogID("app:ui"), *QzLocale::createLocale("ja_JP"));
    std::cout << ustring_to_utf8(MessageCatalog::GetFormattedMessage(catalog->text("Opened"),
                                                                     {std::int64_t(3), std::int64_t(5)}))
              << '\n';
    try {
        catalog->text("Closed");
    } catch (MessageCatalog::MessageNotFound const & failure) {
        std::cout << "not found: " << failure.what() << '\n';
    }
}
