#include "bench/contest.hpp"
#include "bench/our_catalogs.hpp"
#include "catalogs/catalog_file_loader.hpp"
#include "tests/support/std_path.hpp"
#include "tests/support/temporary_directory.hpp"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <expat.h>
#include <memory>

// Loading a catalog of 10,000 messages, and what Expat alone needs for its file.

namespace fl::bench {
namespace {

struct catalog_on_disk {
    catalog_on_disk() { directory.write(u"all.xml", catalog_file(0, message_count)); }
    filesystem::upath path() const { return directory.path() / u"all.xml"; }

    test::temporary_directory directory;
};

catalog_on_disk const & file() {
    static catalog_on_disk const result;
    return result;
}

void ours(benchmark::State & state) {
    auto const path = file().path();
    i18n::XMLCatalogFileLoader loader;
    for (auto _ : state) {
        auto store = std::make_shared<i18n::XMLCatalogDataStore>();
        if (!loader.load(path, store) || store->keys().size() != message_count) {
            state.SkipWithError("not loaded");
            break;
        }
        // A catalog lives as long as its process: to take it down again is not part of the work.
        state.PauseTiming();
        store.reset();
        state.ResumeTiming();
    }
}

using file_pointer = std::unique_ptr<std::FILE, decltype(&std::fclose)>;
using parser_pointer = std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)>;

void ignore_start(void *, XML_Char const *, XML_Char const **) {}
void ignore_end(void *, XML_Char const *) {}
void ignore_text(void *, XML_Char const *, int) {}

template <int block_size>
bool parse(char const * path) {
    file_pointer const stream(std::fopen(path, "rb"), std::fclose);
    parser_pointer const parser(XML_ParserCreate(nullptr), XML_ParserFree);
    XML_SetElementHandler(parser.get(), ignore_start, ignore_end);
    XML_SetCharacterDataHandler(parser.get(), ignore_text);
    for (bool more = stream != nullptr; more;) {
        void * const block = XML_GetBuffer(parser.get(), block_size);
        std::size_t const size = std::fread(block, 1, block_size, stream.get());
        more = size == block_size;
        if (XML_ParseBuffer(parser.get(), static_cast<int>(size), !more) != XML_STATUS_OK) {
            return false;
        }
    }
    return stream != nullptr;
}

template <int block_size>
void expat(benchmark::State & state) {
    std::string const path = test::std_path(file().path()).string();
    for (auto _ : state) {
        if (!parse<block_size>(path.c_str())) {
            state.SkipWithError("not parsed");
            break;
        }
    }
}

BENCHMARK(ours)->Name("load/10,000 messages, 1.13 MB/ours");
BENCHMARK(expat<1024>)->Name("load/10,000 messages, 1.13 MB/Expat, blocks of 1 KiB");
BENCHMARK(expat<65536>)->Name("load/10,000 messages, 1.13 MB/Expat, blocks of 64 KiB");

// A key that a catalog does not have, without the exception that tells callers.
i18n::XMLCatalogDataStore const & loaded_store() {
    static auto const result = [] {
        auto store = std::make_shared<i18n::XMLCatalogDataStore>();
        i18n::XMLCatalogFileLoader().load(file().path(), store);
        return store;
    }();
    return *result;
}

void find_missing(benchmark::State & state) {
    auto const & store = loaded_store();
    std::string key = "Knosuchkeyatallincatalogs";
    for (auto _ : state) {
        key.back() = key.back() == 'z' ? 'a' : static_cast<char>(key.back() + 1);
        auto const found = store.find(key);
        benchmark::DoNotOptimize(&found);
    }
}

void find_present(benchmark::State & state) {
    auto const & store = loaded_store();
    auto const & order = messages().order;
    std::size_t place = 0;
    for (auto _ : state) {
        auto const found = store.find(messages().keys[order[place]]);
        benchmark::DoNotOptimize(&found);
        place = place + 1 == order.size() ? 0 : place + 1;
    }
}

BENCHMARK(find_missing)->Name("miss/key of a catalog/ours");
BENCHMARK(find_present)->Name("miss/key of a catalog/a hit");

} // namespace
} // namespace fl::bench
