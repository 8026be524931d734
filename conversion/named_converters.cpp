#include "conversion/conversion_record.hpp"
#include "conversion/driver.hpp"

#include <fl/i18n/codecvt.hpp>

namespace fl::i18n {

using detail::apply_from_unicode_mode;
using detail::apply_to_unicode_mode;
using detail::open_conversion_record;
using detail::require_record;

codecvt_string_to_ustring::codecvt_string_to_ustring(std::string const & encoding, bool lenient)
    : codecvt_string_to_ustring(lenient ? call_back_default : call_back_stop, encoding) {}

codecvt_string_to_ustring::codecvt_string_to_ustring(codecvt_call_back_mode mode,
                                                     std::string const & encoding)
    : record_(open_conversion_record(encoding)) {
    apply_to_unicode_mode(*record_, mode);
}

codecvt_string_to_ustring::codecvt_string_to_ustring(codecvt_string_to_ustring &&) noexcept = default;
codecvt_string_to_ustring &
codecvt_string_to_ustring::operator=(codecvt_string_to_ustring &&) noexcept = default;
codecvt_string_to_ustring::~codecvt_string_to_ustring() = default;

void codecvt_string_to_ustring::change_call_back(codecvt_call_back_mode mode) {
    apply_to_unicode_mode(require_record(record_), mode);
}

void codecvt_string_to_ustring::reset_call_back() {
    change_call_back(call_back_default);
}

codecvt_call_back_mode codecvt_string_to_ustring::get_call_back_mode() const {
    return require_record(record_).to_unicode_mode;
}

std::size_t codecvt_string_to_ustring::do_get_destination_size(char const * source,
                                                               std::size_t source_length) const {
    return do_convert(nullptr, 0, source, source_length);
}

std::size_t codecvt_string_to_ustring::do_convert(char16_t * destination, std::size_t destination_length,
                                                  char const * source, std::size_t source_length) const {
    return run_pass<to_unicode_direction>(require_record(record_).converter.get(), destination,
                                          destination_length, source, source_length);
}

ustring codecvt_string_to_ustring::do_convert(char const * source, std::size_t source_length) {
    return run_driver<to_unicode_direction>(require_record(record_).converter.get(), source, source_length);
}

codecvt_ustring_to_string::codecvt_ustring_to_string(std::string const & encoding, bool lenient)
    : codecvt_ustring_to_string(lenient ? call_back_default : call_back_stop, encoding, {}) {}

codecvt_ustring_to_string::codecvt_ustring_to_string(codecvt_call_back_mode mode,
                                                     std::string const & encoding,
                                                     std::string const & substitution)
    : record_(open_conversion_record(encoding)) {
    apply_from_unicode_mode(*record_, mode, substitution);
}

codecvt_ustring_to_string::codecvt_ustring_to_string(codecvt_ustring_to_string &&) noexcept = default;
codecvt_ustring_to_string &
codecvt_ustring_to_string::operator=(codecvt_ustring_to_string &&) noexcept = default;
codecvt_ustring_to_string::~codecvt_ustring_to_string() = default;

void codecvt_ustring_to_string::change_call_back(codecvt_call_back_mode mode,
                                                 std::string const & substitution) {
    apply_from_unicode_mode(require_record(record_), mode, substitution);
}

void codecvt_ustring_to_string::reset_call_back() {
    change_call_back(call_back_default, {});
}

codecvt_call_back_mode codecvt_ustring_to_string::get_call_back_mode() const {
    return require_record(record_).from_unicode_mode;
}

std::size_t codecvt_ustring_to_string::do_get_destination_size(char16_t const * source,
                                                               std::size_t source_length) const {
    return do_convert(nullptr, 0, source, source_length);
}

std::size_t codecvt_ustring_to_string::do_convert(char * destination, std::size_t destination_length,
                                                  char16_t const * source, std::size_t source_length) const {
    return run_pass<from_unicode_direction>(require_record(record_).converter.get(), destination,
                                            destination_length, source, source_length);
}

std::string codecvt_ustring_to_string::do_convert(char16_t const * source, std::size_t source_length) {
    return run_driver<from_unicode_direction>(require_record(record_).converter.get(), source, source_length);
}

} // namespace fl::i18n
