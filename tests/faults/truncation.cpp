#include "tests/faults/sweep.hpp"

#include "locale/qz_locale_ctx.hpp"

#include <algorithm>
#include <fl/i18n/message_catalog.hpp>
#include <functional>
#include <utility>

namespace fl::test {

using namespace i18n;

namespace {

constexpr char comment[] = " a remark in which a byte may be any character ";
constexpr char raw_text[] = "raw text";

std::string model_catalog() {
    return std::string("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<rsccat version=\"1.0\" locale=\"ja\">\n "
                       " <message>\n"
                       "    <entry key=\"One\">The first {0} \\u00e9</entry>\n    <!--") +
           comment + "-->\n    <entry key=\"Two\"><![CDATA[" + raw_text +
           "]]></entry>\n    <entry key='Three'>\xe3\x81\x82 &amp; &#x3042;</entry>\n  "
           "</message>\n</rsccat>\n";
}

/// Returns the message texts in the order of their keys that a whole catalog has.
std::string model_texts(std::string const & raw) {
    return "The first {0} \u00e9|\u3042 & \u3042|" + raw + '|';
}

constexpr char malformed[] = "not loaded";

std::string load(fault_files const & files, std::string const & bytes) {
    files.write("cut/resources/app/ja/model.xml", bytes);
    MessageCatalog::FlushCatalogFromCache(CatalogID("app:model"));
    auto const catalog = MessageCatalog::GetMessageCatalog(CatalogID("app:model"));
    try {
        std::string texts;
        for (char const * const key : {"One", "Three", "Two"}) {
            texts += ustring_to_utf8(catalog->text(key)) + '|';
        }
        return texts;
    } catch (MessageCatalog::MessageCatalogLoadFailed const &) {
        return catalog->keys().empty() ? malformed : "not loaded but with keys";
    } catch (std::exception const & error) {
        return error.what();
    }
}

/// Tells whether a position lies in a part of a text where any character may stand.
bool is_inside(std::string const & text, std::string_view part, std::size_t position) {
    std::size_t const begin = text.find(part);
    return position >= begin && position < begin + part.size();
}

std::string model_of_changed(std::string text, std::size_t position, char byte) {
    if (text[position] == byte) {
        return model_texts(raw_text);
    }
    if (byte == '<' && is_inside(text, comment, position)) {
        return model_texts(raw_text);
    }
    if (byte == '<' && is_inside(text, raw_text, position)) {
        std::string raw = raw_text;
        raw[position - text.find(raw_text)] = byte;
        return model_texts(raw);
    }
    return malformed;
}

constexpr char database_comment[] = " a remark of any characters ";

std::string model_database() {
    return std::string("<?xml version='1.0' encoding='utf-8'?>\n<lcdata>\n <locale name='q1_AA' "
                       "encoding='KOI8-R'/>\n <!--") +
           database_comment +
           "-->\n <locale name='q2_AA' encoding='EUC-JP' xpg_name='q2'><alias name='q3'/></locale>\n"
           " <locale name='q4_AA' encoding='Big5'/>\n</lcdata>\n";
}

struct model_locale {
    std::string_view name;
    std::string_view element;
    std::string_view encoding;
};

constexpr model_locale model_locales[] = {
    {"q1_AA", "<locale name='q1_AA' encoding='KOI8-R'/>", "KOI8-R"},
    {"q2_AA", "<locale name='q2_AA' encoding='EUC-JP' xpg_name='q2'>", "EUC-JP"},
    {"q3", "<alias name='q3'/>", "EUC-JP"},
    {"q4_AA", "<locale name='q4_AA' encoding='Big5'/>", "Big5"},
};

/// Starts up with a database and returns the status and the encodings of the locales.
std::string start_up(fault_files const & files, std::string const & bytes) {
    files.write("cut.xml", bytes);
    lcmgmt::startup_inputs inputs;
    inputs.environment["QZLOCALE_LCDATA_PATH"] = files.path("");
    inputs.environment["QZLOCALE_LCDATA_FILENAME"] = u"cut.xml";
    lcmgmt::QzLocaleCtx const context(std::move(inputs));
    auto const events = context.events();
    bool const is_malformed =
        std::find(events.begin(), events.end(),
                  "QzLocaleCtx::initLocaleMgmt::parseLcData - invalid XML locale database.") != events.end();
    std::string text = std::to_string(context.status()) + (is_malformed ? " malformed" : "");
    for (auto const & l : model_locales) {
        text += ' ' + context.encoding({std::string(l.name), {}});
    }
    return text;
}

/// What stands before the first bad byte is applied.
std::string model_of_database(std::string const & text, std::size_t good_bytes, bool is_whole) {
    std::string result = is_whole ? "0" : "1 malformed";
    for (auto const & l : model_locales) {
        bool const is_applied = good_bytes >= text.find(l.element) + l.element.size();
        result += ' ' + std::string(is_applied ? l.encoding : "UTF-8");
    }
    return result;
}

class cutter {
public:
    cutter(tally & result, sweep_options const & options)
        : result_(result)
        , options_(options) {}

