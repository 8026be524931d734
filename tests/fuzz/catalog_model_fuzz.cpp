// Catalogs that are written from the bytes of the input, in several encodings, against a map of their texts.

#include "tests/fuzz/catalogs.hpp"

namespace {

using namespace fl;
using fuzz::fuzz_input;

enum class encoding { plain, utf8, utf8_with_mark, utf16_le, utf16_be, latin1, ascii };

char32_t const characters[] = {U'a',      U'Z',      U'7',          U' ',          U'\t',        U'\n',
                               U'\r',     U'{',      U'}',          U'\'',         U'"',         U'&',
                               U'<',      U'>',      U']',          U'\\',         U'\x7F',      U'\x85',
                               U'\xA0',   U'\xE9',   U'\xFF',       U'\u0416',     U'\u2028',    U'\uD7FF',
                               U'\uE000', U'\uFFFD', U'\U00010000', U'\U0001F600', U'\U0010FFFF'};
char const * const escapes[] = {"\\n",  "\\t", "\\\\",  "\\u0041",     "\\U0001F600",    "\\x41",   "\\101",
                                "\\cA", "\\q", "\\u12", "\\U00110000", "\\ud83d\\ude00", "\\ud83d", "\\"};

void append_utf8(std::string & text, char32_t c) {
    icu::UnicodeString(static_cast<UChar32>(c)).toUTF8String(text);
}

/// Writes a catalog and keeps what it holds.
class catalog_writer {
public:
    explicit catalog_writer(fuzz_input & input)
        : input_(input)
        , encoding_(static_cast<encoding>(input.below(7))) {
        write_declaration();
        mark("<!DOCTYPE rsccat [<!ENTITY e \"u&#38;#38;\n v\">]>");
        mark("<rsccat version='1.0'><message>");
        while (!input_.empty() && !broken) {
            write_entry();
        }
        if (!broken) {
            mark(input_.below(2) ? "</message></rsccat>" : " </message>\r\n<!-- -->\n</rsccat>\n");
        }
    }

    /// Returns the file's bytes.
    std::string bytes() const {
        std::string result = encoding_ == encoding::utf8_with_mark ? "\xEF\xBB\xBF" : "";
        icu::UnicodeString const units = icu::UnicodeString::fromUTF32(
            reinterpret_cast<UChar32 const *>(document_.data()), int(document_.size()));
        switch (encoding_) {
        case encoding::utf16_le:
        case encoding::utf16_be:
            append_unit(result, 0xFEFF);
            for (int i = 0; i < units.length(); ++i) {
                append_unit(result, units[i]);
            }
            return result;
        case encoding::latin1:
        case encoding::ascii:
            std::transform(document_.begin(), document_.end(), std::back_inserter(result),
                           [](char32_t c) { return static_cast<char>(c); });
            return result;
        default:
            return units.toUTF8String(result);
        }
    }

    fuzz::catalog_texts texts;
    bool broken = false; ///< the file cannot be read to its end

private:
    void write_declaration() {
        char const * const names[] = {nullptr, "UTF-8", nullptr, "utf-16", nullptr, "ISO-8859-1", "us-ascii"};
        if (char const * const name = names[static_cast<int>(encoding_)]) {
            mark(std::string("<?xml version=\"1.0\" encoding=\"") + name + "\"?>");
        }
    }

    void append_unit(std::string & result, char16_t unit) const {
        char const low = static_cast<char>(unit & 0xFF);
        char const high = static_cast<char>(unit >> 8);
        (result += encoding_ == encoding::utf16_le ? low : high) +=
            encoding_ == encoding::utf16_le ? high : low;
    }

    void mark(std::string_view text) { document_.append(text.begin(), text.end()); }

    bool can_write(char32_t c) const {
        return c < 0x80 || encoding_ < encoding::latin1 || (encoding_ == encoding::latin1 && c <= 0xFF);
    }

    void write_reference(char32_t c) {
        char text[16];
        std::snprintf(text, sizeof text, input_.below(2) ? "&#x%X;" : "&#%u;", static_cast<unsigned>(c));
        mark(text);
        append_utf8(content_, c);
    }

