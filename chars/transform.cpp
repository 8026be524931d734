#include "chars/mark_order.hpp"

#include <algorithm>
#include <boost/throw_exception.hpp>
#include <fl/i18n/ctype.hpp>
#include <limits>
#include <unicode/unorm2.h>
#include <unicode/ustring.h>

namespace fl::i18n {

to_upper_locale::to_upper_locale()
    : to_upper_locale(QzLocale::global()) {}
to_upper_locale::to_upper_locale(QzLocale const & locale)
    : locale_(&locale) {}
QzLocale const & to_upper_locale::locale() const noexcept {
    return *locale_;
}

to_lower_locale::to_lower_locale()
    : to_lower_locale(QzLocale::global()) {}
to_lower_locale::to_lower_locale(QzLocale const & locale)
    : locale_(&locale) {}
QzLocale const & to_lower_locale::locale() const noexcept {
    return *locale_;
}

namespace detail {

namespace {

constexpr std::size_t largest_size = std::numeric_limits<std::int32_t>::max();

/// Returns the source as a view, empty for a null pointer.
std::u16string_view source_text(char16_t const * src, std::size_t src_len) {
    if (!src || src_len == 0) {
        return {};
    }
    if (src_len > largest_size) {
        boost::throw_exception(CtypeSizeTooLarge());
    }
    return {src, src_len};
}

/// Runs an operation of the conversion library, which takes the buffer's capacity, the length of the source
/// and a status, and returns the length of the full result.
template <class Operation>
std::size_t run(char16_t * dst, std::size_t dst_len, std::u16string_view source, Operation operation) {
    if (source.empty()) {
        return 0;
    }
    auto const capacity = static_cast<std::int32_t>(dst ? std::min(dst_len, largest_size) : 0);
    UErrorCode status = U_ZERO_ERROR;
    std::int32_t const length = operation(capacity, static_cast<std::int32_t>(source.size()), &status);
    if (U_FAILURE(status) && status != U_BUFFER_OVERFLOW_ERROR) {
        boost::throw_exception(CtypeTransformFailure(status));
    }
    return static_cast<std::size_t>(length);
}

std::size_t map_case(char16_t * dst, std::size_t dst_len, char16_t const * src, std::size_t src_len,
                     decltype(&u_strToLower) mapping, QzLocale const & locale) {
    std::string name = locale.getLcName(QzLocale::LcCategory::ctype);
    // Behind the language the conversion library expects a separator of its own: "tr.UTF-8" would be no
    // Turkish.
    name.resize(std::min(name.find_first_of(".@"), name.size()));
    return run(dst, dst_len, source_text(src, src_len),
               [&](std::int32_t capacity, std::int32_t length, UErrorCode * status) {
                   return mapping(dst, capacity, src, length, name.c_str(), status);
               });
}

auto normalizer_of(normalization_form form) {
    switch (form) {
    case normalization_form::compose:
        return &unorm2_getNFCInstance;
    case normalization_form::decompose:
        return &unorm2_getNFDInstance;
    }
    boost::throw_exception(CtypeInvalidArgument());
}

template <class CaseMode>
std::size_t map_and_normalize(char16_t * dst, std::size_t dst_len, char16_t const * src, std::size_t src_len,
                              CaseMode const & mode, normalization_form form) {
    ustring const mapped = fl::i18n::transform(source_text(src, src_len), mode);
    return transform(dst, dst_len, mapped.data(), mapped.size(), form);
}

} // namespace

std::size_t transform(char16_t * dst, std::size_t dst_len, char16_t const * src, std::size_t src_len,
                      to_lower_locale const & mode) {
    return map_case(dst, dst_len, src, src_len, &u_strToLower, mode.locale());
}

std::size_t transform(char16_t * dst, std::size_t dst_len, char16_t const * src, std::size_t src_len,
                      to_upper_locale const & mode) {
    return map_case(dst, dst_len, src, src_len, &u_strToUpper, mode.locale());
}

std::size_t transform(char16_t * dst, std::size_t dst_len, char16_t const * src, std::size_t src_len,
                      normalization_form form) {
    auto const normalizer = normalizer_of(form);
    ustring storage;
    std::u16string_view const text = order_long_mark_runs(source_text(src, src_len), storage);
    return run(dst, dst_len, text, [&](std::int32_t capacity, std::int32_t length, UErrorCode * status) {
        return unorm2_normalize(normalizer(status), text.data(), length, dst, capacity, status);
    });
}

std::size_t transform(char16_t * dst, std::size_t dst_len, char16_t const * src, std::size_t src_len,
                      to_lower_locale const & mode, normalization_form form) {
    return map_and_normalize(dst, dst_len, src, src_len, mode, form);
}

std::size_t transform(char16_t * dst, std::size_t dst_len, char16_t const * src, std::size_t src_len,
                      to_upper_locale const & mode, normalization_form form) {
    return map_and_normalize(dst, dst_len, src, src_len, mode, form);
}

} // namespace detail

} // namespace fl::i18n
