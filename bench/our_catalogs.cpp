#include "bench/our_catalogs.hpp"

#include "bench/contest.hpp"
#include "tests/support/temporary_directory.hpp"

#include <fl/i18n/locale.hpp>
#include <fl/i18n/message_catalog.hpp>

namespace fl::bench {

using i18n::CatalogID;
using i18n::MessageCatalog;
using i18n::MessageID;

namespace {

/// The root of our catalogs, which the process then has, and the locale of the contests.
class catalog_root {
public:
    catalog_root() {
        directory_.make_directory(u"resources");
        MessageCatalog::MessageCatalogInit(directory_.path().string());
        i18n::set_lc_messages(locale_name);
    }

    /// Writes the file of the catalog "bench:NAME".
    void write(std::string const & name, std::string const & bytes) const {
        std::string const file = file_of(name);
        directory_.write(std::u16string(file.begin(), file.end()), bytes);
    }
    std::string full_name_of(std::string const & name) const {
        return directory_.name() + '/' + file_of(name);
    }

private:
    static std::string file_of(std::string const & name) {
        return std::string("resources/bench/") + language + '/' + name + ".xml";
    }

    test::temporary_directory directory_;
};

catalog_root const & root() {
    static catalog_root const result;
    return result;
}

std::vector<MessageID> write_one_catalog() {
    root().write("all", catalog_file(0, message_count));
    CatalogID const id("bench:all");
    std::vector<MessageID> result;
    for (std::string const & key : messages().keys) {
        result.emplace_back(id, key);
    }
    return result;
}

std::vector<MessageID> write_many_catalogs() {
    std::vector<MessageID> result;
    for (std::uint32_t const i : permutation(message_count)) {
        std::string const name = "one" + std::to_string(i);
        root().write(name, catalog_file(i, 1));
        result.emplace_back(CatalogID("bench:" + name), key_of(i));
    }
    return result;
}

} // namespace

std::string catalog_file(std::uint32_t first, std::uint32_t count) {
    std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<rsccat version=\"1.0\" locale=\"";
    xml.append(language).append("\">\n  <message>\n");
    for (std::uint32_t i = first; i < first + count; ++i) {
        xml.append("    <entry key=\"")
            .append(key_of(i))
            .append("\">")
            .append(text_of(i))
            .append("</entry>\n");
    }
    return xml + "  </message>\n</rsccat>\n";
}

std::vector<MessageID> const & in_one_catalog() {
    static std::vector<MessageID> const result = write_one_catalog();
    return result;
}

std::string file_of_one_catalog() {
    in_one_catalog();
    return root().full_name_of("all");
}

std::vector<MessageID> const & in_many_catalogs() {
    static std::vector<MessageID> const result = write_many_catalogs();
    return result;
}

CatalogID const & no_catalog() {
    root();
    static CatalogID const result("bench:none");
    return result;
}

} // namespace fl::bench
