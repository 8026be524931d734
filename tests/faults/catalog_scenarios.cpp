#include "tests/faults/sweep.hpp"

#include <fl/i18n/catalog_config.hpp>
#include <fl/i18n/catalog_id.hpp>
#include <fl/i18n/lookup_report.hpp>
#include <fl/i18n/message_catalog.hpp>

namespace fl::test {

using namespace i18n;
using messagecatalog::ConfigurationManagerFactory;
using resource_core::BaseCatalogID;
using Arguments = std::vector<MessageCatalog::Argument>;

namespace {

constexpr char long_catalog[] = "app:a_sub_component_with_a_name_that_is_long:ui";

void use_catalogs() {
    MessageCatalog::GetMessageCatalog(CatalogID("app:extra"));
    MessageCatalog::GetMessageCatalog(CatalogID("app:none"));
}

/// Forgets what a fault has left known as not loaded.
std::function<void()> forgets(std::vector<std::string> ids) {
    return [ids = std::move(ids)] {
        for (auto const & id : ids) {
            MessageCatalog::FlushCatalogFromCache(CatalogID(id));
        }
    };
}

/// Returns a scenario that loads a catalog, which stays loaded, or known as malformed, when what follows
/// fails.
template <class Action>
scenario load(char const * name, std::string id, Action action) {
    auto const prepare = [=](fault_files const &) {
        use_catalogs();
        auto const open = [id] { MessageCatalog::GetMessageCatalog(CatalogID(id)); };
        return trial{acting(action), [] { return std::string(); }, {open}, forgets({id})};
    };
    return {name,
            prepare,
            {"Message Catalog app:", "failed Message Catalog app:", "failed std::bad_alloc"},
            {},
            true};
}

scenario load_plain(char const * name, std::string id) {
    return load(name, id, [id] { return MessageCatalog::GetMessageCatalog(CatalogID(id))->text("Plain"); });
}

trial lookup_in_further_locale(fault_files const &) {
    auto const open = [] { MessageCatalog::GetMessageCatalog(CatalogID("app:ui")); };
    open();
    auto const act = [] {
        return MessageCatalog::GetMessageCatalog(CatalogID("app:ui"), *QzLocale::createLocale("ja_XX"));
    };
    auto const again = [=] {
        forgets({"app:ui"})();
        open();
    };
    return {acting([=] { return act()->text("Plain"); }), [] { return std::string(); }, {act}, again};
}

trial initialise(fault_files const & files) {
    use_catalogs();
    std::vector const roots{files.path("more"), files.path("none"), files.path("two") + u'\\',
                            files.path("one")};
    return {acting([roots] { return MessageCatalog::MessageCatalogInit(roots); })};
}

/// Returns what prepares an initialisation with critical catalogs of which some are cached; "" is a null
/// pointer.
auto initialise_with(std::vector<std::string> ids) {
    return [ids = std::move(ids)](fault_files const & files) {
        use_catalogs();
        std::vector const roots{files.path("more"), files.path("one")};
        auto const act = [roots, catalogs = std::vector<BaseCatalogID>(ids.begin(), ids.end())] {
            std::vector<BaseCatalogID const *> pointers;
            for (auto const & id : catalogs) {
                pointers.push_back(id.getCatalogID().empty() ? nullptr : &id);
            }
            return MessageCatalog::MessageCatalogInit(roots, pointers);
        };
        std::vector<std::string> missing = ids;
        std::erase_if(missing,
                      [](std::string const & id) { return id == "app:extra" || !id.starts_with("app:"); });
        return trial{acting(act), [] { return std::string(); }, {}, forgets(missing)};
    };
}

scenario initialise_with_many() {
    std::vector<std::string> ids = {"app:more", "app:critical1", "app:extra"};
    for (unsigned i = 0; i < critical_catalogs; ++i) {
        ids.push_back("app:critical" + std::to_string(i));
    }
    // Cached behind the others, for which the table has to grow, under a key with memory of its own.
    ids.push_back(long_catalog);
    return {
        "initialise with critical catalogs", initialise_with(ids), {"Incorrect Message Root Set"}, {}, true};
}

trial initialise_from_registry(fault_files const & files) {
    auto & registry = ConfigurationManagerFactory::Get();
    registry.SetSearchPath(std::vector{files.path("one"), files.path("more")});
    registry.SetCriticalCatalogs(std::vector{CatalogID("app:ui"), CatalogID("app:more")});
    return {acting(&MessageCatalog::MessageCatalogInitFromConfigManager),
            [] { return std::string(); },
            {},
            forgets({"app:ui", "app:more"})};
}

trial set_locations(fault_files const & files) {
    MessageCatalog::set_additional_resource_locations({files.path("two")});
    return {acting([one = files.path("one"), more = files.path("more")] {
        MessageCatalog::set_additional_resource_locations({one, more});
    })};
}

template <bool IsListed>
trial remove_location(fault_files const & files) {
    MessageCatalog::set_additional_resource_locations({files.path("two"), files.path("more")});
    return {acting([path = files.path(IsListed ? "two" : "one")] {
        MessageCatalog::remove_additional_resource_location(path);
    })};
}

trial register_path(fault_files const & files) {
    return {acting([path = std::vector(4, files.path("one"))] {
        return ConfigurationManagerFactory::Get().SetSearchPath(path);
    })};
}

/// The path is replaced by one that the memory of the old one could hold.
trial update_path(fault_files const & files) {
    ConfigurationManagerFactory::Get().SetSearchPath(std::vector<ustring>{u"a", u"b", u"c", u"d"});
    return {acting([path = std::vector{files.path("one"), files.path("two")}] {
        ConfigurationManagerFactory::Get().UpdateSearchPath(path);
    })};
}

std::error_code register_format() {
    // More than fits into a function object.
    auto const provider = [name = std::string(40, 'x')] {
        return name.empty() ? numeric_format::simple_long : numeric_format::scientific_short;
    };
    return ConfigurationManagerFactory::Get().SetDoubleFormat({provider});
}

std::string explain() {
    auto const report =
        explain_lookup(MessageID("app:ui:Message7"), QzLocale::global(), {std::int64_t(12)}, {});
    done();
    if (!report.error.empty()) {
        return "failed " + report.error;
    }
    std::string text =
        ustring_to_utf8(report.path + u' ' + report.text) + std::to_string(report.holes.size());
    for (auto const & key : report.cache_keys) {
        text += ' ' + key.key + (key.stored ? " stored" : "");
    }
    return text;
}

auto format(
    ustring message, Arguments arguments, void (*prepare)() = [] {}) {
    return action([=] { return MessageCatalog::GetFormattedMessage(message, arguments); }, prepare);
}

std::string show(MessageID const & id) {
    return id.getCompositeID() + ' ' + id.getCatalogID() + ' ' + id.getMsgKey();
}

auto set_message_id(std::string text) {
    return action_on(MessageID("component:sub:an_old_key_that_is_longer_than_short_strings"), show,
                     [text](MessageID & id) { id.setCompositeMsgID(text); });
}

} // namespace

std::vector<scenario> catalog_scenarios() {
    std::vector<std::string> const bad_id = {"Bad Catalog ID", "Incorrect Message Root Set"};
    std::vector<std::string> const not_usable = {"Incorrect Message Root Set"};
    std::vector<std::string> const not_removed = {"Unknown error while removal of path!",
                                                  "Resource path not found!", "Resource directory not found"};
    std::vector<scenario> all = {
        load("look up", "app:ui", [] { return MessageCatalog::get_message(MessageID("app:ui:Plain")); }),
        load("look up in a malformed catalog", "app:bad",
             [] { return MessageCatalog::get_message(resource_core::BaseMsgID("app:bad:k")); }),
        load_plain("load by a long identifier", long_catalog),
        load_plain("load a catalog in UTF-16", "app:utf16"),
        load_plain("load a catalog with entities", "app:entities"),
        load_plain("load a large catalog", "app:large"),
        load("explain a lookup", "app:ui", explain),
        {"look up in a further locale", lookup_in_further_locale, {"Message Catalog app:"}, {}, true},
        {"initialise", initialise, not_usable, {}, true},
        {"initialise with a relative root",
         action([] { return MessageCatalog::MessageCatalogInit(u"more"); }), not_usable},
        initialise_with_many(),
        {"initialise with a bad catalog", initialise_with({"app:critical1", "app:extra", "none"}), bad_id},
        {"initialise with a null catalog", initialise_with({"app:critical1", ""}), bad_id},
        {"initialise from the registry", initialise_from_registry, not_usable, {}, true},
        {"initialise from an empty registry",
         action(&MessageCatalog::MessageCatalogInitFromConfigManager),
         {"Configuration not found"}},
        {"set additional locations", set_locations, {"Resource directory not found"}},
        {"remove an additional location", remove_location<true>, not_removed},
        {"remove an unknown location", remove_location<false>, not_removed},
        {"flush",
         action([] { MessageCatalog::FlushCatalogFromCache(CatalogID("app:extra")); }, use_catalogs)},
        {"register a path", register_path},
        {"register a path again",
         [](fault_files const & files) { return register_path(files).act(), register_path(files); }},
        {"register catalogs", action([] {
             std::vector const ids(3, CatalogID(long_catalog));
             return ConfigurationManagerFactory::Get().SetCriticalCatalogs(ids);
         })},
        {"register a format", action(register_format)},
        {"update the path", update_path},
        {"format", format(u"{0} of {1}, {2} and {3} in a text that is longer than a short one",
                          {std::int64_t(1), std::string(40, 'x'), ustring(40, u'\u00e9'), 1.5})},
        {"format a plural",
         format(u"{0,plural,one{# file of {1}}other{# files of {1} and {2,number,percent}}} '{'x'}' {3}",
                {std::int64_t(3), ustring(300, u'y'), 0.5, 1e-300})},
        {"format without arguments", format(u"It''s a message of many units without any hole", {})},
        {"format by a provider",
         format(u"{0} {1} {0,number}", {12345.678, std::string("text")}, [] { register_format(); })},
        {"tell the type of a hole",
         action([] { return MessageCatalog::GetCustomHoleType(u"{0} {1,selectordinal,other{x}}", 1); })},
        {"set a message identifier",
         set_message_id("a_component_of_some_length:sub_component_of_length:key_of_length")},
        {"refuse a message identifier",
         set_message_id("a_component_of_some_length:key of length"),
         {"Bad Message ID"}},
        {"make a message identifier", action_on(MessageID(), show,
                                                [](MessageID & id) {
                                                    id = MessageID(CatalogID(long_catalog),
                                                                   "a_key_that_is_longer_than_short_ones");
                                                })},
        {"set a catalog identifier",
         action_on(
             CatalogID("component:an_old_name_that_is_longer_than_short_strings"),
             [](CatalogID const & id) {
                 return id.getCatalogID() + id.getComponentName() + id.getSubComponentsNames();
             },
             [](CatalogID & id) {
                 id.setCatalogID("another_component_of_some_length:sub_component_of_length:ui");
             })},
    };
    return all;
}

} // namespace fl::test
