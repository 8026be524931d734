#include "tools/fl_i18n/catalog/xml_document.hpp"
#include "tools/fl_i18n/lint/other_files.hpp"

#include <fl/i18n/catalog_id.hpp>
#include <map>
#include <string_view>
#include <vector>

namespace fl::tool::lint {

namespace {

bool is_catalog_id(std::string const & text) {
    try {
        i18n::CatalogID{text};
        return true;
    } catch (i18n::CatalogID::badCatalogIDException const &) {
        return false;
    }
}

class map_reader final : public xml::events {
public:
    map_reader(std::optional<std::set<std::string>> const & catalogs, file_findings & out)
        : catalogs_(catalogs)
        , out_(out) {}

    void on_start(std::string_view name, std::vector<xml::attribute> const & attributes,
                  std::size_t offset) override {
        if (name == "MessageCatalogMap") {
            if (depth_ != 0) {
                out_.add("misplaced-element", {.offset = offset, .text = "the root element inside itself"});
            }
        } else if (name != "entry") {
            out_.add("unknown-element", {.offset = offset, .text = "unknown element " + in_quotes(name)});
        } else if (depth_ != 1) {
            out_.add("misplaced-element",
                     {.offset = offset, .text = "\"entry\" stands directly in \"MessageCatalogMap\""});
        } else {
            check_entry(xml::find(attributes, "key"), offset);
        }
        ++depth_;
    }

    void on_end(std::string_view, std::size_t) override { --depth_; }

    void on_text(std::string_view text, std::size_t offset, bool literal) override {
        std::size_t const first = text.find_first_not_of(" \t\r\n");
        if (first != std::string_view::npos) {
            out_.add("stray-text", {.offset = literal ? offset + first : offset,
                                    .text = "text in a catalog map is ignored"});
        }
    }

private:
    void check_entry(xml::attribute const * key, std::size_t offset) {
        if (key == nullptr || key->value.empty()) {
            out_.add("missing-key", {.offset = key == nullptr ? offset : key->value_offset,
                                     .text = key == nullptr ? "an entry without key" : "an empty key",
                                     .level = severity::warning});
            return;
        }
        std::string const name = in_quotes(key->value);
        auto const [first, is_new] = seen_.try_emplace(key->value, key->value_offset);
        if (!is_new) {
            out_.add("repeated-key", {.offset = key->value_offset,
                                      .text = "the catalog " + name + " is there already",
                                      .first = first->second,
                                      .level = severity::warning});
        } else if (!is_catalog_id(key->value)) {
            out_.add("bad-catalog-id",
                     {.offset = key->value_offset, .text = name + " is no catalog identifier"});
        } else if (catalogs_ && !catalogs_->contains(key->value)) {
            out_.add("missing-catalog",
                     {.offset = key->value_offset, .text = "there is no file of the catalog " + name});
        }
    }

    std::optional<std::set<std::string>> const & catalogs_;
    file_findings & out_;
    std::map<std::string, std::size_t> seen_;
    int depth_ = 0;
};

} // namespace

void check_catalog_map(source_text const & source, bool decoded,
                       std::optional<std::set<std::string>> const & catalogs, file_findings & out) {
    map_reader reader(catalogs, out);
    if (auto const malformed = xml::read(source.bytes(), reader, decoded)) {
        out.add("xml", {.offset = malformed->offset, .text = malformed->text});
    }
}

} // namespace fl::tool::lint
