#include "catalogs/xml_catalog_data_store.hpp"

#include "foundation/utf8_decode.hpp"

#include <algorithm>
#include <cstring>
#include <limits>
#include <optional>
#include <unicode/unistr.h>
#include <utility>

namespace fl::i18n {

namespace {

constexpr std::size_t fewest_slots = 4;
constexpr std::size_t most_text_units = std::numeric_limits<std::int32_t>::max();

/// Replaces the escapes of a text in its place, where the result always fits. Returns its new length, or
/// nothing without memory.
std::optional<std::uint32_t> unescape(char16_t * text, std::size_t length) {
    auto const unescaped = icu::UnicodeString(false, text, static_cast<std::int32_t>(length)).unescape();
    if (unescaped.isBogus()) {
        return std::nullopt;
    }
    auto const new_length = static_cast<std::uint32_t>(unescaped.length());
    std::memcpy(text, unescaped.getBuffer(), new_length * sizeof(char16_t));
    return new_length;
}

/// Writes a text as UTF-16, with its escapes replaced, where there is room for one unit for each of its
/// bytes.
std::optional<std::uint32_t> write_text(char16_t * destination, std::string_view text) {
    auto const length = static_cast<std::uint32_t>(decode_utf8(destination, text));
    return text.find('\\') == text.npos ? length : unescape(destination, length);
}

} // namespace

XMLCatalogDataStore::XMLCatalogDataStore()
    : slots_(fewest_slots)
    , texts_(units_.data(), slots_) {}

XMLCatalogDataStore::~XMLCatalogDataStore() = default;

bool XMLCatalogDataStore::add(std::string_view key, std::string_view text) {
    if (text.size() > most_text_units || key.size() > most_text_units) {
        return false;
    }
    if (count_ + 1 > slots_.size() / 4 * 3) {
        grow();
    }
    std::uint32_t const hash = message_texts::hash(key);
    message_slot & slot = slots_[texts_.find_slot(key, hash)];
    if (!slot.is_free()) {
        return true;
    }
    std::size_t const begin = units_.size();
    auto const text_units = append(key, text);
    if (!text_units) {
        units_.resize(begin);
        return false;
    }
    slot = {hash, static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(key.size()), *text_units};
    ++count_;
    return true;
}

std::optional<std::uint32_t> XMLCatalogDataStore::append(std::string_view key, std::string_view text) {
    std::size_t const begin = units_.size();
    if (begin > std::numeric_limits<std::uint32_t>::max()) {
        return std::nullopt;
    }
    std::size_t const text_begin = begin + (key.size() + 1) / sizeof(char16_t);
    units_.resize(text_begin + text.size());
    texts_ = {units_.data(), slots_};
    key.copy(reinterpret_cast<char *>(units_.data() + begin), key.size());
    auto const length = write_text(units_.data() + text_begin, text);
    if (length) {
        units_.resize(text_begin + *length);
    }
    return length;
}

void XMLCatalogDataStore::grow() {
    std::vector<message_slot> grown(slots_.size() * 2);
    message_texts const larger(units_.data(), grown);
    for (message_slot const & slot : slots_) {
        if (!slot.is_free()) {
            grown[larger.find_slot(larger.key(slot), slot.hash)] = slot;
        }
    }
    slots_ = std::move(grown);
    texts_ = larger;
}

std::vector<std::string> XMLCatalogDataStore::keys() const {
    std::vector<std::string> result;
    result.reserve(count_);
    for (message_slot const & slot : texts_.slots()) {
        if (!slot.is_free()) {
            result.emplace_back(texts_.key(slot));
        }
    }
    return result;
}

void XMLCatalogDataStore::seal(message_pool & pool) {
    std::size_t const slot_bytes = slots_.size() * sizeof(message_slot);
    sealed_ = pool.allocate(slot_bytes + units_.size() * sizeof(char16_t));
    auto * const slots = static_cast<message_slot *>(sealed_.get());
    auto * const units = reinterpret_cast<char16_t *>(slots + slots_.size());
    std::copy(slots_.begin(), slots_.end(), slots);
    std::copy(units_.begin(), units_.end(), units);
    texts_ = {units, {slots, slots_.size()}};
    // Assigning {} would keep the memory.
    slots_ = std::vector<message_slot>();
    units_ = std::vector<char16_t>();
}

} // namespace fl::i18n
