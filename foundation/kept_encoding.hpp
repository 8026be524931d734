#pragma once

#include "foundation/conversion_progress.hpp"
#include "foundation/encoding_page.hpp"
#include "foundation/icu_converter.hpp"
#include "foundation/utf8_decode.hpp"
#include "foundation/utf8_encode.hpp"

#include <array>
#include <atomic>
#include <string_view>

namespace fl {

/// An encoding that the process has met: its converter, and tables made of it.
///
/// The tables hold the characters that the converter maps one to one, whatever stands beside them and
/// whatever its call-backs do, in one or two bytes. They are made part by part, as texts need them, and stay
/// as long as the object. UTF-8 needs none. Any thread may call the operations.
class kept_encoding {
public:
    /// Takes a converter as it was opened.
    explicit kept_encoding(icu_converter converter);
    ~kept_encoding();
    kept_encoding(kept_encoding const &) = delete;
    kept_encoding & operator=(kept_encoding const &) = delete;

    /// Tells whether converters can be cloned. The conversion library's clones of a compound text converter
    /// share what each of them frees.
    bool has_clones() const { return form_ != form::by_opened_converter; }

    /// Returns a converter of the caller's own, as it was opened; null on failure and where there are no
    /// clones.
    icu_converter clone() const { return has_clones() ? clone_converter(converter_.get()) : nullptr; }

    /// Tells whether tables convert anything.
    bool has_tables() const { return form_ == form::by_tables; }

    /// Decodes a text up to its end or to the first character that takes a converter, which goes on there as
    /// at the beginning of a text.
    ///
    /// The destination has room for `source.size()` units; those beyond the ones produced may be overwritten.
    conversion_progress decode(char16_t * destination, std::string_view source) const {
        return form_ == form::utf8 ? decode_well_formed_utf8(destination, source)
                                   : decode_by_tables(destination, source);
    }

    /// Encodes a text, as `decode` does; the destination has room for 3 bytes for each unit.
    conversion_progress encode(char * destination, std::u16string_view source) const {
        return form_ == form::utf8 ? encode_well_formed_utf8(destination, source)
                                   : encode_by_tables(destination, source);
    }

private:
    enum class form { by_tables, utf8, by_converter, by_opened_converter };
    using slot = std::atomic<encoding_page const *>;

    static form form_of(UConverter const * converter);
    /// Returns the page in a slot, which it makes at first; null when that fails.
    template <class Make>
    static encoding_page const * page(slot & in, Make make);
    template <class Make>
    static encoding_page const * new_page(slot & in, Make make);
    encoding_page const * unit_page(unsigned high) const;

    conversion_progress decode_by_tables(char16_t * destination, std::string_view source) const;
    conversion_progress encode_by_tables(char * destination, std::u16string_view source) const;

    /// Convert what follows a run of ASCII, which is in its place in the destination.
    conversion_progress decode_further(char16_t * destination, std::string_view source, std::size_t run,
                                       encoding_page const & singles) const;
    conversion_progress encode_further(char * destination, std::u16string_view source, std::size_t run) const;

    icu_converter converter_;
    form form_;
    mutable slot single_bytes_ = nullptr;
    mutable std::array<slot, 256> double_bytes_{}; ///< by their first byte
    mutable std::array<slot, 256> units_{};        ///< by their high byte
};

} // namespace fl
