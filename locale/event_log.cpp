#include "locale/event_log.hpp"

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
    entries_.push_back(make_entry(source, message));
}

void event_log::add_error(std::string_view source, std::string_view message, int status) {
    std::string entry = make_entry(source, message);
    entry += separator;
    entry += std::to_string(status);
    entries_.push_back(std::move(entry));
}

} // namespace fl::i18n::lcmgmt
