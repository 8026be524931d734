#pragma once

#include <boost/unordered_map.hpp>
#include <string>
#include <unicode/unistr.h>
#include <vector>

namespace fl::i18n {

/// The texts of one catalog, by message key. Filled once, then only read.
class XMLCatalogDataStore {
public:
    /// Adds a UTF-8 text with its backslash escapes replaced; a key that is present keeps its first text.
    ///
    /// A malformed escape makes the text empty. Returns false when the text cannot be held: no memory for it,
    /// or more than 2147483647 units.
    virtual bool add(std::string const & key, std::string const & text);
    virtual ~XMLCatalogDataStore();

    /// Returns the text of a key, or null. The pointer is valid while the store lives and nothing is added.
    icu::UnicodeString const * find(std::string const & key) const;
    /// Returns all keys, in no order.
    std::vector<std::string> keys() const;

private:
    boost::unordered_map<std::string, icu::UnicodeString> texts_;
};

} // namespace fl::i18n
