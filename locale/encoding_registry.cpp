#include "locale/encoding_registry.hpp"

#include <cstring>

namespace fl::i18n::lcmgmt {

encoding_registry::name_ends::name_ends(std::string_view name) noexcept
    : length(name.size()) {
    if (length >= sizeof first) {
        std::memcpy(&first, name.data(), sizeof first);
        std::memcpy(&last, name.data() + length - sizeof last, sizeof last);
    } else {
        for (char const c : name) {
            first = first << 8 | static_cast<unsigned char>(c);
        }
    }
}

std::size_t encoding_registry::place_of(std::string_view name) const noexcept {
    // Names are few against the slots: a search that does not end soon may as well be given up.
    constexpr std::size_t longest_search = 16;
    name_ends const ends(name);
    std::size_t const start = ((ends.first ^ (ends.last >> 7) ^ ends.length) * 0x9E3779B97F4A7C15) >> 32;
    for (std::size_t i = 0; i < longest_search; ++i) {
        std::size_t const place = (start + i) % slot_count;
        auto const * const there = slots_[place].load(std::memory_order_acquire);
        if (!there || (there->ends == ends && (ends.length <= 16 || there->name == name))) {
            return place;
        }
    }
    return slot_count;
}

kept_encoding const * encoding_registry::find(std::string_view name) const noexcept {
    std::size_t const place = place_of(name);
    auto const * const found = place == slot_count ? nullptr : slots_[place].load(std::memory_order_acquire);
    return found ? found->encoding : nullptr;
}

kept_encoding const * encoding_registry::add(std::string const & name, icu_converter converter) {
    UErrorCode status = U_ZERO_ERROR;
    char const * const own_name = ucnv_getName(converter.get(), &status);
    bool const has_options = name.find(',') != std::string::npos;
    auto & encoding = encodings_[has_options || U_FAILURE(status) ? name : own_name];
    if (!encoding) {
        encoding = std::make_unique<kept_encoding const>(std::move(converter));
    }
    std::size_t const place = place_of(name);
    if (place != slot_count && !slots_[place].load(std::memory_order_relaxed)) {
        names_.push_back(
            std::make_unique<named_encoding const>(named_encoding{name_ends(name), name, encoding.get()}));
        slots_[place].store(names_.back().get(), std::memory_order_release);
    }
    return encoding.get();
}

} // namespace fl::i18n::lcmgmt
