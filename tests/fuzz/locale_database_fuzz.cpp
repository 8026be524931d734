// Locale databases, of any bytes and written from them, against a reader that takes them whole into plain
// maps.

#include "foundation/ascii.hpp"
#include "locale/builtin_tables.hpp"
#include "locale/lcdb_parser.hpp"
#include "tests/fuzz/documents.hpp"
#include "tests/fuzz/fuzz.hpp"
#include "tests/fuzz/names.hpp"

#include <map>
#include <optional>
#include <set>
#include <string>

namespace {

using namespace fl;
using namespace fl::i18n::lcmgmt;
using fuzz::is_encoding_name;
using fuzz::is_locale_name;

/// The tables as plain maps.
class table_model {
public:
    struct locale_row {
        std::string encoding, xpg_name, disable;
        bool operator==(locale_row const &) const = default;
    };
    struct encoding_row {
        std::string name, jvm_name, compat;
        bool operator==(encoding_row const &) const = default;
    };

    std::size_t refused = 0; ///< changes that were

    std::optional<locale_row> find_locale(std::string const & name) const {
        if (auto const own = locales_.find(name); own != locales_.end()) {
            return own->second;
        }
        auto const * const row = find_builtin_locale(name);
        return row ? std::optional(locale_row{std::string(row->encoding), std::string(row->xpg_name), {}})
                   : std::nullopt;
    }
    std::optional<encoding_row> find_encoding(std::string const & name) const {
        if (auto const own = encodings_.find(lower(name)); own != encodings_.end()) {
            return own->second;
        }
        auto const * const row = find_builtin_encoding(name);
        return row ? std::optional(encoding_row{std::string(row->name), std::string(row->jvm_name),
                                                std::string(row->compat)})
                   : std::nullopt;
    }
    std::string find_alias(std::string const & name) const {
        auto const * const row = find_builtin_locale_alias(name);
        return aliases_.contains(name) ? aliases_.at(name) : row ? std::string(row->name) : std::string();
    }
    std::string find_region_alias(std::string const & name) const {
        return region_aliases_.contains(name) ? region_aliases_.at(name) : std::string();
    }
    std::string find_encoding_alias(std::string const & name) const {
        auto const * const row = find_builtin_encoding_alias(name);
        auto const own = encoding_aliases_.find(lower(name));
        return own != encoding_aliases_.end() ? own->second : row ? std::string(row->name) : std::string();
    }

    void add_locale(std::string const & name, std::string const & encoding, std::string const & xpg_name) {
        auto known = find_locale(name);
        if (!known) {
            change(is_locale_name(name) && (encoding.empty() || is_encoding_name(encoding)), [&] {
                locales_[name] = {encoding.empty() ? "UTF-8" : encoding, xpg_name, {}};
            });
            return;
        }
        if (!encoding.empty() && encoding != known->encoding) {
            change(is_encoding_name(encoding) && name != classic, [&] { known->encoding = encoding; });
        }
        if (!xpg_name.empty() && xpg_name != known->xpg_name) {
            change(name != classic, [&] { known->xpg_name = xpg_name; });
        }
        if (*known != find_locale(name)) {
            locales_[name] = *known;
        }
    }
    void add_alias(std::string const & name, std::string const & alias) {
        if (find_alias(alias) != name) {
            change(is_locale_name(alias) && alias != classic && find_locale(name),
                   [&] { aliases_[alias] = name; });
        }
    }
    void add_region_alias(std::string const & name, std::string const & alias) {
        if (find_region_alias(alias) != name) {
            change(is_locale_name(alias) && find_locale(name), [&] { region_aliases_[alias] = name; });
        }
    }
    void add_l10n(std::string const & name, std::string const & value) {
        auto known = find_locale(name);
        change(known.has_value(), [&] {
            known->disable = value;
            locales_[name] = *known;
        });
    }
    void add_encoding(std::string const & name, std::string const & jvm_name, std::string const & compat) {
        auto known = find_encoding(name);
        if (!known) {
            change(is_encoding_name(name) && (compat.empty() || is_encoding_name(compat)), [&] {
                encodings_[lower(name)] = {name, jvm_name, compat};
            });
            return;
        }
        if (!jvm_name.empty()) {
            known->jvm_name = jvm_name;
        }
        if (!compat.empty() && compat != known->compat) {
            change(is_encoding_name(compat), [&] { known->compat = compat; });
        }
        encodings_[lower(name)] = *known;
    }
    void add_encoding_alias(std::string const & name, std::string const & alias) {
        if (find_encoding_alias(alias) != name) {
            change(is_encoding_name(alias) && lower(alias) != "utf-8" && find_encoding(name),
                   [&] { encoding_aliases_[lower(alias)] = name; });
        }
    }

private:
    static constexpr char classic[] = "en_US_POSIX";

