#include "foundation/process_singleton.hpp"
#include "tests/support/together.hpp"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <gtest/gtest.h>
#include <stdexcept>

namespace fl {
namespace {

TEST(ProcessSingleton, MakersThatThrowLetTheOthersTry) {
    constexpr unsigned threads = 8;
    for (unsigned round = 0; round < 40; ++round) {
        unsigned const failures = round % (threads + 1);
        SCOPED_TRACE(failures);
        process_singleton<unsigned> singleton;
        std::atomic<unsigned> makers = 0;
        std::atomic<unsigned> attempts = 0;
        std::atomic<unsigned> caught = 0;
        auto const make = [&] {
            EXPECT_EQ(makers++, 0u) << "two make it at once";
            unsigned const attempt = attempts++;
            // The others come to wait meanwhile.
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
            --makers;
            if (attempt < failures) {
                throw std::runtime_error("attempt");
            }
            return std::make_unique<unsigned>(attempt);
        };
        // Who has failed does not come back, so that it takes the waiting ones to go on.
        test::run_together(threads, [&](std::size_t) {
            try {
                EXPECT_EQ(singleton.get(make), failures);
            } catch (std::runtime_error const &) {
                ++caught;
            }
        });
        EXPECT_EQ(caught, failures);
        EXPECT_EQ(attempts, std::min(failures + 1, threads));
        delete singleton.peek();
    }
}

} // namespace
} // namespace fl
