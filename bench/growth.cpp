#include "bench/contest.hpp"
#include "bench/heap.hpp"
#include "bench/our_catalogs.hpp"
#include "bench/statistics.hpp"
#include "lookup/resource_search.hpp"
#include "tests/support/temporary_directory.hpp"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/message_catalog.hpp>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <thread>

// How the cost of look-ups, catalogs and searches grows with messages, catalogs, threads, names and roots.
// Writes a file of columns for each, which docs/growth.png is drawn of.

namespace {

using namespace fl;
using namespace fl::bench;
using filesystem::upath;
using i18n::CatalogID;
using i18n::MessageCatalog;
using i18n::MessageID;

constexpr int usual_passes = 17;

/// Measures an action in nanoseconds, by the time that the process has used or, for several threads, by that
/// on the wall.
template <typename Action>
double time_of(Action const & action) {
    std::clock_t const start = std::clock();
    action();
    return static_cast<double>(std::clock() - start) * (1e9 / CLOCKS_PER_SEC);
}
template <typename Action>
double wall_time_of(Action const & action) {
    auto const start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - start).count();
}

/// Returns the median of what a measurement says in several passes.
template <typename Measurement>
double median_of(int passes, Measurement const & measure) {
    std::vector<double> values(static_cast<std::size_t>(passes));
    std::generate(values.begin(), values.end(), measure);
    return median(values);
}

/// A root whose catalogs are found for the language of the contests.
class growing_root {
public:
    growing_root() { directory_.make_directory(u"resources"); }

    void use() const {
        MessageCatalog::MessageCatalogInit(directory_.path().string());
        i18n::set_lc_messages(locale_name);
    }
    /// Writes the catalog "growth:NAME" with messages of the contests.
    CatalogID write(std::string const & name, std::uint32_t first, std::uint32_t count) const {
        std::string const file = std::string("resources/growth/") + language + '/' + name + ".xml";
        directory_.write(std::u16string(file.begin(), file.end()), catalog_file(first, count));
        return "growth:" + name;
    }
    /// Writes the catalog "growth:NAME" for the classic locale, whose name is the last of each chain.
    void write_classic(std::string const & name) const {
        std::string const file = "resources/growth/en_US_POSIX/" + name + ".xml";
        directory_.write(std::u16string(file.begin(), file.end()), catalog_file(0, 1));
    }
    upath path() const { return directory_.path(); }

private:
    test::temporary_directory directory_;
};

/// Returns all messages of catalogs of `count` messages each, in random order, so that to go along the vector
/// is to jump among the messages, but not among the identifiers.
std::vector<MessageID> shuffled_ids(std::vector<CatalogID> const & catalogs, std::uint32_t count) {
    auto const all = static_cast<std::uint32_t>(catalogs.size()) * count;
    std::vector<MessageID> ids;
    ids.reserve(all);
    for (std::uint32_t const i : permutation(all)) {
        ids.emplace_back(catalogs[i / count], key_of(i));
    }
    return ids;
}

void look_up_all(std::vector<MessageID> const & ids) {
    for (MessageID const & id : ids) {
        if (MessageCatalog::get_message(id).size() != 58) {
            throw std::runtime_error("a wrong text");
        }
    }
}

