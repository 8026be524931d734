#include "catalogs/message_text_processor.hpp"

#include <algorithm>
#include <utility>

namespace fl::i18n::detail {

namespace {

constexpr bool is_white_space(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

void trim(std::string & text) {
    while (!text.empty() && is_white_space(text.back())) {
        text.pop_back();
    }
    if (!text.empty() && is_white_space(text.front())) {
        auto const begin =
            std::find_if_not(text.begin(), text.end(), [](char c) { return is_white_space(c); });
        text.erase(text.begin(), begin);
    }
}

bool has_line_break(std::string_view text) {
    return text.find('\n') != text.npos || text.find('\f') != text.npos || text.find('\r') != text.npos;
}

} // namespace

void MessageCatalogTextProcessor::add_chunk(std::string_view chunk) {
    if (chunk.empty()) {
        return;
    }
    if (line_is_complete_) {
        complete_line();
    }
    pending_line_ += chunk;
    line_is_complete_ = has_line_break(chunk);
}

std::string MessageCatalogTextProcessor::extract_complete_message() {
    complete_line();
    return std::exchange(completed_, {});
}

void MessageCatalogTextProcessor::complete_line() {
    trim(pending_line_);
    if (completed_.empty()) {
        completed_.swap(pending_line_);
    } else if (!pending_line_.empty()) {
        (completed_ += ' ') += pending_line_;
    }
    pending_line_.clear();
    line_is_complete_ = false;
}

} // namespace fl::i18n::detail
