#include "locale/encoding_registry.hpp"

namespace fl::i18n::lcmgmt {

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
