#pragma once

#include "catalogs/catalog_file_loader.hpp"
#include "catalogs/xml_catalog_data_store.hpp"

#include <fl/filesystem/path.hpp>
#include <fl/i18n/message_catalog.hpp>
#include <memory>
#include <string_view>

namespace fl::i18n {

/// A catalog of one file. It does not look for a text in other locales.
class MessageCatalogImpl final : public MessageCatalog {
public:
    /// `path` is empty when there is no file; `classic_default` tells whether the search for it ended with
    /// the classic locale, `locale` for which locale name it was found.
    MessageCatalogImpl(std::string id, filesystem::upath path, bool classic_default, std::string locale);

    ustring message(MessageID const & id) const override;
    ustring text(std::string const & key) const override;
    std::vector<std::string> keys() const override;

    /// Returns the texts, valid while the catalog lives; there is no store behind them when it is not loaded.
    message_texts texts() const { return store_ ? store_->texts() : message_texts(); }

    /// Loads the file into memory of the pool, before the catalog is shared. A file that is not valid leaves
    /// the catalog not loaded.
    void load(MessageCatalogFileLoader & loader, message_pool & pool);

    filesystem::upath const & path() const { return path_; }
    bool classic_default() const { return classic_default_; }
    std::string const & locale() const { return locale_; }
    bool loaded() const { return store_ != nullptr; }

private:
    std::string id_;
    filesystem::upath path_;
    bool classic_default_;
    std::string locale_;
    std::shared_ptr<XMLCatalogDataStore const> store_;
};

/// Throws `MessageCatalog::MessageCatalogLoadFailed` when there is no store behind a catalog's texts, else
/// `MessageCatalog::MessageNotFound`.
[[noreturn]] void throw_no_text(message_texts texts, std::string_view catalog, std::string_view key);

/// Returns the text of a key among a catalog's texts, or throws as `throw_no_text`.
inline std::u16string_view find_text(message_texts texts, std::string_view catalog, std::string_view key) {
    if (texts) {
        if (auto const found = texts.find(key)) {
            return *found;
        }
    }
    throw_no_text(texts, catalog, key);
}

} // namespace fl::i18n