    /// Writes a character as itself; the line ends of a document become line feeds.
    void write_itself(char32_t c) {
        if (c != U'\n' || document_.back() != U'\r') {
            append_utf8(content_, c == U'\r' ? U'\n' : c);
        }
        document_ += c;
    }

    void write_character(char32_t c) {
        if (c == U'&' || c == U'<' || c == U'>' || !can_write(c)) {
            write_reference(c);
        } else {
            write_itself(c);
        }
    }

    char32_t any_character() {
        char32_t const c =
            input_.below(2) ? char32_t(input_.byte() << 8 | input_.byte()) : input_.pick(characters);
        bool const is_legal = c >= 0x20 ? (c < 0xD800 || c > 0xDFFF) && c != 0xFFFE && c != 0xFFFF
                                        : c == U'\t' || c == U'\n' || c == U'\r';
        return is_legal ? c : U'?';
    }

    void write_section() {
        mark("<![CDATA[");
        for (std::size_t i = input_.below(8); i > 0; --i) {
            char32_t const c = any_character();
            write_itself(can_write(c) && c != U']' ? c : U'_');
        }
        mark("]]>");
    }

    void write_piece() {
        switch (input_.below(10)) {
        case 0:
            return write_reference(any_character());
        case 1:
            return write_section();
        case 2:
            return mark(input_.below(2) ? "<!-- & < \\ -->" : "<!---->");
        case 3:
            return mark("<?any thing?>");
        case 4: {
            char const * const escape = input_.pick(escapes);
            mark(escape);
            content_ += escape;
            return;
        }
        case 5:
            mark("&e;");
            content_ += "u&\n v";
            return;
        default:
            write_character(any_character());
        }
    }

    std::string write_key() {
        char const * const keys[] = {"a", "b", "c", "QzKey", "_1", "a-b"};
        std::string key = input_.pick(keys);
        content_.swap(key);
        mark("<entry note='' key=\"" + content_);
        for (std::size_t i = input_.below(4); i > 0; --i) {
            char32_t const c = any_character();
            c == U'"' || c < 0x20 ? write_reference(c) : write_character(c);
        }
        mark("\" >");
        content_.swap(key);
        return key;
    }

    void write_entry() {
        std::string const key = write_key();
        for (std::size_t i = input_.below(24); i > 0; --i) {
            write_piece();
        }
        if (input_.byte() < 6) {
            return write_fault();
        }
        mark(input_.below(2) ? "</entry>\n" : "</entry> not a \\text ");
        add(key);
    }

    void add(std::string const & key) {
        texts.try_emplace(key, fuzz::text_of_content(std::exchange(content_, {})));
    }

    /// Writes what no catalog holds into an entry, and all that it takes beside.
    void write_fault() {
        char const * const faults[] = {"<entry></entry>",
                                       "<message/>",
                                       "<rsccat/>",
                                       "<Entry/>",
                                       "</message>",
                                       "<entry key=''>x</entry>",
                                       "]]>",
                                       "&f;",
                                       "<x a=1/>",
                                       "\x01",
                                       "&#0;"};
        broken = true;
        std::size_t const fault = input_.below(std::size(faults) + 2);
        if (fault == std::size(faults)) {
            return; // the end is missing
        }
        if (fault < std::size(faults)) {
            mark(faults[fault]);
        } else {
            // An entry inside gets the text of both, and the outer one ends without a key.
            add(write_key());
            mark("</entry>");
        }
        mark("</entry></message></rsccat>");
    }

    fuzz_input & input_;
    encoding encoding_;
    std::u32string document_;
    std::string content_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
    fuzz_input input(data, size);
    std::string_view const plan = input.take(input.below(5));
    std::string const any_key = input.text();
    catalog_writer const catalog(input);
    std::string const document = catalog.bytes();
    i18n::XMLCatalogDataStore store;
    i18n::MessageCatalogExpatEventHandler handler(store);
    auto const status = parse_document(fuzz::cut(document, plan), handler).status;
    fuzz::require((status == xml::read_status::complete) != catalog.broken, "whether a catalog can be read");
    i18n::message_pool pool;
    i18n::XMLCatalogDataStore neighbour;
    store.seal(pool);
    neighbour.seal(pool);
    fuzz::require_texts(store, catalog.texts, any_key);
    return 0;
}
