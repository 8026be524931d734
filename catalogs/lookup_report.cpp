#include <fl/i18n/lookup_report.hpp>

#include "catalogs/catalog_service.hpp"
#include "catalogs/message_formatting.hpp"
#include "catalogs/message_pattern.hpp"

#include <fl/i18n/fallback_locales.hpp>

namespace fl::i18n {

namespace {

catalog_service::catalog_pointer find_catalog(QzLocale const & locale, LookupReport & report) {
    report.messages_locale = locale.getLcName(QzLocale::LcCategory::messages);
    report.fallback_chain = get_fallback_locales(locale);
    auto catalog = process_catalog_service().get_catalog(report.catalog, locale, &report);
    report.path = catalog->path().string();
    report.found_locale = catalog->locale();
    report.loaded = catalog->loaded();
    return catalog;
}

void find_text(MessageCatalogImpl const & catalog, LookupReport & report) {
    report.step = report.path.empty() ? LookupStep::find_file
                  : !report.loaded    ? LookupStep::load_file
                                      : LookupStep::find_key;
    report.raw_text = catalog.text(report.key);
    report.key_found = true;
}

void fill_holes(std::vector<MessageCatalog::Argument> const & args,
                std::optional<numeric_format> const & format, LookupReport & report) {
    report.step = LookupStep::fill_holes;
    message_pattern const pattern(report.raw_text);
    pattern.check();
    for (auto const & hole : pattern.holes()) {
        report.holes.push_back({ustring(hole.name), hole.type()});
    }
    report.holes_expected = pattern.expected_arguments();
    report.text = format_message(report.raw_text, args, format);
    report.step = LookupStep::done;
}

} // namespace

LookupReport explain_lookup(MessageID const & id, QzLocale const & locale,
                            std::vector<MessageCatalog::Argument> const & args,
                            std::optional<numeric_format> const & format) {
    LookupReport report;
    report.catalog = id.getCatalogID();
    report.key = id.getMsgKey();
    report.arguments_given = args.size();
    try {
        auto const catalog = find_catalog(locale, report);
        find_text(*catalog, report);
        fill_holes(args, format, report);
    } catch (std::exception const & error) {
        report.error = error.what();
    } catch (...) {
        // Only the provider of the numeric format can throw something else.
        report.error = "Unknown exception";
    }
    return report;
}

} // namespace fl::i18n
