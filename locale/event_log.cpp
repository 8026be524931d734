#include "locale/event_log.hpp"

#include <type_traits>
#include <utility>

namespace fl::i18n::lcmgmt {

namespace {

constexpr std::string_view separator = " - ";

std::string make_entry(std::string_view source, std::string_view message) {
    std::string entry(source);
    entry += separator;
    entry += message;
    return entry;
}

} // namespace

void event_log::add(std::string_view source, std::string_view message) {
    append(make_entry(source, message));
}

void event_log::add(std::initializer_list<std::pair<std::string_view, std::string_view>> events) {
    event_log changed = *this;
    for (auto const & [source, message] : events) {
        changed.add(source, message);
    }
    // Swapping may need memory for a temporary queue, which this does not.
    static_assert(std::is_nothrow_move_assignable_v<event_log>);
    *this = std::move(changed);
}

void event_log::add_error(std::string_view source, std::string_view message, int status) {
    std::string entry = make_entry(source, message);
    entry += separator;
    entry += std::to_string(status);
    append(std::move(entry));
}

void event_log::append(std::string entry) {
    if (first_.size() < kept_first) {
        first_.push_back(std::move(entry));
        return;
    }
    newest_.push_back(std::move(entry));
    if (newest_.size() > kept_newest) {
        newest_.pop_front();
        ++left_out_;
    }
}

std::vector<std::string> event_log::entries() const {
    std::vector<std::string> all = first_;
    if (left_out_ != 0) {
        all.push_back(
            make_entry("event_log::entries", std::to_string(left_out_) + " events are left out here."));
    }
    all.insert(all.end(), newest_.begin(), newest_.end());
    return all;
}

} // namespace fl::i18n::lcmgmt
