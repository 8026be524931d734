#include "bench/contest.hpp"
#include "bench/heap.hpp"
#include "bench/our_catalogs.hpp"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <fl/i18n/message_catalog.hpp>
#include <unordered_map>

// Bytes for each of 10,000 messages in memory.

namespace fl::bench {
namespace {

/// The bytes of a key and a text, without which nobody can do.
constexpr double payload = 25 + 58 * 2;

void report_bytes(benchmark::State & state, double bytes) {
    for (auto _ : state) {
    }
    state.counters["bytes"] = bytes;
}

void ours(benchmark::State & state) {
    i18n::CatalogID const id = in_one_catalog()[0].getCatalogID();
    i18n::MessageCatalog::FlushCatalogFromCache(id);
    double const bytes = heap_growth([&id] { i18n::MessageCatalog::GetMessageCatalog(id); });
    report_bytes(state, bytes / message_count);
}

void standard_map(benchmark::State & state) {
    std::unordered_map<std::string, std::u16string> map;
    double const bytes = heap_growth([&map] {
        for (std::uint32_t i = 0; i < message_count; ++i) {
            map.emplace(messages().keys[i], messages().texts[i]);
        }
    });
    report_bytes(state, bytes / message_count);
}

/// The size of the file, which is mapped.
void gettext(benchmark::State & state) {
    auto const bytes = std::filesystem::file_size(FL_I18N_BENCH_DATA "/gettext/ja/LC_MESSAGES/contest.mo");
    report_bytes(state, static_cast<double>(bytes) / message_count);
}

void limit(benchmark::State & state) {
    report_bytes(state, 1.5 * payload + 100);
}

BENCHMARK(ours)->Name("memory/one of 10,000 messages/ours");
BENCHMARK(limit)->Name("memory/one of 10,000 messages/1.5 payloads and 100 bytes");
BENCHMARK(standard_map)->Name("memory/one of 10,000 messages/std::unordered_map");
BENCHMARK(gettext)->Name("memory/one of 10,000 messages/gettext");

} // namespace
} // namespace fl::bench
