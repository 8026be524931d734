#include "catalogs/message_text_processor.hpp"

#include <string_view>
#include <utility>

namespace fl::i18n::detail {

namespace {

constexpr std::string_view white_space = " \t\v\n\r\f";
constexpr std::string_view line_breaks = "\n\f\r";

void trim(std::string & text) {
    text.erase(text.find_last_not_of(white_space) + 1);
    text.erase(0, text.find_first_not_of(white_space));
}

} // namespace

void MessageCatalogTextProcessor::add_chunk(std::string const & chunk) {
    if (chunk.empty()) {
        return;
    }
    if (line_is_complete_) {
        complete_line();
    }
    pending_line_ += chunk;
    line_is_complete_ = chunk.find_first_of(line_breaks) != std::string::npos;
}

std::string MessageCatalogTextProcessor::extract_complete_message() {
    complete_line();
    return std::exchange(completed_, {});
}

void MessageCatalogTextProcessor::complete_line() {
    trim(pending_line_);
    completed_ += ' ';
    completed_ += pending_line_;
    trim(completed_);
    pending_line_.clear();
    line_is_complete_ = false;
}

} // namespace fl::i18n::detail
