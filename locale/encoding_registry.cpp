#include "locale/encoding_registry.hpp"

namespace fl::i18n::lcmgmt {

encoding_registry::place encoding_registry::place_of(std::string_view name) const noexcept {
    // Names are few against the slots: a search that does not end soon may as well be given up.
    constexpr std::size_t longest_search = 16;
    name_ends const ends(name);
    for (std::size_t i = 0; i < longest_search; ++i) {
        std::size_t const slot = (ends.first_place() + i) % slot_count;
        auto const * const there = slots_[slot].load(std::memory_order_acquire);
        if (!there || (there->ends == ends && (ends.are_all() || there->name == name))) {
            return {slot, there};
        }
    }
    return {slot_count, nullptr};
}

kept_encoding const * encoding_registry::find_further(std::string_view name) const noexcept {
    auto const * const found = place_of(name).found;
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
    place const at = place_of(name);
    if (at.slot != slot_count && !at.found) {
        names_.push_back(
            std::make_unique<named_encoding const>(named_encoding{name_ends(name), name, encoding.get()}));
        slots_[at.slot].store(names_.back().get(), std::memory_order_release);
    }
    return encoding.get();
}

} // namespace fl::i18n::lcmgmt
