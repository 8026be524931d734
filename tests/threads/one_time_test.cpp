#include "foundation/process_singleton.hpp"
#include "tests/support/together.hpp"

#include <atomic>
#include <chrono>
#include <gtest/gtest.h>
#include <stdexcept>

namespace fl {
namespace {

TEST(ProcessSingleton, MakersThatThrowLetTheOthersTry) {
    for (unsigned const failures : {0u, 1u, 7u, 100u}) {
        SCOPED_TRACE(failures);
        process_singleton<unsigned> singleton;
        std::atomic<unsigned> makers = 0;
        std::atomic<unsigned> attempts = 0;
        std::atomic<unsigned> caught = 0;
        auto const make = [&] {
            EXPECT_EQ(makers++, 0u) << "two make it at once";
            unsigned const attempt = attempts++;
            // The others arrive meanwhile.
            std::this_thread::sleep_for(std::chrono::microseconds(100));
            --makers;
            if (attempt < failures) {
                throw std::runtime_error("attempt");
            }
            return std::make_unique<unsigned>(attempt);
        };
        test::run_together(8, [&](std::size_t) {
            for (;;) {
                try {
                    EXPECT_EQ(singleton.get(make), failures);
                    return;
                } catch (std::runtime_error const &) {
                    ++caught;
                }
            }
        });
        EXPECT_EQ(caught, failures);
        EXPECT_EQ(attempts, failures + 1);
        delete singleton.peek();
    }
}

} // namespace
} // namespace fl
