#pragma once

#include "catalogs/message_pool.hpp"
#include "catalogs/message_texts.hpp"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fl::i18n {

/// The texts of one catalog, by message key. Filled once, then only read.
class XMLCatalogDataStore {
public:
    XMLCatalogDataStore();
    XMLCatalogDataStore(XMLCatalogDataStore const &) = delete;
    XMLCatalogDataStore & operator=(XMLCatalogDataStore const &) = delete;

    /// Adds a UTF-8 text with its backslash escapes replaced; a key that is present keeps its first text.
    ///
    /// A malformed escape makes the text empty. Returns false when the text cannot be held: more than
    /// 2147483647 units, or more than 8 GiB with all others. Throws `std::bad_alloc`. The store is then
    /// unchanged.
    virtual bool add(std::string_view key, std::string_view text);
    virtual ~XMLCatalogDataStore();

    /// Returns the texts as a view, which is what look-ups go through.
    message_texts texts() const { return texts_; }
    /// Returns all keys, in no order.
    std::vector<std::string> keys() const;

    /// Moves all into exactly the memory that it takes, once it is complete: nothing can be added afterwards.
    void seal(message_pool & pool);

private:
    /// Appends a key and its text to the units and returns the text's length; nothing when it cannot be held.
    std::optional<std::uint32_t> append(std::string_view key, std::string_view text);
    void grow();

    std::vector<char16_t> units_;
    std::vector<message_slot> slots_;
    std::size_t count_ = 0;
    std::shared_ptr<void> sealed_;
    message_texts texts_;
};

} // namespace fl::i18n
