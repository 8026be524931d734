#pragma once

#include "foundation/hash.hpp"

#include <bit>
#include <boost/numeric/conversion/cast.hpp>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace fl::i18n {

/// The key of a cached catalog in its two parts, which a colon joins.
struct catalog_key {
    std::string_view id;     ///< catalog identifier
    std::string_view locale; ///< locale name

    bool operator==(catalog_key const & other) const {
        return equal_text(id, other.id) && equal_text(locale, other.locale);
    }
    std::string joined() const {
        std::string key;
        key.reserve(id.size() + 1 + locale.size());
        return key.append(id).append(1, ':').append(locale);
    }
    std::size_t hash() const { return hash_text(id) ^ std::rotl(hash_text(locale), 1); }
};

/// A key with its hash, as look-ups bring it, so that nothing is computed while a lock is held.
struct hashed_catalog_key : catalog_key {
    hashed_catalog_key(std::string_view catalog_id, std::string_view locale_name)
        : catalog_key{catalog_id, locale_name}
        , hash_value(hash()) {}

    std::size_t hash_value;
};

/// A key as the cache holds it: one part behind the other, and mostly without other memory, for the
/// comparison that every look-up makes while it holds the lock.
class stored_catalog_key {
public:
    explicit stored_catalog_key(catalog_key const & key)
        : id_size_(boost::numeric_cast<std::uint32_t>(key.id.size()))
        , locale_size_(boost::numeric_cast<std::uint32_t>(key.locale.size())) {
        std::size_t const size = key.id.size() + key.locale.size();
        if (size > sizeof inline_) {
            heap_ = std::make_unique<char[]>(size);
        }
        char * const text = heap_ ? heap_.get() : inline_;
        key.id.copy(text, id_size_);
        key.locale.copy(text + id_size_, locale_size_);
    }

    catalog_key parts() const {
        char const * const text = heap_ ? heap_.get() : inline_;
        return {{text, id_size_}, {text + id_size_, locale_size_}};
    }

private:
    std::unique_ptr<char[]> heap_;
    std::uint32_t id_size_;
    std::uint32_t locale_size_;
    char inline_[32];
};

struct catalog_key_hash {
    using is_transparent = void;
    using is_avalanching = void;
    std::size_t operator()(hashed_catalog_key const & key) const { return key.hash_value; }
    std::size_t operator()(stored_catalog_key const & key) const { return key.parts().hash(); }
};

struct catalog_key_equal {
    using is_transparent = void;
    bool operator()(stored_catalog_key const & a, stored_catalog_key const & b) const {
        return a.parts() == b.parts();
    }
    bool operator()(catalog_key const & a, stored_catalog_key const & b) const { return a == b.parts(); }
    bool operator()(stored_catalog_key const & a, catalog_key const & b) const { return a.parts() == b; }
};

} // namespace fl::i18n
