#pragma once

#include <cstddef>
#include <cstdint>
#include <fl/i18n/ustring_type.hpp>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct UConverter;

/// Conversion of a stream of bytes between encodings that knows the place of everything that is lost.
namespace fl::tool {

/// What could not be converted.
struct conversion_loss {
    std::uint64_t offset = 0; ///< the place of its first byte in the source, from 0
    std::uint64_t line = 1;   ///< the line of the source, from 1
    std::string bytes;        ///< the malformed or incomplete sequence; empty for a character
    char32_t character = 0;   ///< the character that the target encoding lacks

    friend bool operator==(conversion_loss const &, conversion_loss const &) = default;
};

/// What becomes of a loss. `escape` is the way to write a character: the option letter of the conversion
/// library's escapes, or its own default for the empty string.
struct loss_handling {
    enum class kind { stop, substitute, escape };
    kind what = kind::stop;
    std::string escape;
};

class encoding_conversion {
public:
    /// Receives the losses in the order of the source.
    using listener = std::function<void(conversion_loss const &)>;

    /// Opens the conversion; throws `command_failure` for an encoding that is not known.
    encoding_conversion(std::string const & from, std::string const & to, loss_handling handling,
                        listener on_loss);
    encoding_conversion(encoding_conversion const &) = delete;
    encoding_conversion & operator=(encoding_conversion const &) = delete;
    ~encoding_conversion();

    /// Returns what the next piece of the source becomes; `last` ends the source. Malformed bytes become
    /// U+FFFD. When a loss stops the conversion the result ends before it.
    std::string convert(std::string_view bytes, bool last);

    /// Tells whether a loss has stopped the conversion.
    bool stopped() const noexcept { return stopped_; }

private:
    struct closer {
        void operator()(UConverter * converter) const noexcept;
    };
    using handle = std::unique_ptr<UConverter, closer>;
    struct action;
    struct lost {
        std::size_t index; ///< that of the character, or of what stands for the bytes, among the units
        std::string bytes;
        char32_t character;
    };

    static handle open_converter(std::string const & encoding);
    static handle clone(UConverter const & converter);
    void decode(bool last);
    void decode_to(std::size_t size, bool last);
    void take_malformed(std::uint64_t end);
    void drop_signature();
    std::string encode(bool last);
    void find_unmappable(UConverter & encoder, std::string * result, bool last);
    void take_unmappable(UConverter & encoder, std::size_t end);
    void report();
    void forget_units();
    bool stops() const noexcept { return handling_.what == loss_handling::kind::stop; }

    loss_handling const handling_;
    listener const on_loss_;
    std::unique_ptr<action> const action_; ///< what the encoder calls
    handle decoder_;
    handle const encoder_;
    bool drops_signature_ = false;
    bool started_ = false;
    bool stopped_ = false;
    std::string held_;                  ///< the bytes of the source that are not decoded yet
    std::uint64_t consumed_ = 0;        ///< the number of those before them
    std::uint64_t lines_ = 0;           ///< line feeds before the first of the units
    i18n::ustring units_;               ///< the characters of this piece
    std::vector<std::uint64_t> places_; ///< the source offset of each unit
    std::vector<lost> malformed_;
    std::vector<lost> unmappable_;
};

} // namespace fl::tool
