#include "conversion/conversion_record.hpp"
#include "conversion/text_conversion.hpp"

#include <fl/i18n/codecvt.hpp>

namespace fl::i18n {

using detail::apply_from_unicode_mode;
using detail::apply_to_unicode_mode;
using detail::conversion_record;
using detail::find_named_encoding;
using detail::named_encoding;
using detail::open_record;
using detail::require_clone;
using detail::require_encoding;

namespace {

/// The modes that need no converter before a character does.
bool is_common(codecvt_call_back_mode mode) {
    return mode == call_back_default || mode == call_back_stop;
}

conversion_record & to_unicode_record(named_encoding & encoding) {
    if (!encoding.record) {
        apply_to_unicode_mode(open_record(encoding), encoding.first_mode);
    }
    return *encoding.record;
}

/// Sets the mode of a new converter, by `apply` on its record if there is one or the mode needs one.
template <class Apply>
void start_with(named_encoding & encoding, codecvt_call_back_mode mode, Apply apply) {
    if (is_common(mode) && !encoding.record) {
        encoding.first_mode = mode;
    } else {
        apply(open_record(encoding), mode);
    }
}

/// Returns what opens the converter for the rest of a text that tables begin.
auto to_unicode_converter(named_encoding & encoding) {
    return [&encoding](icu_converter &) { return to_unicode_record(encoding).converter.get(); };
}

conversion_record & from_unicode_record(named_encoding & encoding) {
    if (!encoding.record) {
        apply_from_unicode_mode(open_record(encoding), encoding.first_mode, {});
    }
    return *encoding.record;
}

/// Returns what opens the converter for the rest of a text that tables begin.
///
/// The choice between an encoding's two substitution characters outlives a conversion in the converter, until
/// it meets other characters. Those that tables convert it does not meet, so it starts as new each time.
auto from_unicode_converter(named_encoding & encoding) {
    return [&encoding](icu_converter & clone) {
        auto const & own = from_unicode_record(encoding).converter;
        if (!encoding.shared || !encoding.shared->has_tables()) {
            return own.get();
        }
        clone = clone_converter(own.get());
        return require_clone(clone);
    };
}

} // namespace

codecvt_string_to_ustring::codecvt_string_to_ustring(std::string const & encoding, bool lenient)
    : encoding_(find_named_encoding(encoding)) {
    start_with(encoding_, lenient ? call_back_default : call_back_stop, apply_to_unicode_mode);
}

codecvt_string_to_ustring::codecvt_string_to_ustring(codecvt_call_back_mode mode,
                                                     std::string const & encoding)
    : encoding_(find_named_encoding(encoding)) {
    start_with(encoding_, mode, apply_to_unicode_mode);
}

codecvt_string_to_ustring::codecvt_string_to_ustring(codecvt_string_to_ustring &&) noexcept = default;
codecvt_string_to_ustring &
codecvt_string_to_ustring::operator=(codecvt_string_to_ustring &&) noexcept = default;
codecvt_string_to_ustring::~codecvt_string_to_ustring() = default;

void codecvt_string_to_ustring::change_call_back(codecvt_call_back_mode mode) {
    apply_to_unicode_mode(to_unicode_record(encoding_), mode);
}

void codecvt_string_to_ustring::reset_call_back() {
    change_call_back(call_back_default);
}

codecvt_call_back_mode codecvt_string_to_ustring::get_call_back_mode() const {
    require_encoding(encoding_);
    return encoding_.record ? encoding_.record->to_unicode_mode : encoding_.first_mode;
}

std::size_t codecvt_string_to_ustring::do_get_destination_size(char const * source,
                                                               std::size_t source_length) const {
    return do_convert(nullptr, 0, source, source_length);
}

std::size_t codecvt_string_to_ustring::do_convert(char16_t * destination, std::size_t destination_length,
                                                  char const * source, std::size_t source_length) const {
    return convert_text_pass<to_unicode_direction>(encoding_.shared.get(), to_unicode_converter(encoding_),
                                                   destination, destination_length, {source, source_length});
}

ustring codecvt_string_to_ustring::do_convert(char const * source, std::size_t source_length) {
    return convert_text<to_unicode_direction>(encoding_.shared.get(), to_unicode_converter(encoding_),
                                              {source, source_length});
}

codecvt_ustring_to_string::codecvt_ustring_to_string(std::string const & encoding, bool lenient)
    : encoding_(find_named_encoding(encoding)) {
    start_with(encoding_, lenient ? call_back_default : call_back_stop,
               [](auto & record, auto mode) { apply_from_unicode_mode(record, mode, {}); });
}

codecvt_ustring_to_string::codecvt_ustring_to_string(codecvt_call_back_mode mode,
                                                     std::string const & encoding,
                                                     std::string const & substitution)
    : encoding_(find_named_encoding(encoding)) {
    start_with(encoding_, mode,
               [&](auto & record, auto) { apply_from_unicode_mode(record, mode, substitution); });
}

codecvt_ustring_to_string::codecvt_ustring_to_string(codecvt_ustring_to_string &&) noexcept = default;
codecvt_ustring_to_string &
codecvt_ustring_to_string::operator=(codecvt_ustring_to_string &&) noexcept = default;
codecvt_ustring_to_string::~codecvt_ustring_to_string() = default;

void codecvt_ustring_to_string::change_call_back(codecvt_call_back_mode mode,
                                                 std::string const & substitution) {
    apply_from_unicode_mode(from_unicode_record(encoding_), mode, substitution);
}

void codecvt_ustring_to_string::reset_call_back() {
    change_call_back(call_back_default, {});
}

codecvt_call_back_mode codecvt_ustring_to_string::get_call_back_mode() const {
    require_encoding(encoding_);
    return encoding_.record ? encoding_.record->from_unicode_mode : encoding_.first_mode;
}

std::size_t codecvt_ustring_to_string::do_get_destination_size(char16_t const * source,
                                                               std::size_t source_length) const {
    return do_convert(nullptr, 0, source, source_length);
}

std::size_t codecvt_ustring_to_string::do_convert(char * destination, std::size_t destination_length,
                                                  char16_t const * source, std::size_t source_length) const {
    return convert_text_pass<from_unicode_direction>(encoding_.shared.get(),
                                                     from_unicode_converter(encoding_), destination,
                                                     destination_length, {source, source_length});
}

std::string codecvt_ustring_to_string::do_convert(char16_t const * source, std::size_t source_length) {
    return convert_text<from_unicode_direction>(encoding_.shared.get(), from_unicode_converter(encoding_),
                                                {source, source_length});
}

} // namespace fl::i18n