    static std::string lower(std::string const & text) { return ascii::to_lower(std::string_view(text)); }

    template <class Change>
    void change(bool is_allowed, Change apply) {
        is_allowed ? apply() : void(++refused);
    }

    std::map<std::string, locale_row> locales_;
    std::map<std::string, encoding_row> encodings_;
    std::map<std::string, std::string> aliases_, region_aliases_, encoding_aliases_;
};

/// Reads a database in one call of Expat.
class reference {
public:
    explicit reference(std::string_view document) {
        XML_SetUserData(parser_.get(), this);
        XML_SetXmlDeclHandler(
            parser_.get(), [](void * self, char const * version, char const * encoding, int) {
                if (version && ascii::to_lower(std::string_view(encoding ? encoding : "")) != "utf-8") {
                    static_cast<reference *>(self)->stop();
                }
            });
        XML_SetElementHandler(
            parser_.get(),
            [](void * self, char const * name, char const ** attributes) {
                static_cast<reference *>(self)->start(name, attributes);
            },
            [](void * self, char const * name) { static_cast<reference *>(self)->end(name); });
        if (XML_Parse(parser_.get(), document.data(), static_cast<int>(document.size()), true) !=
            XML_STATUS_OK) {
            result = {xml::read_status::malformed, static_cast<int>(XML_GetErrorCode(parser_.get())),
                      XML_GetCurrentLineNumber(parser_.get()), XML_GetCurrentColumnNumber(parser_.get())};
        }
    }

    table_model tables;
    std::set<std::string> values; ///< of all attributes
    xml::read_result result;

private:
    void start(std::string const & name, char const ** attributes) {
        static std::map<std::string, std::string> const parents{
            {"lcdata", ""},          {"locale", "lcdata"},
            {"alias", "locale"},     {"region_alias", "locale"},
            {"l10n", "locale"},      {"codeset", "lcdata"},
            {"encoding", "codeset"}, {"encoding_alias", "encoding"}};
        if (stopped_) {
            return;
        }
        std::map<std::string, std::string> given;
        for (; *attributes; attributes += 2) {
            given.emplace(attributes[0], attributes[1]);
            values.insert(attributes[1]);
        }
        std::string const parent = open_.empty() ? "" : open_.back();
        if (!parents.contains(name) || (parent != name && parents.at(name) != parent)) {
            return stop();
        }
        if (parent != name) {
            open_.push_back(name);
        }
        std::string const required = name == "l10n" ? given["disable"] : given["name"];
        if (name == "lcdata" || name == "codeset") {
            return;
        }
        if (name == "locale") {
            locale_ = required;
        } else if (name == "encoding") {
            encoding_ = required;
        }
        if (required.empty()) {
            return stop();
        }
        apply(name, required, given);
    }

    void apply(std::string const & name, std::string const & value,
               std::map<std::string, std::string> & given) {
        if (name == "locale") {
            tables.add_locale(value, given["encoding"], given["xpg_name"]);
        } else if (name == "alias") {
            tables.add_alias(locale_, value);
        } else if (name == "region_alias") {
            tables.add_region_alias(locale_, value);
        } else if (name == "l10n") {
            tables.add_l10n(locale_, value);
        } else if (name == "encoding") {
            tables.add_encoding(value, given["jvm_encoding"], given["compat"]);
        } else {
            tables.add_encoding_alias(encoding_, value);
        }
    }

    void end(std::string const & name) {
        if (!stopped_ && (open_.empty() || open_.back() != name)) {
            stop();
        } else if (!stopped_) {
            open_.pop_back();
        }
    }

    void stop() {
        stopped_ = true;
        XML_StopParser(parser_.get(), XML_FALSE);
    }

