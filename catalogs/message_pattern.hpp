#pragma once

#include <fl/i18n/message_catalog.hpp>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unicode/messagepattern.h>
#include <unicode/msgfmt.h>
#include <unicode/unistr.h>
#include <vector>

namespace fl::i18n {

/// A message as a pattern with holes, at any depth: a hole inside a plural's branch counts like any other.
///
/// ICU sees nothing of a pattern that is beyond a limit.
class message_pattern {
public:
    /// A hole as it is written.
    struct hole {
        std::int32_t begin;       ///< where its opening brace is
        std::int32_t end;         ///< the position after its closing brace
        bool has_name;            ///< named instead of numbered
        bool has_type;            ///< with a format type
        std::int32_t number;      ///< the number of a numbered hole
        std::u16string_view name; ///< the name, or the number in digits; valid while the pattern lives

        /// Returns the format type, empty for a plain hole. The pattern must live.
        std::string type() const;
    };

    /// The text must outlive the object. Throws `MessageFormatIncorrect` when the text is no pattern or
    /// beyond a limit, and `boost::numeric::positive_overflow`.
    explicit message_pattern(std::u16string_view message);
    message_pattern(message_pattern const &) = delete;
    message_pattern & operator=(message_pattern const &) = delete;

    /// Throws `MessageFormatIncorrect` when a hole has a format that there is not.
    void check() const;

    /// Returns the holes in the order in which they are written.
    std::vector<hole> const & holes() const { return holes_; }
    /// Returns the number of different holes.
    std::size_t distinct_holes() const { return distinct_holes_; }
    /// Returns the number of arguments that the message takes: none when the name of its first hole begins
    /// with a letter.
    std::size_t expected_arguments() const { return has_named_holes() ? 0 : distinct_holes_; }

    /// Returns the message with its holes filled; throws as `MessageCatalog::GetFormattedMessage`.
    ustring fill(std::vector<MessageCatalog::Argument> const & args,
                 std::optional<numeric_format> const & format) const;

private:
    bool is_pattern() const { return !pattern_.isEmpty(); }
    std::u16string_view pattern_text() const;
    bool has_named_holes() const;
    ustring unquoted() const;
    std::size_t size_with(std::vector<MessageCatalog::Argument> const & args) const;
    void collect_holes(icu::MessagePattern const & parsed);
    void count_distinct_holes();
    icu::UnicodeString with_doubles_written(std::vector<MessageCatalog::Argument> const & args,
                                            std::optional<numeric_format> format) const;
    numeric_format default_format() const;

    std::u16string_view message_;
    icu::UnicodeString pattern_; ///< empty for a message without an opening brace
    std::vector<hole> holes_;
    std::size_t distinct_holes_ = 0;
};

} // namespace fl::i18n
