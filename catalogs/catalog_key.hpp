#pragma once

#include "foundation/hash.hpp"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace fl::i18n {

/// The key of a cached catalog in its two parts, which a colon joins. Locale names hold no colon.
struct catalog_key {
    std::string_view id;     ///< catalog identifier
    std::string_view locale; ///< locale name

    explicit catalog_key(std::string_view joined)
        : id(joined.substr(0, joined.rfind(':')))
        , locale(joined.substr(id.size() + 1)) {}
    catalog_key(std::string_view catalog_id, std::string_view locale_name)
        : id(catalog_id)
        , locale(locale_name) {}

    std::string joined() const {
        std::string key;
        key.reserve(id.size() + 1 + locale.size());
        return key.append(id).append(1, ':').append(locale);
    }
    std::size_t hash() const { return hash_text(id) ^ std::rotl(hash_text(locale), 1); }
    /// Tells whether `key` consists of the two parts.
    bool is(std::string_view key) const {
        return key.size() == id.size() + 1 + locale.size() && key[id.size()] == ':' &&
               equal_text(key.substr(0, id.size()), id) && equal_text(key.substr(id.size() + 1), locale);
    }
};

/// A key with its hash, as look-ups bring it, so that nothing is computed while a lock is held.
struct hashed_catalog_key : catalog_key {
    hashed_catalog_key(std::string_view catalog_id, std::string_view locale_name)
        : catalog_key(catalog_id, locale_name)
        , hash_value(hash()) {}

    std::size_t hash_value;
};

/// A key as the cache holds it: joined, and mostly without other memory, for the comparison that every
/// look-up makes while it holds the lock.
class stored_catalog_key {
public:
    explicit stored_catalog_key(catalog_key const & key)
        : size_(static_cast<std::uint32_t>(key.id.size() + 1 + key.locale.size())) {
        if (size_ > sizeof inline_) {
            heap_ = std::make_unique<char[]>(size_);
        }
        char * const text = heap_ ? heap_.get() : inline_;
        text[key.id.copy(text, key.id.size())] = ':';
        key.locale.copy(text + key.id.size() + 1, key.locale.size());
    }

    std::string_view text() const { return {heap_ ? heap_.get() : inline_, size_}; }

private:
    std::unique_ptr<char[]> heap_;
    std::uint32_t size_;
    char inline_[36];
};

struct catalog_key_hash {
    using is_transparent = void;
    using is_avalanching = void;
    std::size_t operator()(hashed_catalog_key const & key) const { return key.hash_value; }
    std::size_t operator()(stored_catalog_key const & key) const { return catalog_key(key.text()).hash(); }
};

struct catalog_key_equal {
    using is_transparent = void;
    bool operator()(stored_catalog_key const & a, stored_catalog_key const & b) const {
        return a.text() == b.text();
    }
    bool operator()(catalog_key const & a, stored_catalog_key const & b) const { return a.is(b.text()); }
    bool operator()(stored_catalog_key const & a, catalog_key const & b) const { return b.is(a.text()); }
};

} // namespace fl::i18n
