// Looks up messages for a long time, with flushes and reloads between: soak LOOKUPS RELOADS. What the process
// has must not grow once it is warm.
#include "tests/support/process_usage.hpp"
#include "tests/support/temporary_directory.hpp"
#include "tests/support/together.hpp"

#include <cstdint>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/message_catalog.hpp>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace fl {
namespace {

using namespace i18n;

constexpr unsigned catalog_count = 4;
constexpr unsigned message_count = 100;

class soak {
public:
    soak() {
        for (char const * name : {"ja_JP", "de_DE", "en_US_POSIX", "fr_FR"}) {
            locales_.push_back(QzLocale::createLocale(name));
        }
        for (unsigned c = 0; c < catalog_count; ++c) {
            catalogs_.push_back("soak:c" + std::to_string(c));
            std::string entries;
            for (unsigned m = 0; m < message_count; ++m) {
                std::string const key = 'k' + std::to_string(m);
                ids_.emplace_back(catalogs_.back() + ':' + key);
                entries += "<entry key=\"" + key + "\">" + key + "</entry><entry key=\"hole_" + key + "\">" +
                           key + " {0,number,0.0}</entry>";
            }
            for (std::u16string const language : {u"ja", u"de", u"en_US_POSIX"}) {
                ustring const file{u'c', static_cast<char16_t>(u'0' + c)};
                root_.write(u"resources/soak/" + language + u'/' + file + u".xml",
                            "<rsccat><message>" + entries + "</message></rsccat>");
            }
        }
        MessageCatalog::MessageCatalogInit(root_.path().string());
    }

    /// Looks up so many messages, then flushes all catalogs and changes what there is to change.
    void run(std::uint64_t lookups) {
        for (std::uint64_t i = 0; i < lookups; ++i) {
            auto const message = static_cast<std::size_t>(next_++ % ids_.size());
            QzLocale const & locale = next_ % 2 ? QzLocale::global() : *locales_[next_ / 2 % locales_.size()];
            ustring const text = MessageCatalog::get_message(ids_[message], locale);
            if (text.size() < 2 || text.front() != u'k') {
                wrong_.look_at("look-up", [] { return false; });
            }
        }
        ++round_;
        wrong_.look_at("others", [&] { return format_and_miss(); });
        for (std::string const & catalog : catalogs_) {
            MessageCatalog::FlushCatalogFromCache(CatalogID(catalog));
        }
        MessageCatalog::MessageCatalogInit(root_.path().string());
        change_global_locale(*locales_[round_ % locales_.size()]);
    }

    std::size_t failures() const { return wrong_.count(); }

private:
    bool format_and_miss() {
        auto const catalog = MessageCatalog::GetMessageCatalog(CatalogID(catalogs_[round_ % catalog_count]));
        bool missed = false;
        try {
            catalog->text("missing");
        } catch (MessageCatalog::MessageNotFound const &) {
            missed = true;
        }
        return missed && MessageCatalog::GetFormattedMessage(catalog->text("hole_k7"), {1.5}) == u"k7 1.5";
    }

    test::temporary_directory root_;
    std::vector<std::shared_ptr<QzLocale const>> locales_;
    std::vector<std::string> catalogs_;
    std::vector<MessageID> ids_;
    std::uint64_t next_ = 0;
    std::uint64_t round_ = 0;
    test::wrong_answers wrong_;
};

} // namespace
} // namespace fl

int main(int count, char ** arguments) {
    using namespace fl;
    std::uint64_t const lookups = count > 1 ? std::stoull(arguments[1]) : 50'000'000;
    std::uint64_t const reloads = count > 2 ? std::stoull(arguments[2]) : 2'000;
    constexpr std::uint64_t samples = 20;
    soak work;
    // The event log is full after this, and every memory block has had its neighbours.
    for (int i = 0; i < 1100; ++i) {
        work.run(100);
    }
    test::process_usage const before = test::query_usage();
    std::cout << "memory in KiB:";
    test::process_usage after{};
    for (std::uint64_t i = 1; i <= reloads; ++i) {
        work.run(lookups / reloads);
        if (i % (reloads / samples) == 0) {
            after = test::query_usage();
            std::cout << ' ' << after.memory;
        }
    }
    constexpr std::size_t noise = 256;
    bool const flat = after.memory <= before.memory + noise && after.handles <= before.handles;
    std::cout << "\nsoak: " << lookups << " lookups, " << reloads << " reloads, memory " << before.memory
              << " -> " << after.memory << " KiB, handles " << before.handles << " -> " << after.handles
              << ", " << work.failures() + !flat << " failures\n";
    return flat && work.failures() == 0 ? 0 : 1;
}
