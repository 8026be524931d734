#include "bench/lookups.hpp"
#include "bench/our_catalogs.hpp"

#include <benchmark/benchmark.h>
#include <boost/throw_exception.hpp>
#include <boost/unordered/unordered_flat_map.hpp>
#include <fl/i18n/message_catalog.hpp>
#include <mutex>
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

/// By the identifier in one text, which has to be taken apart first.
void ours_by_one_text(benchmark::State & state) {
    std::vector<resource_core::BaseMsgID> ids;
    for (MessageID const & id : in_one_catalog()) {
        ids.emplace_back(id.getCatalogID() + ':' + id.getMsgKey());
    }
    measure_lookups(state, [&ids](std::uint32_t i) { return MessageCatalog::get_message(ids[i]); });
}

template <typename Map>
Map const & texts_in() {
    static Map const result = [] {
        Map map;
        for (std::uint32_t i = 0; i < message_count; ++i) {
            std::string const text = text_of(i);
            map.emplace(key_of(i), std::u16string(text.begin(), text.end()));
        }
        return map;
    }();
    return result;
}

/// What no lookup can do without: to find the key, and to copy the text.
template <typename Map>
void find_and_copy(benchmark::State & state) {
    measure_lookups(state, [&map = texts_in<Map>(), &keys = messages().keys](std::uint32_t i) {
        return map.find(keys[i])->second;
    });
}
using standard_map = std::unordered_map<std::string, std::u16string>;
using flat_map = boost::unordered_flat_map<std::string, std::u16string>;

/// The same, and counted before under a mutex, as each look-up of ours has to be.
void count_find_and_copy(benchmark::State & state) {
    static std::mutex mutex;
    static std::uint64_t hits = 0;
    measure_lookups(state, [&map = texts_in<flat_map>(), &keys = messages().keys](std::uint32_t i) {
        mutex.lock();
        benchmark::DoNotOptimize(++hits);
        mutex.unlock();
        return map.find(keys[i])->second;
    });
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
BENCHMARK(find_and_copy<standard_map>)->Name("lookup/hot/std::unordered_map");
BENCHMARK(find_and_copy<flat_map>)->Name("lookup/hot/boost::unordered_flat_map");
BENCHMARK(count_find_and_copy)->Name("lookup/hot/boost::unordered_flat_map under a mutex");

BENCHMARK(ours_by_one_text)->Name("lookup/by one text/ours");
BENCHMARK(ours)->Name("lookup/by one text/by an identifier of two");

BENCHMARK(ours)->Name("lookup/two threads/ours")->Threads(2)->UseRealTime();
BENCHMARK(ours)->Name("lookup/two threads/one thread of ours")->UseRealTime();
BENCHMARK(find_and_copy<flat_map>)
    ->Name("lookup/two threads/boost::unordered_flat_map")
    ->Threads(2)
    ->UseRealTime();
BENCHMARK(count_find_and_copy)
    ->Name("lookup/two threads/boost::unordered_flat_map under a mutex")
    ->Threads(2)
    ->UseRealTime();

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
