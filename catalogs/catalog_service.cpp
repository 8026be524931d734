#include "catalogs/catalog_service.hpp"

#include "catalogs/catalog_file_loader.hpp"
#include "foundation/ascii.hpp"
#include "foundation/process_singleton.hpp"
#include "locale/qz_locale_impl.hpp"
#include "lookup/resource_search.hpp"

#include <algorithm>
#include <boost/smart_ptr/make_shared.hpp>
#include <boost/throw_exception.hpp>
#include <fl/i18n/resource_finder.hpp>
#include <iterator>
#include <memory>
#include <utility>

namespace fl::i18n {

namespace {

using filesystem::upath;

/// Searches end with the classic locale's name.
constexpr bool classic_default = true;

constinit process_singleton<catalog_service> process_service;

/// Returns a directory in absolute native form; empty when the text is no path, or a relative one while the
/// current directory cannot be told: it would be another directory later.
upath native_directory(ustring const & text) {
    if (text.find(u'\0') != ustring::npos) {
        return {};
    }
    std::wstring directory = filesystem::make_native_form(text, true);
    if (!filesystem::is_absolute(directory)) {
        return {};
    }
    // "x\\" is the directory "x"; a root keeps its separator.
    constexpr std::size_t longest_root = std::wstring_view(L"C:\\").size();
    while (directory.size() > longest_root && directory.back() == L'\\') {
        directory.pop_back();
    }
    return directory;
}

bool has_resources(upath const & directory) {
    return !directory.empty() && filesystem::status(directory / u"resources").is_directory;
}

resource_search::match find_file(std::vector<upath> const & roots, std::string_view id,
                                 QzLocale const & locale, LookupReport * report) {
    auto const directories = search_directories(roots);
    auto const names = resource_search::locale_names(locale, classic_default);
    ustring const pattern = catalog_file_pattern(id);
    ustring const marker = resource_finder::default_formatter;
    resource_search::visitor record;
    if (report != nullptr) {
        record = [report](upath const & candidate, ustring const &, bool exists) {
            report->candidates.push_back({candidate.string(), exists});
        };
    }
    return resource_search::find({directories, pattern, marker, names}, record);
}

} // namespace

catalog_service::catalog_service(std::function<upath()> install_path)
    : install_path_(std::move(install_path)) {}

bool catalog_service::initialise(std::vector<ustring> const & roots,
                                 std::function<std::vector<std::string>()> const & critical_catalogs) {
    std::lock_guard const lock(mutex_);
    bool const first = roots_.empty();
    auto directories = usable_roots(roots);
    roots_.swap(directories);
    try {
        if (critical_catalogs) {
            open_all(critical_catalogs());
        }
    } catch (...) {
        roots_.swap(directories);
        throw;
    }
    return first;
}

// They are cached together, as they were found below roots that do not stay when one cannot be opened.
void catalog_service::open_all(std::vector<std::string> const & ids) {
    QzLocale const & locale = QzLocale::global();
    std::string storage;
    std::string_view const name = lc_name(locale, QzLocale::LcCategory::messages, storage);
    std::vector<addition> additions;
    for (std::string const & id : ids) {
        hashed_catalog_key const key(id, name);
        bool const is_listed_before = std::any_of(additions.begin(), additions.end(),
                                                  [&](addition const & other) { return other.key == key; });
        if (find_cached(key, nullptr) == nullptr && !is_listed_before) {
            additions.push_back(load_catalog(key, locale, nullptr));
        }
    }
    store(additions, nullptr);
}

std::vector<upath> catalog_service::usable_roots(std::vector<ustring> const & roots) const {
    if (roots_.empty() && roots.empty()) {
        boost::throw_exception(MessageCatalog::MessageCatalogIncorrectRoot());
    }
    std::vector<upath> directories;
    std::transform(roots.begin(), roots.end(), std::back_inserter(directories), native_directory);
    directories.insert(directories.end(), additional_locations_.begin(), additional_locations_.end());
    std::erase_if(directories, [](upath const & directory) { return !has_resources(directory); });
    if (directories.empty()) {
        boost::throw_exception(MessageCatalog::MessageCatalogIncorrectRoot());
    }
    return directories;
}

catalog_service::catalog_pointer catalog_service::get_catalog(std::string_view id, QzLocale const & locale,
                                                              LookupReport * report) {
    std::string storage;
    hashed_catalog_key const key(id, lc_name(locale, QzLocale::LcCategory::messages, storage));
    std::lock_guard const lock(mutex_);
    // Nothing is cached before there are roots, so a hit needs no look at them.
    cache_entry const * const cached = find_cached(key, report);
    catalog_pointer catalog = cached != nullptr ? cached->catalog : add_catalog(key, locale, report);
    if (report != nullptr) {
        std::transform(roots_.begin(), roots_.end(), std::back_inserter(report->roots),
                       [](upath const & root) { return root.string(); });
    }
    return catalog;
}

message_texts catalog_service::get_texts(std::string_view id, QzLocale const & locale) {
    std::string storage;
    hashed_catalog_key const key(id, lc_name(locale, QzLocale::LcCategory::messages, storage));
    std::lock_guard const lock(mutex_);
    cache_entry const * const cached = find_cached(key, nullptr);
    return cached != nullptr ? cached->texts : add_catalog(key, locale, nullptr)->texts();
}

catalog_service::cache_entry * catalog_service::find_cached(hashed_catalog_key const & key,
                                                            LookupReport * report) {
    auto const position = cache_.find(key);
    cache_entry * const entry = position != cache_.end() ? &position->second : nullptr;
    if (entry != nullptr) {
        ++entry->hits;
    }
    if (report != nullptr) {
        report->cache_keys.push_back(
            {key.joined(), entry != nullptr, false, entry != nullptr ? entry->hits : 0});
    }
    return entry;
}

catalog_service::catalog_pointer
catalog_service::add_catalog(hashed_catalog_key const & key, QzLocale const & locale, LookupReport * report) {
    if (roots_.empty()) {
        roots_ = usable_roots({install_path_().string()});
    }
    addition const added = load_catalog(key, locale, report);
    store({&added, 1}, report);
    return added.catalog;
}

catalog_service::addition catalog_service::load_catalog(hashed_catalog_key const & key,
                                                        QzLocale const & locale, LookupReport * report) {
    if (report != nullptr) {
        report->step = LookupStep::find_file;
    }
    auto const found = find_file(roots_, key.id, locale, report);
    std::string const found_locale = ascii::narrow(found.locale_name);
    bool const found_for_other = !found.path.empty() && found_locale != key.locale;
    if (found_for_other) {
        if (cache_entry const * const cached = find_cached({key.id, found_locale}, report)) {
            return {key, cached->catalog, false};
        }
    }
    auto const catalog = boost::make_shared<MessageCatalogImpl>(std::string(key.id), found.path,
                                                                classic_default, found_locale);
    if (!found.path.empty()) {
        XMLCatalogFileLoader loader;
        catalog->load(loader, pool_);
    }
    return {key, catalog, found_for_other};
}

// All or none: a table may have to grow even for what it has reserved room for.
void catalog_service::store(std::span<addition const> additions, LookupReport * report) {
    std::vector<std::pair<hashed_catalog_key, addition const *>> entries;
    for (addition const & added : additions) {
        entries.emplace_back(added.key, &added);
        if (added.found_for_other) {
            entries.emplace_back(hashed_catalog_key(added.key.id, added.catalog->locale()), &added);
        }
    }
    try {
        for (auto const & [key, added] : entries) {
            cache_.try_emplace(stored_catalog_key(key), cache_entry{added->catalog, added->catalog->texts()});
        }
    } catch (...) {
        for (auto const & entry : entries) {
            cache_.erase(entry.first);
        }
        throw;
    }
    if (report != nullptr) {
        for (auto & consulted : report->cache_keys) {
            consulted.stored = std::any_of(entries.begin(), entries.end(), [&](auto const & entry) {
                return entry.first.joined() == consulted.key;
            });
        }
    }
}

void catalog_service::flush(std::string_view id) {
    erase_if(cache_, [id](cache::value_type const & entry) { return entry.first.parts().id == id; });
}

void catalog_service::set_additional_locations(std::vector<ustring> const & locations) {
    std::vector<upath> directories;
    std::transform(locations.begin(), locations.end(), std::back_inserter(directories), native_directory);
    if (!std::all_of(directories.begin(), directories.end(), has_resources)) {
        boost::throw_exception(MessageCatalog::ResDirNotPresent());
    }
    std::lock_guard const lock(mutex_);
    additional_locations_ = std::move(directories);
}

void catalog_service::remove_additional_location(ustring const & location) {
    removal result;
    try {
        result = try_to_remove(location);
    } catch (std::exception const & error) {
        boost::throw_exception(MessageCatalog::ResPathRemovalUnknownError(error.what()));
    }
    switch (result) {
    case removal::done:
        return;
    case removal::no_path:
        boost::throw_exception(MessageCatalog::InvalidPathSupplied());
    case removal::no_resources:
        boost::throw_exception(MessageCatalog::ResDirNotPresent());
    case removal::not_listed:
        boost::throw_exception(MessageCatalog::ResourcePathNotFound());
    }
}

catalog_service::removal catalog_service::try_to_remove(ustring const & location) {
    upath const directory = native_directory(location);
    if (directory.empty()) {
        return removal::no_path;
    }
    std::lock_guard const lock(mutex_);
    if (std::erase(additional_locations_, directory) != 0) {
        return removal::done;
    }
    return has_resources(directory) ? removal::not_listed : removal::no_resources;
}

catalog_service & process_catalog_service() {
    if (catalog_service * const made = process_service.peek()) {
        return *made;
    }
    // Asked for before anything is locked: the system may take the loader's lock for it, and a thread that
    // initialises a module holds that one while it waits here for a text.
    upath const path = filesystem::get_install_path();
    return process_service.get([&] { return std::make_unique<catalog_service>([path] { return path; }); });
}

std::vector<upath> search_directories(std::vector<upath> const & roots) {
    if (roots.empty()) {
        boost::throw_exception(MessageCatalog::MessageCatalogNotInitialized());
    }
    std::vector<upath> directories;
    std::transform(roots.begin(), roots.end(), std::back_inserter(directories),
                   [](upath const & root) { return root / u"resources"; });
    return directories;
}

ustring catalog_file_pattern(std::string_view id) {
    auto const colon = id.find(':');
    if (colon == id.npos || id.ends_with(':')) {
        return {};
    }
    ustring pattern = ascii::widen(id);
    std::replace(pattern.begin(), pattern.end(), u':', u'\\');
    return pattern.insert(colon, u"\\%S") + u".xml";
}

} // namespace fl::i18n
