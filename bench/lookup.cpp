#include "bench/lookups.hpp"
#include "bench/our_catalogs.hpp"

#include <benchmark/benchmark.h>
#include <boost/throw_exception.hpp>
#include <boost/unordered/unordered_flat_map.hpp>
#include <fl/i18n/message_catalog.hpp>
#include <unordered_map>

// Texts by identifier: hot, from two threads, among many catalogs, and where there are none.

namespace fl::bench {
namespace {

using i18n::MessageCatalog;
using i18n::MessageID;

void look_up(benchmark::State & state, std::vector<MessageID> const & ids) {
    measure_lookups(state, [&ids](std::uint32_t i) { return MessageCatalog::get_message(ids[i]); });
}

void ours(benchmark::State & state) {
    look_up(state, in_one_catalog());
}
void ours_in_many_catalogs(benchmark::State & state) {
    look_up(state, in_many_catalogs());
}
/// One catalog of all that are loaded.
void ours_in_one_of_many(benchmark::State & state) {
    in_many_catalogs();
    ours(state);
}

/// What no lookup can do without: to find the key, and to copy the text.
template <typename Map>
void find_and_copy(benchmark::State & state) {
    static Map const map = [] {
        Map result;
        for (std::uint32_t i = 0; i < message_count; ++i) {
            std::string const text = text_of(i);
            result.emplace(key_of(i), std::u16string(text.begin(), text.end()));
        }
        return result;
    }();
    auto const & keys = messages().keys;
    measure_lookups(state, [&keys](std::uint32_t i) { return map.find(keys[i])->second; });
}
void standard_map(benchmark::State & state) {
    find_and_copy<std::unordered_map<std::string, std::u16string>>(state);
}
void flat_map(benchmark::State & state) {
    find_and_copy<boost::unordered_flat_map<std::string, std::u16string>>(state);
}

/// Measures a call that ends in an exception of a kind.
template <typename Exception, typename Call>
void measure_failures(benchmark::State & state, Call const & call) {
    for (auto _ : state) {
        try {
            call();
            state.SkipWithError("no exception");
            break;
        } catch (Exception const & error) {
            benchmark::DoNotOptimize(&error);
        }
    }
}

std::string const missing_key = "Knosuchkeyatallincatalogs";

MessageID missing_message() {
    return {i18n::CatalogID(in_one_catalog()[0].getCatalogID()), missing_key};
}

void no_key(benchmark::State & state) {
    measure_failures<MessageCatalog::MessageNotFound>(
        state, [id = missing_message()] { MessageCatalog::get_message(id); });
}

void hit_and_exception_for_key(benchmark::State & state) {
    measure_failures<MessageCatalog::MessageNotFound>(state, [&id = in_one_catalog()[0]] {
        benchmark::DoNotOptimize(MessageCatalog::get_message(id));
        boost::throw_exception(MessageCatalog::MessageNotFound("bench:all", missing_key));
    });
}

void no_language(benchmark::State & state) {
    measure_failures<MessageCatalog::MessageCatalogLoadFailed>(
        state, [id = MessageID(no_catalog(), missing_key)] { MessageCatalog::get_message(id); });
}

void hit_and_exception_for_language(benchmark::State & state) {
    measure_failures<MessageCatalog::MessageCatalogLoadFailed>(state, [&id = in_one_catalog()[0]] {
        benchmark::DoNotOptimize(MessageCatalog::get_message(id));
        boost::throw_exception(MessageCatalog::MessageCatalogLoadFailed("bench:none"));
    });
}

/// The catalog itself is what says, without an exception, that nothing is there.
void no_language_without_exception(benchmark::State & state) {
    i18n::CatalogID const & id = no_catalog();
    for (auto _ : state) {
        benchmark::DoNotOptimize(MessageCatalog::GetMessageCatalog(id));
    }
}

BENCHMARK(ours)->Name("lookup/hot/ours");
BENCHMARK(standard_map)->Name("lookup/hot/std::unordered_map");
BENCHMARK(flat_map)->Name("lookup/hot/boost::unordered_flat_map");

BENCHMARK(ours)->Name("lookup/two threads/ours")->Threads(2)->UseRealTime();
BENCHMARK(ours)->Name("lookup/two threads/one thread of ours")->UseRealTime();
BENCHMARK(flat_map)->Name("lookup/two threads/boost::unordered_flat_map")->Threads(2)->UseRealTime();

BENCHMARK(no_key)->Name("miss/no such key, exception/ours");
BENCHMARK(hit_and_exception_for_key)
    ->Name("miss/no such key, exception/a hit, and a throw to the same function");
BENCHMARK(no_language)->Name("miss/no such language, exception/ours");
BENCHMARK(hit_and_exception_for_language)
    ->Name("miss/no such language, exception/a hit, and a throw to the same function");
BENCHMARK(no_language_without_exception)->Name("miss/no such language/ours");
BENCHMARK(ours)->Name("miss/no such language/a hit");

BENCHMARK(ours_in_many_catalogs)->Name("many catalogs/10,000 of one message/ours");
BENCHMARK(ours_in_one_of_many)->Name("many catalogs/10,000 of one message/one catalog of them");

} // namespace
} // namespace fl::bench
