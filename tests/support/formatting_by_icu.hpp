#pragma once

#include <fl/i18n/message_catalog.hpp>

#include <optional>
#include <string>
#include <unicode/locid.h>
#include <unicode/unistr.h>
#include <utility>
#include <vector>

/// What ICU makes of messages and numbers, asked in the straightforward way.
namespace fl::i18n::test {

using Arguments = std::vector<MessageCatalog::Argument>;
using Format = std::optional<numeric_format>;

icu::Locale const & posix_locale();
ustring text_of(icu::UnicodeString const & text);

icu::UnicodeString icu_text(double value, numeric_format format);

/// Fills a message with ICU alone; the text of a double takes the place of its plain hole.
ustring fill_by_icu(ustring const & message, Arguments const & args, Format const & format);

/// Returns the text that a function fills, or what it throws.
template <class Fill>
std::pair<ustring, std::string> outcome(Fill fill, ustring const & message, Arguments const & args,
                                        Format const & format) {
    try {
        return {fill(message, args, format), ""};
    } catch (MessageCatalog::IncorrectHoleCount const & error) {
        return {u"", error.what()};
    } catch (MessageCatalog::MessageFormatIncorrect const & error) {
        return {u"", error.what()};
    }
}

} // namespace fl::i18n::test
