#pragma once

#include <fl/i18n/message_catalog.hpp>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace fl::i18n {

/// A message of text and holes that are plain or of the type "number", which is filled without ICU and to the
/// same result.
class simple_message {
public:
    static constexpr auto too_much = static_cast<std::size_t>(-1);

    /// Reads a message, which must outlive the object. It is not simple when it has anything else, such as
    /// quoted text, names of holes or unusual spelling, or when it is too long for a pattern.
    explicit simple_message(std::u16string_view message);

    /// Tells whether the message is simple; nothing else may be called when it is not.
    bool is_simple() const { return is_simple_; }
    /// Returns the number of different holes.
    std::size_t distinct_holes() const { return distinct_holes_; }
    /// Returns a number of units that is enough for the message with its holes filled from as many arguments
    /// as it has different holes; `too_much` when that is left to ICU, since an argument does not fit its
    /// hole or is missing, or when the result may be too long.
    std::size_t room_for(std::vector<MessageCatalog::Argument> const & args) const;
    /// Returns the message filled, in the room that there is for it.
    ///
    /// Exceptions of the provider of the numeric format pass through.
    ustring fill(std::vector<MessageCatalog::Argument> const & args,
                 std::optional<numeric_format> const & format, std::size_t room) const;

private:
    enum class kind : std::uint8_t { apostrophe, plain, number, integer };
    /// A place where something else is written than what stands there.
    struct replacement {
        std::uint32_t begin; ///< where it begins in the message
        std::uint32_t end;   ///< where it ends
        std::uint8_t number; ///< the number of a hole
        kind what;           ///< a hole, or the second of two apostrophes, which is left out
    };
    class hole_reader;
    class writer;

    bool read();
    bool read_apostrophe(std::size_t & at);
    bool read_hole(std::size_t & at);
    void write_all(std::vector<MessageCatalog::Argument> const & args, writer & to) const;

    std::u16string_view message_;
    std::array<replacement, 32> replacements_; ///< only the first `count_` have values
    std::size_t count_ = 0;
    std::size_t distinct_holes_ = 0;
    std::uint64_t holes_ = 0; ///< a bit for each hole number that occurs
    bool is_simple_;
};

} // namespace fl::i18n
