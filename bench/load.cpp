#include "bench/contest.hpp"
#include "bench/our_catalogs.hpp"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <expat.h>
#include <fl/i18n/message_catalog.hpp>
#include <memory>

// Loading a catalog of 10,000 messages, and what Expat alone needs for its file.

namespace fl::bench {
namespace {

/// The search for the file, and all that a look-up needs.
void ours(benchmark::State & state) {
    i18n::CatalogID const id = in_one_catalog()[0].getCatalogID();
    for (auto _ : state) {
        // A catalog lives as long as its process: to take it down again is not part of the work.
        state.PauseTiming();
        i18n::MessageCatalog::FlushCatalogFromCache(id);
        state.ResumeTiming();
        benchmark::DoNotOptimize(i18n::MessageCatalog::GetMessageCatalog(id));
    }
    if (i18n::MessageCatalog::GetMessageCatalog(id)->keys().size() != message_count) {
        state.SkipWithError("not loaded");
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
    std::string const path = file_of_one_catalog();
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

} // namespace
} // namespace fl::bench
