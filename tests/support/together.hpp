#pragma once

#include <atomic>
#include <cstddef>
#include <exception>
#include <iostream>
#include <latch>
#include <string>
#include <thread>
#include <vector>

namespace fl::test {

/// Calls `action` with 0 to `count` - 1, each on a thread of its own, all released at once.
template <class Action>
void run_together(std::size_t count, Action action) {
    std::latch start(static_cast<std::ptrdiff_t>(count));
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < count; ++i) {
        threads.emplace_back([&, i] {
            start.arrive_and_wait();
            action(i);
        });
    }
    for (std::thread & thread : threads) {
        thread.join();
    }
}

/// Counts the wrong answers of a program whose threads get many, and prints the first few.
class wrong_answers {
public:
    /// Calls `question`, which tells whether the answer that it got is an allowed one; so is no exception.
    template <class Question>
    void look_at(char const * subject, Question question) {
        try {
            if (!question()) {
                add(subject, "not one of the allowed answers");
            }
        } catch (std::exception const & error) {
            add(subject, error.what());
        }
    }

    std::size_t count() const { return count_; }

private:
    void add(std::string const & subject, std::string const & what) {
        if (count_++ < 10) {
            std::cerr << "wrong: " + subject + ": " + what + '\n';
        }
    }

    std::atomic<std::size_t> count_ = 0;
};

} // namespace fl::test
