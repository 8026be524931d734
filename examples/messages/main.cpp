// Prints the messages of a catalog in the locales named, or in the system's: messages [LOCALE]...
// Then it shows what becomes of messages that are not there, and how to find out why.

#include <fl/filesystem/path.hpp>
#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/fallback_locales.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/lookup_report.hpp>
#include <fl/i18n/message_catalog.hpp>
#include <fl/i18n/ustring.hpp>

#include <cstdint>
#include <iostream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

using namespace fl::i18n;

namespace {

// The file resources/photos/<locale>/import.xml.
CatalogID const catalog_id("photos:import");

/// Writes a line in the encoding that the terminal understands.
void print(ustring const & line) {
    static auto const to_terminal = create_codecvt_ustring_to_terminal_output();
    std::cout << to_string(line, *to_terminal) << '\n';
}

/// Looks up a message and fills its holes.
ustring message(QzLocale const & locale, std::string const & key,
                std::vector<MessageCatalog::Argument> const & arguments) {
    auto const catalog = MessageCatalog::GetMessageCatalog(catalog_id, locale);
    return MessageCatalog::GetFormattedMessage(catalog->text(key), arguments);
}

void print_messages(QzLocale const & locale) {
    ustring chain;
    for (ustring const & name : get_fallback_locales(locale)) {
        chain += (chain.empty() ? u"" : u", ") + name;
    }
    print(u"\n== Catalogs are searched in: " + chain);

    // A message without holes comes ready from one call.
    print(MessageCatalog::get_message(MessageID(catalog_id, "Title"), locale));

    // Arguments are integers, doubles, UTF-8 or UTF-16 text. They fill the holes by number, so that each
    // language can have them in the order that it needs.
    for (std::int64_t const count : {0, 1, 2, 1250}) {
        print(message(locale, "Found", {count, u"EOS 80D"}));
    }
    print(message(locale, "Unreadable", {u"notes.txt"}));
    print(message(locale, "Progress", {0.42}));
    print(message(locale, "Done", {std::int64_t(1249), std::int64_t(1250)}));
}

/// A double in a hole without a format of its own is written as the caller chooses.
void print_double_formats(QzLocale const & locale) {
    constexpr std::pair<char16_t const *, numeric_format> formats[] = {
        {u"simple_short", numeric_format::simple_short},
        {u"simple_long", numeric_format::simple_long},
        {u"scientific_short", numeric_format::scientific_short},
        {u"scientific_long", numeric_format::scientific_long},
        {u"shortest_short", numeric_format::shortest_short},
        {u"shortest_long", numeric_format::shortest_long},
        {u"engineering_short", numeric_format::engineering_short},
        {u"engineering_long", numeric_format::engineering_long},
    };
    print(u"\n== Formats of doubles");
    ustring const pattern = MessageCatalog::GetMessageCatalog(catalog_id, locale)->text("Average");
    for (auto const & [name, format] : formats) {
        print(MessageCatalog::GetFormattedMessage(pattern, {12345.6789}, format) + u"  (" + name + u")");
    }
}

/// Does what fails with an exception of the class named.
template <class Failure, class Attempt>
void print_failure(ustring const & name, Attempt const & attempt) {
    try {
        attempt();
    } catch (Failure const & failure) {
        print(name + u": " + utf8_to_ustring(failure.what()));
    }
}

void print_failures(QzLocale const & locale) {
    print(u"\n== What goes wrong");
    // The catalog has no such key.
    print_failure<MessageCatalog::MessageNotFound>(u"MessageNotFound",
                                                   [&] { message(locale, "Subtitle", {}); });
    // The catalog has no file, or one that is malformed. It can be opened all the same, but gives no text.
    print_failure<MessageCatalog::MessageCatalogLoadFailed>(u"MessageCatalogLoadFailed", [&] {
        MessageCatalog::GetMessageCatalog(CatalogID("photos:export"), locale)->text("Title");
    });
    // Arguments and holes must agree in number, and arguments must fit the formats of their holes.
    print_failure<MessageCatalog::IncorrectHoleCount>(u"IncorrectHoleCount",
                                                      [&] { message(locale, "Done", {std::int64_t(3)}); });
    print_failure<MessageCatalog::MessageFormatIncorrect>(u"MessageFormatIncorrect",
                                                          [&] { message(locale, "Progress", {u"half"}); });
    // A message identifier has at least three tokens.
    print_failure<MessageID::badMessageIDException>(u"badMessageIDException",
                                                    [] { MessageID("photos:Title"); });
}

/// Reports a lookup step by step; it never throws because a message cannot be had.
void print_explanation(MessageID const & id, QzLocale const & locale) {
    LookupReport const report = explain_lookup(id, locale, {}, std::nullopt);
    print(utf8_to_ustring("\n== How " + id.getCompositeID() + " was looked up"));
    for (LookupReport::Candidate const & file : report.candidates) {
        ustring const below_root = file.path.substr(report.roots.front().size() + 1);
        print((file.exists ? u"found:   " : u"missing: ") + below_root);
    }
    print(utf8_to_ustring(report.step == LookupStep::done ? "text: " : "error: " + report.error) +
          report.text);
}

void run(std::vector<std::string> const & locale_names) {
    // Without this call the library would search its own installation's directory. The catalogs of a program
    // lie in its own: below "resources" in the directory above the program's "bin".
    static char const in_this_program = 0;
    MessageCatalog::MessageCatalogInit(fl::filesystem::get_install_path(&in_this_program).string());

    for (std::string const & name : locale_names) {
        print_messages(*QzLocale::createLocale(name));
    }
    if (locale_names.empty()) {
        print_messages(QzLocale::global());
    }
    auto const german = QzLocale::createLocale("de_CH");
    print_double_formats(*german);
    print_failures(*german);
    print_explanation(MessageID(catalog_id, "Title"), *QzLocale::createLocale("pt_BR"));
    print_explanation(MessageID("photos:share:Title"), *german);
}

} // namespace

int main(int argc, char ** argv) {
    try {
        run({argv + 1, argv + argc});
        return 0;
    } catch (std::exception const & failure) {
        std::cerr << "messages: " << failure.what() << '\n';
        return 1;
    }
}
