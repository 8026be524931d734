// The start-up of the locale management: the whole context, built again and again in one process.

#include "locale/qz_locale_ctx.hpp"

#include <array>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <expat.h>
#include <filesystem>
#include <memory>

namespace {

using fl::i18n::lcmgmt::QzLocaleCtx;
using fl::i18n::lcmgmt::startup_inputs;

std::filesystem::path const database_directory = FL_I18N_BENCH_RESOURCES;

startup_inputs inputs_of_a_system(bool with_database) {
    startup_inputs inputs;
    inputs.settings.category_names.fill({"de_DE.UTF-8"});
    if (with_database) {
        inputs.environment["QZLOCALE_LCDATA_PATH"] = database_directory.u16string();
    }
    return inputs;
}

void start_up(benchmark::State & state, bool with_database) {
    startup_inputs const inputs = inputs_of_a_system(with_database);
    for (auto _ : state) {
        auto context = std::make_unique<QzLocaleCtx const>(inputs);
        // The context of a process is never destroyed.
        state.PauseTiming();
        if (context->database_path().empty() == with_database) {
            state.SkipWithError("not the start-up that was meant");
            break;
        }
        context.reset();
        state.ResumeTiming();
    }
}

/// Parses the database with handlers that do nothing, in blocks of the size in which the library reads it.
void parse_database(benchmark::State & state) {
    std::string const path = (database_directory / "lcdata.xml").string();
    for (auto _ : state) {
        std::FILE * const file = std::fopen(path.c_str(), "rb");
        XML_Parser const parser = XML_ParserCreate("UTF-8");
        XML_SetElementHandler(
            parser, [](void *, char const *, char const **) {}, [](void *, char const *) {});
        XML_SetCharacterDataHandler(parser, [](void *, char const *, int) {});
        std::array<char, 1024> block;
        for (bool last = false; !last;) {
            std::size_t const length = std::fread(block.data(), 1, block.size(), file);
            last = length < block.size();
            if (XML_Parse(parser, block.data(), static_cast<int>(length), last) != XML_STATUS_OK) {
                state.SkipWithError("the database is malformed");
                break;
            }
        }
        XML_ParserFree(parser);
        std::fclose(file);
    }
}

BENCHMARK_CAPTURE(start_up, without, false)->Name("start-up/without database/ours");
BENCHMARK_CAPTURE(start_up, with, true)->Name("start-up/with database/ours");
BENCHMARK(parse_database)->Name("start-up/with database/Expat, blocks of 1 KiB");

} // namespace