    void cut(char const * what, std::string const & text,
             std::function<std::string(std::string const &)> const & load_text,
             std::function<std::string(std::size_t)> const & model_of_cut,
             std::function<std::string(std::size_t, char)> const & model_of_change) {
        for (std::size_t i = 0; i <= text.size(); ++i) {
            check(std::string(what) + " cut at " + std::to_string(i), text.substr(0, i), load_text,
                  model_of_cut(i));
            for (char const byte : {'<', '\0', '\xff'}) {
                if (i < text.size()) {
                    std::string changed = text;
                    changed[i] = byte;
                    check(std::string(what) + " with byte " + std::to_string(i) + " as " +
                              std::to_string(static_cast<unsigned char>(byte)),
                          changed, load_text, model_of_change(i, byte));
                }
            }
        }
    }

private:
    void check(std::string const & point, std::string const & text,
               std::function<std::string(std::string const &)> const & load_text,
               std::string const & expected) {
        if (number_++ % options_.stride != 0) {
            return;
        }
        ++result_.points;
        std::string const found = load_text(text);
        if (found != expected) {
            result_.fail(point + difference(expected, found));
        }
    }

    tally & result_;
    sweep_options const & options_;
    std::uint64_t number_ = 0;
};

} // namespace

tally sweep_truncations(fault_files const & files, sweep_options const & options) {
    tally result{"truncations"};
    cutter c(result, options);
    std::string const catalog = model_catalog();
    files.write("cut/resources/app/ja/model.xml", catalog);
    renew_process_state(files);
    MessageCatalog::MessageCatalogInit(files.path("cut"));
    MessageCatalog::GetMessageCatalog(CatalogID("app:other"));
    std::string const before = process_state();
    c.cut(
        "catalog", catalog, [&](std::string const & bytes) { return load(files, bytes); },
        [&](std::size_t size) { return size + 1 >= catalog.size() ? model_texts(raw_text) : malformed; },
        [&](std::size_t position, char byte) { return model_of_changed(catalog, position, byte); });
    MessageCatalog::FlushCatalogFromCache(CatalogID("app:model"));
    if (process_state() != before) {
        result.fail("the state beside the catalog" + difference(before, process_state()));
    }
    std::string const database = model_database();
    c.cut(
        "database", database, [&](std::string const & bytes) { return start_up(files, bytes); },
        [&](std::size_t size) { return model_of_database(database, size, size + 1 >= database.size()); },
        [&](std::size_t position, char byte) {
            bool const is_harmless = database[position] == byte ||
                                     (byte == '<' && is_inside(database, database_comment, position));
            return model_of_database(database, is_harmless ? database.size() : position, is_harmless);
        });
    return result;
}

} // namespace fl::test