/// Returns the time of one look-up in nanoseconds.
double lookup_time(std::vector<MessageID> const & ids) {
    look_up_all(ids);
    auto const times = static_cast<int>(std::max<std::size_t>(1, 50'000 / ids.size()));
    double const pass = median_of(usual_passes, [&] {
        return time_of([&] {
            for (int i = 0; i < times; ++i) {
                look_up_all(ids);
            }
        });
    });
    return pass / times / static_cast<double>(ids.size());
}

void grow_entries(std::ostream & out) {
    out << "# messages of one catalog, ns for a look-up, ns to load a message, bytes for a message\n";
    growing_root const root;
    root.use();
    for (std::uint32_t count = 100; count <= 1'000'000; count *= 10) {
        std::cerr << "[growth] " << count << " messages\n";
        CatalogID const id = root.write("messages" + std::to_string(count), 0, count);
        double const bytes = heap_growth([&id] { MessageCatalog::GetMessageCatalog(id); });
        double const load = median_of(count < 1'000'000 ? usual_passes : 5, [&id] {
            MessageCatalog::FlushCatalogFromCache(id);
            return time_of([&id] { MessageCatalog::GetMessageCatalog(id); });
        });
        double const lookup = lookup_time(shuffled_ids({id}, count));
        out << count << '\t' << lookup << '\t' << load / count << '\t' << bytes / count << '\n';
        MessageCatalog::FlushCatalogFromCache(id);
    }
}

void grow_catalogs(std::ostream & out) {
    out << "# catalogs that share 10,000 messages, ns for a look-up\n";
    growing_root const root;
    root.use();
    for (std::uint32_t count = 1; count <= message_count; count *= 10) {
        std::cerr << "[growth] " << count << " catalogs\n";
        std::uint32_t const each = message_count / count;
        std::vector<CatalogID> ids;
        for (std::uint32_t i = 0; i < count; ++i) {
            ids.push_back(
                root.write("part" + std::to_string(count) + '_' + std::to_string(i), i * each, each));
        }
        out << count << '\t' << lookup_time(shuffled_ids(ids, each)) << '\n';
    }
}

void grow_threads(std::ostream & out) {
    out << "# threads, millions of look-ups a second of all together, the same of each\n";
    growing_root const root;
    root.use();
    auto const ids = shuffled_ids({root.write("threads", 0, message_count)}, message_count);
    look_up_all(ids);
    for (unsigned count = 1; count <= 8; ++count) {
        std::cerr << "[growth] " << count << " threads\n";
        constexpr int rounds = 10;
        double const time = median_of(usual_passes, [&] {
            return wall_time_of([&] {
                std::vector<std::jthread> threads;
                for (unsigned i = 0; i < count; ++i) {
                    threads.emplace_back([&ids] {
                        for (int round = 0; round < rounds; ++round) {
                            look_up_all(ids);
                        }
                    });
                }
            });
        });
        double const rate = rounds * static_cast<double>(ids.size()) * 1e3 / time;
        out << count << '\t' << rate * count << '\t' << rate << '\n';
    }
}

void grow_chains(std::ostream & out) {
    out << "# roots, us to find a file by a chain of 1, 2, 3 and 4 names, ns for a look-up afterwards\n";
    std::vector<growing_root> const roots(50);
    roots.back().write_classic("found");
    i18n::set_lc_messages(locale_name);
    for (std::size_t const count : {1U, 2U, 5U, 10U, 20U, 50U}) {
        std::cerr << "[growth] " << count << " roots\n";
        std::vector<upath> directories;
        std::vector<i18n::ustring> names;
        for (std::size_t i = roots.size() - count; i < roots.size(); ++i) {
            directories.push_back(roots[i].path() / u"resources");
            names.push_back(roots[i].path().string());
        }
        out << count;
        std::vector<i18n::ustring> chain;
        for (char16_t const * const name : {u"en_US_POSIX", u"ja", u"ja_JP", u"ja_JP_x"}) {
            chain.insert(chain.begin(), name);
            constexpr int searches = 200;
            double const time = median_of(usual_passes, [&] {
                return time_of([&] {
                    for (int i = 0; i < searches; ++i) {
                        if (i18n::resource_search::find({directories, u"growth\\%S\\found.xml", u"%S", chain})
                                .path.empty()) {
                            throw std::runtime_error("not found");
                        }
                    }
                });
            });
            out << '\t' << time / searches / 1e3;
        }
        MessageCatalog::MessageCatalogInit(names);
        out << '\t' << lookup_time({1000, MessageID("growth:found:" + key_of(0))}) << '\n';
        MessageCatalog::FlushCatalogFromCache(CatalogID("growth:found"));
    }
}

void write(std::string const & directory, char const * name, void (*grow)(std::ostream &)) {
    std::ofstream out(directory + '/' + name);
    grow(out);
    if (!out.flush()) {
        throw std::runtime_error("cannot be written: " + directory + '/' + name);
    }
}

} // namespace

int main(int argc, char ** argv) {
    if (argc != 2) {
        std::cerr << "usage: fl_i18n_growth DIRECTORY\n";
        return 2;
    }
    try {
        write(argv[1], "messages.tsv", grow_entries);
        write(argv[1], "catalogs.tsv", grow_catalogs);
        write(argv[1], "threads.tsv", grow_threads);
        write(argv[1], "chains.tsv", grow_chains);
    } catch (std::exception const & error) {
        std::cerr << "[growth] " << error.what() << '\n';
        return 1;
    }
    return 0;
}
