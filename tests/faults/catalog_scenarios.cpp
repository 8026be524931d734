#include "tests/faults/sweep.hpp"

#include <fl/i18n/catalog_config.hpp>
#include <fl/i18n/catalog_id.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/lookup_report.hpp>
#include <fl/i18n/message_catalog.hpp>
#include <memory>

namespace fl::test {

using namespace i18n;
using messagecatalog::ConfigurationManagerFactory;
using resource_core::BaseCatalogID;
using Arguments = std::vector<MessageCatalog::Argument>;

namespace {

constexpr char not_loaded[] = "Message Catalog app:";
constexpr char not_usable[] = "Incorrect Message Root Set";
constexpr char long_catalog[] = "app:a_sub_component_with_a_name_that_is_long:ui";

std::string answer(ustring const & text) {
    done();
    return ustring_to_utf8(text);
}

std::string answer(bool result) {
    done();
    return result ? "true" : "false";
}

std::string answer(std::error_code const & code) {
    done();
    return code.message();
}

/// Acts by `action` on an object and shows it by `show`.
template <class T, class Action, class Show>
trial on_object(T initial, Action action, Show show) {
    auto const object = std::make_shared<T>(std::move(initial));
    return {[=] {
                action(*object);
                done();
                return show(*object);
            },
            [=] { return show(*object); }};
}

std::string show_id(MessageID const & id) {
    return id.getCompositeID() + ' ' + id.getCatalogID() + ' ' + id.getMsgKey();
}

std::string show_catalog_id(CatalogID const & id) {
    return id.getCatalogID() + ' ' + id.getComponentName() + ' ' + id.getSubComponentsNames();
}

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

trial first_lookup(fault_files const &) {
    use_catalogs();
    auto const id = std::make_shared<MessageID>("app:ui:Plain");
    return {[id] { return answer(MessageCatalog::get_message(*id)); },
            [] { return std::string(); },
            {[] { MessageCatalog::GetMessageCatalog(CatalogID("app:ui")); }},
            forgets({"app:ui"})};
}

trial lookup_by_long_id(fault_files const &) {
    auto const id = std::make_shared<resource_core::BaseMsgID>(std::string(long_catalog) + ":Message3");
    return {[id] {
                try {
                    return answer(MessageCatalog::get_message(*id));
                } catch (MessageCatalog::IncorrectHoleCount const &) {
                    done();
                    return std::string("a hole");
                }
            },
            [] { return std::string(); },
            {[] { MessageCatalog::GetMessageCatalog(CatalogID(long_catalog)); }},
            forgets({long_catalog})};
}

template <std::size_t Number>
trial load(fault_files const &) {
    static CatalogID const ids[] = {CatalogID("app:utf16"), CatalogID("app:entities"),
                                    CatalogID("app:large")};
    return {[] { return answer(MessageCatalog::GetMessageCatalog(ids[Number])->text("Plain")); },
            [] { return std::string(); },
            {[] { MessageCatalog::GetMessageCatalog(ids[Number]); }},
            forgets({ids[Number].getCatalogID()})};
}

trial lookup_in_further_locale(fault_files const &) {
    MessageCatalog::GetMessageCatalog(CatalogID("app:ui"));
    std::shared_ptr<QzLocale const> const locale = QzLocale::createLocale("ja_XX");
    auto const id = std::make_shared<CatalogID>("app:ui");
    return {[=] { return answer(MessageCatalog::GetMessageCatalog(*id, *locale)->text("Plain")); },
            [] { return std::string(); },
            {[=] { MessageCatalog::GetMessageCatalog(*id, *locale); }},
            [id] {
                MessageCatalog::FlushCatalogFromCache(*id);
                MessageCatalog::GetMessageCatalog(*id);
            }};
}

trial lookup_of_nothing(fault_files const &) {
    auto const id = std::make_shared<MessageID>("app:bad:k");
    // A malformed catalog stays known as such.
    return {[id] { return answer(MessageCatalog::get_message(*id)); },
            [] { return std::string(); },
            {[] { MessageCatalog::GetMessageCatalog(CatalogID("app:bad")); }},
            forgets({"app:bad"})};
}

trial initialise(fault_files const & files) {
    use_catalogs();
    auto const roots = std::make_shared<std::vector<ustring>>(
        std::vector{files.path("more"), files.path("none"), files.path("two") + u'\\', files.path("one")});
    return {[roots] { return answer(MessageCatalog::MessageCatalogInit(*roots)); }};
}

/// The program stands in the directory of the files.
trial initialise_relative(fault_files const &) {
    use_catalogs();
    return {[] { return answer(MessageCatalog::MessageCatalogInit(u"more")); }};
}

/// The initialisation with critical catalogs of which some are cached.
trial initialise_critical(fault_files const & files, std::vector<std::string> const & missing,
                          std::vector<std::string> const & ids) {
    use_catalogs();
    struct input {
        std::vector<ustring> roots;
        std::vector<BaseCatalogID> ids;
        std::vector<BaseCatalogID const *> pointers;
    };
    auto const in = std::make_shared<input>();
    in->roots = {files.path("more"), files.path("one")};
    in->ids.assign(ids.begin(), ids.end());
    for (auto const & id : in->ids) {
        in->pointers.push_back(id.getCatalogID().empty() ? nullptr : &id);
    }
    return {[in] { return answer(MessageCatalog::MessageCatalogInit(in->roots, in->pointers)); },
            [] { return std::string(); },
            {},
            forgets(missing)};
}

trial initialise_with_catalogs(fault_files const & files) {
    std::vector<std::string> ids = {"app:more"};
    for (unsigned i = 0; i < critical_catalogs; ++i) {
        ids.push_back("app:critical" + std::to_string(i));
    }
    std::vector<std::string> const missing = ids;
    ids.insert(ids.begin() + 3, {"app:extra", "app:critical1"});
    return initialise_critical(files, missing, ids);
}

trial initialise_with_bad_catalog(fault_files const & files) {
    return initialise_critical(files, {}, {"app:critical1", "app:extra", "no identifier"});
}

trial initialise_with_null_catalog(fault_files const & files) {
    return initialise_critical(files, {}, {"app:critical1", ""});
}

trial initialise_from_registry(fault_files const & files) {
    auto & registry = ConfigurationManagerFactory::Get();
    registry.SetSearchPath(std::vector{files.path("one"), files.path("more")});
    registry.SetCriticalCatalogs(std::vector{CatalogID("app:ui"), CatalogID("app:more")});
    return {[] { return answer(MessageCatalog::MessageCatalogInitFromConfigManager()); },
            [] { return std::string(); },
            {},
            forgets({"app:ui", "app:more"})};
}

trial initialise_from_empty_registry(fault_files const &) {
    return {[] { return answer(MessageCatalog::MessageCatalogInitFromConfigManager()); }};
}

trial set_locations(fault_files const & files) {
    MessageCatalog::set_additional_resource_locations({files.path("two")});
    auto const locations =
        std::make_shared<std::vector<ustring>>(std::vector{files.path("one"), files.path("more")});
    return {[=] {
        MessageCatalog::set_additional_resource_locations(*locations);
        return answer(true);
    }};
}

trial remove_location(fault_files const & files) {
    MessageCatalog::set_additional_resource_locations({files.path("two"), files.path("more")});
    auto const location = std::make_shared<ustring>(files.path("two"));
    return {[=] {
        MessageCatalog::remove_additional_resource_location(*location);
        return answer(true);
    }};
}

trial remove_unknown_location(fault_files const & files) {
    auto const location = std::make_shared<ustring>(files.path("two"));
    return {[=] {
        MessageCatalog::remove_additional_resource_location(*location);
        return answer(true);
    }};
}

trial flush(fault_files const &) {
    use_catalogs();
    auto const id = std::make_shared<CatalogID>("app:extra");
    return {[id] {
        MessageCatalog::FlushCatalogFromCache(*id);
        return answer(true);
    }};
}

trial register_path(fault_files const & files) {
    return {[&files, path = std::make_shared<std::vector<ustring>>(4, files.path("one"))] {
        return answer(ConfigurationManagerFactory::Get().SetSearchPath(*path));
    }};
}

trial register_twice(fault_files const & files) {
    register_path(files).act();
    return register_path(files);
}

trial register_catalogs(fault_files const &) {
    auto const ids = std::make_shared<std::vector<CatalogID>>(3, CatalogID(long_catalog));
    return {[ids] { return answer(ConfigurationManagerFactory::Get().SetCriticalCatalogs(*ids)); }};
}

trial register_format(fault_files const &) {
    // More than fits into a function object.
    return {[name = std::string(40, 'x')] {
        auto const provider = [name] {
            return name.empty() ? numeric_format::simple_long : numeric_format::scientific_short;
        };
        return answer(ConfigurationManagerFactory::Get().SetDoubleFormat({provider}));
    }};
}

/// The search path is replaced by one that the memory of the old one could hold.
trial update_path(fault_files const & files) {
    auto & registry = ConfigurationManagerFactory::Get();
    registry.SetSearchPath(std::vector<ustring>{u"a", u"b", u"c", u"d"});
    auto const path =
        std::make_shared<std::vector<ustring>>(std::vector{files.path("one"), files.path("two")});
    return {[path] {
        ConfigurationManagerFactory::Get().UpdateSearchPath(*path);
        return answer(true);
    }};
}

std::string show(LookupReport const & report) {
    done();
    if (!report.error.empty()) {
        return "failed " + report.error;
    }
    std::string text = ustring_to_utf8(report.path + u' ' + report.text) + ' ' +
                       std::to_string(report.holes.size()) + ' ' + std::to_string(report.candidates.size());
    for (auto const & key : report.cache_keys) {
        text += ' ' + key.key + (key.stored ? " stored" : "");
    }
    return text;
}

trial explain(fault_files const &) {
    auto const id = std::make_shared<MessageID>("app:ui:Message7");
    auto const arguments = std::make_shared<Arguments>(Arguments{std::int64_t(12)});
    return {[=] { return show(explain_lookup(*id, QzLocale::global(), *arguments, std::nullopt)); },
            [] { return std::string(); },
            {[] { MessageCatalog::GetMessageCatalog(CatalogID("app:ui")); }},
            forgets({"app:ui"})};
}

template <std::size_t Number>
trial format(fault_files const &) {
    struct row {
        char16_t const * message;
        Arguments arguments;
    };
    static row const rows[] = {
        {u"{0} of {1}, {2} and {3} in a text that is longer than a short one",
         {std::int64_t(1), std::string("a text of bytes that is not short"), ustring(40, u'\u00e9'), 1.5}},
        {u"{0,plural,one{# file of {1}}other{# files of {1} and {2,number,percent}}} '{'x'}' {3}",
         {std::int64_t(3), ustring(300, u'y'), 0.5, 1e-300}},
        {u"It''s a message of many units without any hole but with an apostrophe", {}},
    };
    return {[] {
        return answer(MessageCatalog::GetFormattedMessage(rows[Number].message, rows[Number].arguments));
    }};
}

trial format_by_provider(fault_files const & files) {
    register_format(files).act();
    return {[] {
        static Arguments const arguments{12345.678, std::string("text")};
        return answer(MessageCatalog::GetFormattedMessage(u"{0} {1} {0,number}", arguments));
    }};
}

trial hole_type(fault_files const &) {
    return {[] { return answer(MessageCatalog::GetCustomHoleType(u"{0} {1,selectordinal,other{x}}", 1)); }};
}

trial assign_message_id(fault_files const &) {
    return on_object(
        MessageID("component:sub:an_old_key_that_is_longer_than_short_strings"),
        [](MessageID & id) {
            id.setCompositeMsgID("another_component_of_some_length:sub_component_of_length:key_of_length");
        },
        show_id);
}

trial make_message_id(fault_files const &) {
    return on_object(
        MessageID(),
        [](MessageID & id) {
            id = MessageID(CatalogID(long_catalog), "a_key_that_is_longer_than_short_ones");
        },
        show_id);
}

trial refuse_message_id(fault_files const &) {
    return on_object(
        MessageID("app:ui:key"),
        [](MessageID & id) {
            id.setCompositeMsgID("another_component_of_some_length:sub:component of length");
        },
        show_id);
}

trial assign_catalog_id(fault_files const &) {
    return on_object(
        CatalogID("component:an_old_name_that_is_longer_than_short_strings"),
        [](CatalogID & id) {
            id.setCatalogID("another_component_of_some_length:sub_component_of_length:further");
        },
        show_catalog_id);
}

} // namespace

std::vector<scenario> catalog_scenarios() {
    std::string const bad_id = "Bad Catalog ID";
    return {
        {"first lookup", first_lookup, {not_loaded}, {}, true},
        {"lookup by a long identifier", lookup_by_long_id, {not_loaded}, {}, true},
        {"load a catalog in UTF-16", load<0>, {not_loaded}, {}, true},
        {"load a catalog with entities", load<1>, {not_loaded}, {}, true},
        {"load a large catalog", load<2>, {not_loaded}, {}, true},
        {"lookup in a further locale", lookup_in_further_locale, {not_loaded}, {}, true},
        {"lookup in a malformed catalog", lookup_of_nothing, {not_loaded}, {}, true},
        {"initialise", initialise, {not_usable}, {}, true},
        {"initialise with a relative root", initialise_relative, {not_usable}},
        {"initialise with critical catalogs", initialise_with_catalogs, {not_usable}, {}, true},
        {"initialise with a bad catalog identifier", initialise_with_bad_catalog, {bad_id, not_usable}},
        {"initialise with no catalog identifier", initialise_with_null_catalog, {bad_id, not_usable}},
        {"initialise from the registry", initialise_from_registry, {not_usable}, {}, true},
        {"initialise from an empty registry", initialise_from_empty_registry, {"Configuration not found"}},
        {"set additional locations", set_locations, {"Resource directory not found"}},
        {"remove an additional location", remove_location, {"Unknown error while removal of path!"}},
        {"remove an unknown location",
         remove_unknown_location,
         {"Unknown error while removal of path!", "Resource path not found!",
          "Resource directory not found"}},
        {"flush", flush},
        {"register a search path", register_path},
        {"register a search path again", register_twice},
        {"register critical catalogs", register_catalogs},
        {"register a format", register_format},
        {"update the search path", update_path},
        {"explain a lookup", explain, {"failed std::bad_alloc", "failed Message Catalog app:"}, {}, true},
        {"format", format<0>},
        {"format a plural", format<1>},
        {"format without arguments", format<2>},
        {"format by a provider", format_by_provider},
        {"tell the type of a hole", hole_type},
        {"assign a message identifier", assign_message_id},
        {"make a message identifier", make_message_id},
        {"refuse a message identifier", refuse_message_id, {"Bad Message ID"}},
        {"assign a catalog identifier", assign_catalog_id},
    };
}

} // namespace fl::test
