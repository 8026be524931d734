#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <functional>
#include <iostream>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace fl::test {

/// Where threads wait for each other, any number of times.
///
/// `std::latch` and `std::barrier` of GCC 12 lose wakeups where the system has no futex, so on Windows a
/// thread may wait there for ever.
class meeting_point {
public:
    /// The last of `count` threads to arrive calls `before_leaving`.
    explicit meeting_point(
        std::size_t count, std::function<void()> before_leaving = [] {})
        : count_(count)
        , before_leaving_(std::move(before_leaving)) {}

    void arrive_and_wait() {
        std::unique_lock lock(mutex_);
        if (++arrived_ == count_) {
            before_leaving_();
            arrived_ = 0;
            ++meetings_;
            all_arrived_.notify_all();
        } else {
            all_arrived_.wait(lock, [this, before = meetings_] { return meetings_ != before; });
        }
    }

private:
    std::size_t const count_;
    std::function<void()> const before_leaving_;
    std::mutex mutex_;
    std::condition_variable all_arrived_;
    std::size_t arrived_ = 0;
    std::size_t meetings_ = 0;
};

/// Calls `action` with 0 to `count` - 1, each on a thread of its own, all released at once.
template <class Action>
void run_together(std::size_t count, Action action) {
    meeting_point start(count);
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
