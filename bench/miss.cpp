#include "bench/lookups.hpp"
#include "bench/our_catalogs.hpp"
#include "catalogs/catalog_service.hpp"

// A key that a catalog does not have, without the exception that tells callers.

namespace fl::bench {
namespace {

i18n::message_texts texts_of(std::string_view catalog) {
    return i18n::process_catalog_service().get_texts(catalog, i18n::QzLocale::global());
}

void missing(benchmark::State & state) {
    std::string const catalog = in_one_catalog()[0].getCatalogID();
    // Keys of messages behind the last one.
    std::vector<std::string> keys;
    for (std::uint32_t i = 0; i < message_count; ++i) {
        keys.push_back(key_of(message_count + i));
    }
    std::size_t place = 0;
    // Loads the catalog.
    texts_of(catalog);
    for (auto _ : state) {
        auto const text = texts_of(catalog).find(keys[place]);
        if (text) {
            state.SkipWithError("found");
            break;
        }
        place = place + 1 == keys.size() ? 0 : place + 1;
    }
}

void found(benchmark::State & state) {
    std::string const catalog = in_one_catalog()[0].getCatalogID();
    auto const & keys = messages().keys;
    measure_lookups(state, [&](std::uint32_t i) { return i18n::ustring(*texts_of(catalog).find(keys[i])); });
}

BENCHMARK(missing)->Name("miss/no such key/ours");
BENCHMARK(found)->Name("miss/no such key/a hit");

} // namespace
} // namespace fl::bench
