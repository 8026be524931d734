// Catalog files of any bytes, in blocks of any sizes, against a reader that takes them whole.

#include "catalogs/catalog_map_event_handler.hpp"
#include "tests/fuzz/catalogs.hpp"

namespace {

using namespace fl;

/// Reads a catalog in one call of Expat, by the rules for its elements.
class reference {
public:
    explicit reference(std::string_view document) {
        XML_SetUserData(parser_.get(), this);
        XML_SetElementHandler(
            parser_.get(),
            [](void * self, char const * name, char const ** attributes) {
                static_cast<reference *>(self)->start(name, attributes);
            },
            [](void * self, char const * name) { static_cast<reference *>(self)->end(name); });
        XML_SetCharacterDataHandler(parser_.get(), [](void * self, char const * text, int length) {
            static_cast<reference *>(self)->characters({text, static_cast<std::size_t>(length)});
        });
        if (XML_Parse(parser_.get(), document.data(), static_cast<int>(document.size()), true) !=
            XML_STATUS_OK) {
            result = {xml::read_status::malformed, static_cast<int>(XML_GetErrorCode(parser_.get())),
                      XML_GetCurrentLineNumber(parser_.get()), XML_GetCurrentColumnNumber(parser_.get())};
        }
    }

    fuzz::catalog_texts texts;
    xml::read_result result;

private:
    void start(std::string_view name, char const ** attributes) {
        if (name == "rsccat" && place_ == "") {
            place_ = "rsccat";
        } else if (name == "message" && place_ == "rsccat") {
            place_ = "message";
        } else if (name == "entry" && (place_ == "message" || place_ == "entry")) {
            place_ = "entry";
            key_.clear();
            for (; *attributes != nullptr; attributes += 2) {
                if (attributes[0] == std::string_view("key")) {
                    key_ = attributes[1];
                }
            }
        } else {
            stop();
        }
    }

    void characters(std::string_view text) {
        if (!stopped_ && !key_.empty()) {
            content_.emplace_back(text);
        }
    }

    void end(std::string_view name) {
        if (stopped_ || name != "entry") {
            return;
        }
        if (key_.empty()) {
            stop();
            return;
        }
        texts.try_emplace(key_, fuzz::text_of_pieces(content_));
        key_.clear();
        content_.clear();
    }

    void stop() {
        stopped_ = true;
        XML_StopParser(parser_.get(), XML_FALSE);
    }

    fuzz::parser_handle parser_ = fuzz::make_parser(nullptr);
    std::string_view place_;
    std::string key_;
    std::vector<std::string> content_;
    bool stopped_ = false;
};

std::set<std::u16string> read_map(std::string_view document, std::string_view plan) {
    auto const keys = std::make_shared<std::set<std::u16string>>();
    i18n::MetaInfoExpatEventHandler handler(keys);
    parse_document(fuzz::cut(document, plan), handler);
    return *keys;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
    fuzz::fuzz_input input(data, size);
    std::string_view const plan = input.take(input.below(5));
    std::string_view const document = input.rest();
    reference const expected(document);
    i18n::XMLCatalogDataStore store;
    i18n::MessageCatalogExpatEventHandler handler(store);
    xml::read_result const result = parse_document(fuzz::cut(document, plan), handler);
    fuzz::require_same_end(result, expected.result, document);
    fuzz::require_texts(store, expected.texts, plan);
    i18n::message_pool pool;
    store.seal(pool);
    fuzz::require_texts(store, expected.texts, document);
    if (document.find("MessageCatalogMap") != document.npos) {
        fuzz::require(read_map(document, plan) == read_map(document, {}), "the keys of a map of catalogs");
    }
    return 0;
}
