#pragma once

#include "catalogs/catalog_key.hpp"
#include "catalogs/message_catalog_impl.hpp"
#include "foundation/spinning_mutex.hpp"

#include <boost/smart_ptr/shared_ptr.hpp>
#include <boost/unordered/unordered_flat_map.hpp>
#include <cstdint>
#include <fl/filesystem/path.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/lookup_report.hpp>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace fl::i18n {

/// Finds, loads and keeps catalogs. The operations are those of `MessageCatalog` and throw as they do.
///
/// One mutex guards everything and is held while a file is loaded. Locales may be asked under it, so the
/// locale management must never call back with its own mutex held.
class catalog_service {
public:
    using catalog_pointer = boost::shared_ptr<MessageCatalogImpl const>;

    /// `install_path` supplies the root for a lookup before any initialisation.
    explicit catalog_service(std::function<filesystem::upath()> install_path);

    /// Sets the roots and opens the catalogs that `critical_catalogs` names, which is asked once the roots
    /// are found good. Roots and cache stay as they were when anything fails.
    bool initialise(std::vector<ustring> const & roots,
                    std::function<std::vector<std::string>()> const & critical_catalogs = {});
    /// Writes what it does into `report`, if there is one.
    catalog_pointer get_catalog(std::string_view id, QzLocale const & locale,
                                LookupReport * report = nullptr);
    /// Returns the texts of the same catalog, which are valid until it is flushed.
    message_texts get_texts(std::string_view id, QzLocale const & locale);
    /// Takes no lock.
    void flush(std::string_view id);
    void set_additional_locations(std::vector<ustring> const & locations);
    void remove_additional_location(ustring const & location);

private:
    struct cache_entry {
        catalog_pointer catalog;
        message_texts texts;
        std::uint64_t hits = 0;
    };
    using cache =
        boost::unordered_flat_map<stored_catalog_key, cache_entry, catalog_key_hash, catalog_key_equal>;
    /// A catalog that is to be cached for a key, none of whose keys is cached.
    struct addition {
        hashed_catalog_key key;
        catalog_pointer catalog;
        bool found_for_other; ///< also for the locale that it was found for
    };
    enum class removal { done, no_path, no_resources, not_listed };

    std::vector<filesystem::upath> usable_roots(std::vector<ustring> const & roots) const;
    void open_all(std::vector<std::string> const & ids);
    cache_entry * find_cached(hashed_catalog_key const & key, LookupReport * report);
    catalog_pointer add_catalog(hashed_catalog_key const & key, QzLocale const & locale,
                                LookupReport * report);
    addition load_catalog(hashed_catalog_key const & key, QzLocale const & locale, LookupReport * report);
    void store(std::span<addition const> additions, LookupReport * report);
    removal try_to_remove(ustring const & location);

    std::function<filesystem::upath()> install_path_;
    spinning_mutex mutex_;
    std::vector<filesystem::upath> roots_;
    std::vector<filesystem::upath> additional_locations_;
    message_pool pool_;
    cache cache_;
};

/// Returns the service of the process.
catalog_service & process_catalog_service();

/// Returns the resource directories of roots; throws `MessageCatalog::MessageCatalogNotInitialized` without
/// roots.
std::vector<filesystem::upath> search_directories(std::vector<filesystem::upath> const & roots);

/// Returns where a catalog's file lies below a resource directory, with "%S" for the locale name:
/// "a\%S\b\c.xml" for "a:b:c". Empty when the identifier has no colon or ends with one.
ustring catalog_file_pattern(std::string_view id);

} // namespace fl::i18n
