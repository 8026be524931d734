#include "locale/encoding_registry.hpp"

#include <functional>

namespace fl::i18n::lcmgmt {

std::size_t encoding_registry::place_of(std::string_view name) const noexcept {
    // Names are few against the slots: a search that does not end soon may as well be given up.
    constexpr std::size_t longest_search = 16;
    std::size_t const start = std::hash<std::string_view>()(name);
    for (std::size_t i = 0; i < longest_search; ++i) {
        std::size_t const place = (start + i) % slot_count;
        auto const * const there = slots_[place].load(std::memory_order_acquire);
        if (!there || there->name == name) {
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
        names_.push_back(std::make_unique<named_encoding const>(named_encoding{name, encoding.get()}));
        slots_[place].store(names_.back().get(), std::memory_order_release);
    }
    return encoding.get();
}

} // namespace fl::i18n::lcmgmt
