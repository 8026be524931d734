#pragma once

#include <cstddef>
#include <deque>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace fl::i18n::lcmgmt {

/// The events of the locale management, in the order in which they happened. Not synchronised.
///
/// The first ones, which tell of the start-up, and the newest ones stay; those between are only counted.
class event_log {
public:
    static constexpr std::size_t kept_first = 512;
    static constexpr std::size_t kept_newest = 512;

    /// Adds "source - message". Nothing is changed when this throws.
    void add(std::string_view source, std::string_view message);

    /// Adds an entry for each source with its message, or none when there is no memory for all.
    void add(std::initializer_list<std::pair<std::string_view, std::string_view>> events);

    /// Adds "source - message - status", as `add` does.
    void add_error(std::string_view source, std::string_view message, int status);

    /// Returns the entries; where some are left out, one in their place says how many.
    std::vector<std::string> entries() const;

    /// Returns the number of all events that were ever added.
    std::size_t count() const noexcept { return first_.size() + left_out_ + newest_.size(); }

private:
    void append(std::string entry);

    std::vector<std::string> first_;
    std::size_t left_out_ = 0;
    std::deque<std::string> newest_;
};

} // namespace fl::i18n::lcmgmt