    fuzz::parser_handle parser_ = fuzz::make_parser("UTF-8");
    std::vector<std::string> open_;
    std::string locale_;
    std::string encoding_;
    bool stopped_ = false;
};

void require_answers(lc_tables const & tables, table_model const & expected, std::string const & name) {
    auto const locale = tables.find_locale(name);
    auto const model = expected.find_locale(name);
    fuzz::require(locale.has_value() == model.has_value(), "whether a locale is known");
    if (model) {
        fuzz::require(is_locale_name(name) && is_encoding_name(model->encoding), "the name of a locale");
        fuzz::require(locale->encoding == model->encoding && locale->xpg_name == model->xpg_name &&
                          tables.find_locale_option(name, "disable_l10n") == model->disable,
                      "the data of a locale");
    }
    auto const encoding = tables.find_encoding(name);
    auto const known = expected.find_encoding(name);
    fuzz::require(encoding.has_value() == known.has_value(), "whether an encoding is known");
    if (known) {
        fuzz::require(is_encoding_name(name) && (known->compat.empty() || is_encoding_name(known->compat)),
                      "the name of an encoding");
        fuzz::require(encoding->name == known->name && encoding->jvm_name == known->jvm_name &&
                          encoding->compat == known->compat,
                      "the data of an encoding");
    }
    fuzz::require(tables.find_locale_alias(name) == expected.find_alias(name) &&
                      tables.find_region_alias(name) == expected.find_region_alias(name) &&
                      tables.find_encoding_alias(name) == expected.find_encoding_alias(name),
                  "what an alias stands for");
    // Whatever an alias leads to is there, in one step.
    std::string const found = tables.resolve_locale(name);
    fuzz::require(found.empty() ? !model && expected.find_alias(name).empty()
                                : tables.find_locale(found).has_value(),
                  "the locale that a name stands for");
    std::string const alias = expected.find_encoding_alias(name);
    auto const resolved = tables.resolve_encoding(name);
    fuzz::require(
        resolved.has_value() == (known || !alias.empty()) &&
            (!resolved || resolved->name == expected.find_encoding(alias.empty() ? name : alias)->name),
        "the encoding that a name stands for");
}

/// Writes a database from the bytes of an input; mostly a well-formed one.
std::string write_database(fuzz::fuzz_input & input) {
    static char const * const starts[] = {
        "<locale",   "<alias",          "<region_alias", "<l10n", "</locale></lcdata>",
        "<encoding", "<encoding_alias", "<lcdata"};
    static char const * const attributes[] = {"name",    "encoding",     "xpg_name",
                                              "disable", "jvm_encoding", "compat"};
    static char const * const values[] = {"en_US_POSIX",
                                          "xx",
                                          "ja_JP",
                                          "de",
                                          "UTF-8",
                                          "utf-8",
                                          "x-enc",
                                          "eucJP",
                                          "latin1",
                                          "../x",
                                          "C:x",
                                          "a/b",
                                          "CON",
                                          "yes",
                                          "sr_RS.UTF-8@latin",
                                          "",
                                          "sr@x"};
    std::string text = "<lcdata>";
    std::string open;
    while (!input.empty()) {
        std::size_t const kind = input.below(16) % 9;
        std::string const start = kind < 8 ? starts[kind] : "<codeset";
        // An element inside the locale or encoding before it, or behind that.
        bool const is_inner = (kind >= 1 && kind <= 3) || kind == 6;
        if (!is_inner && !open.empty()) {
            text += open;
            open.clear();
        }
        if (kind == 5) {
            text += "<codeset>";
        }
        text += start;
        std::set<std::size_t> given{kind == 3 ? std::size_t(3) : 0};
        for (std::size_t i = input.below(3); i > 0; --i) {
            given.insert(input.below(std::size(attributes)));
        }
        for (std::size_t const attribute : given) {
            std::string value = input.below(4) ? input.pick(values) : input.text();
            std::erase_if(value, [](char c) { return c == '"' || c == '<' || c == '&'; });
            text.append(" ").append(attributes[attribute]).append("=\"").append(value).append("\"");
        }
        if (kind == 0 || kind == 5) {
            open = kind == 0 ? "</locale>" : "</encoding></codeset>";
            text += ">";
        } else {
            text += "/>";
        }
    }
    return text + open + "</lcdata>";
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
    fuzz::fuzz_input input(data, size);
    bool const is_written = input.below(2);
    std::string_view const plan = input.take(input.below(5));
    std::string const document = is_written ? write_database(input) : std::string(input.rest());
    reference const expected(document);
    lc_tables tables;
    event_log log;
    xml::read_result const result = read_lcdata(LcData(tables, log), fuzz::cut(document, plan));
    fuzz::require_same_end(result, expected.result, document);
    fuzz::require(log.entries().size() == expected.tables.refused, "how many changes are refused");
    for (std::string const & name : expected.values) {
        require_answers(tables, expected.tables, name);
    }
    for (char const * const name : {"", "en_US_POSIX", "UTF-8", "utf-8", "ja", "eucJP"}) {
        require_answers(tables, expected.tables, name);
    }
    return 0;
}
