#include "locale/event_log.hpp"

#include <gtest/gtest.h>

namespace fl::i18n::lcmgmt {
namespace {

TEST(EventLog, KeepsTheFirstAndTheNewestEvents) {
    constexpr std::size_t all_kept = event_log::kept_first + event_log::kept_newest;
    for (std::size_t const added : {std::size_t{1}, all_kept, all_kept + 1, 3 * all_kept}) {
        SCOPED_TRACE(added);
        event_log log;
        for (std::size_t i = 0; i < added; ++i) {
            log.add_error("f", "m", static_cast<int>(i));
        }
        auto const entry = [](std::size_t i) { return "f - m - " + std::to_string(i); };
        auto const entries = log.entries();
        EXPECT_EQ(log.count(), added);
        EXPECT_EQ(entries.front(), entry(0));
        EXPECT_EQ(entries.back(), entry(added - 1));
        if (added <= all_kept) {
            EXPECT_EQ(entries.size(), added);
            continue;
        }
        ASSERT_EQ(entries.size(), all_kept + 1);
        EXPECT_EQ(entries[event_log::kept_first - 1], entry(event_log::kept_first - 1));
        EXPECT_EQ(entries[event_log::kept_first],
                  "event_log::entries - " + std::to_string(added - all_kept) + " events are left out here.");
        EXPECT_EQ(entries[event_log::kept_first + 1], entry(added - event_log::kept_newest));
    }
}

} // namespace
} // namespace fl::i18n::lcmgmt
