#include "tools/fl_i18n/convert.hpp"

#include "tools/fl_i18n/code_points.hpp"
#include "tools/fl_i18n/command.hpp"

#include <algorithm>
#include <fl/i18n/codecvt.hpp>
#include <iterator>
#include <new>
#include <stdexcept>
#include <unicode/ucnv.h>
#include <unicode/ucnv_err.h>
#include <unicode/utf16.h>
#include <utility>

namespace fl::tool {

namespace {

constexpr char16_t replacement = u'\uFFFD';
constexpr char16_t signature = u'\uFEFF';

void U_CALLCONV stop_decoding(void const *, UConverterToUnicodeArgs *, char const *, std::int32_t,
                              UConverterCallbackReason, UErrorCode *) {}

// The library's own stop call-back lets invisible characters vanish.
void U_CALLCONV stop_encoding(void const *, UConverterFromUnicodeArgs *, UChar const *, std::int32_t, UChar32,
                              UConverterCallbackReason, UErrorCode *) {}

void set_call_back(UConverter & encoder, UConverterFromUCallback call_back, void const * context) {
    UErrorCode status = U_ZERO_ERROR;
    ucnv_setFromUCallBack(&encoder, call_back, context, nullptr, nullptr, &status);
    if (U_FAILURE(status)) {
        throw std::runtime_error(u_errorName(status));
    }
}

/// Tells whether a conversion ended at a loss; throws when it failed otherwise.
bool is_loss(UErrorCode status) {
    switch (status) {
    case U_INVALID_CHAR_FOUND:
    case U_ILLEGAL_CHAR_FOUND:
    case U_TRUNCATED_CHAR_FOUND:
    case U_ILLEGAL_ESCAPE_SEQUENCE:
    case U_UNSUPPORTED_ESCAPE_SEQUENCE:
        return true;
    case U_BUFFER_OVERFLOW_ERROR:
        return false;
    default:
        if (U_FAILURE(status)) {
            throw std::runtime_error(u_errorName(status));
        }
        return false;
    }
}

std::size_t pending_bytes(UConverter const & decoder) {
    UErrorCode status = U_ZERO_ERROR;
    return static_cast<std::size_t>(std::max(ucnv_toUCountPending(&decoder, &status), 0));
}

/// Tells whether an encoding writes a signature of its own, or has no way to write one.
bool has_no_use_for_signature(UConverter & encoder) {
    UConverterType const type = ucnv_getType(&encoder);
    if (type == UCNV_UTF16 || type == UCNV_UTF32) {
        return true;
    }
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<UConverter, decltype(&ucnv_close)> const trial(ucnv_clone(&encoder, &status),
                                                                   &ucnv_close);
    if (!trial) {
        throw std::bad_alloc();
    }
    set_call_back(*trial, stop_encoding, nullptr);
    char bytes[16];
    ucnv_fromUChars(trial.get(), bytes, sizeof bytes, &signature, 1, &status);
    return U_FAILURE(status);
}

} // namespace

/// Substitutes or escapes, and remembers that it did.
struct encoding_conversion::action {
    explicit action(loss_handling const & handling)
        : escapes(handling.what == loss_handling::kind::escape)
        , letter(handling.escape) {}

    static void U_CALLCONV call_back(void const * context, UConverterFromUnicodeArgs * arguments,
                                     UChar const * units, std::int32_t length, UChar32 character,
                                     UConverterCallbackReason reason, UErrorCode * status) {
        if (reason > UCNV_IRREGULAR) {
            return;
        }
        auto const & self = *static_cast<action const *>(context);
        self.used = true;
        if (self.escapes) {
            // Unassigned invisible characters would vanish instead.
            UCNV_FROM_U_CALLBACK_ESCAPE(self.letter.empty() ? nullptr : self.letter.c_str(), arguments, units,
                                        length, character, UCNV_ILLEGAL, status);
        } else {
            UCNV_FROM_U_CALLBACK_SUBSTITUTE(nullptr, arguments, units, length, character, reason, status);
        }
    }

    bool const escapes;
    std::string const letter;
    mutable bool used = false;
};

void encoding_conversion::closer::operator()(UConverter * converter) const noexcept {
    ucnv_close(converter);
}

encoding_conversion::handle encoding_conversion::open_converter(std::string const & encoding) {
    for (std::string const & name : {encoding, i18n::get_standard_encoding_name(encoding)}) {
        UErrorCode status = U_ZERO_ERROR;
        if (handle converter{name.empty() ? nullptr : ucnv_open(name.c_str(), &status)}) {
            return converter;
        }
    }
    throw command_failure(exit_usage, "the encoding \"" + encoding + "\" is not known");
}

encoding_conversion::handle encoding_conversion::clone(UConverter const & converter) {
    UErrorCode status = U_ZERO_ERROR;
    handle copy(ucnv_clone(&converter, &status));
    if (!copy) {
        throw std::bad_alloc();
    }
    return copy;
}

encoding_conversion::encoding_conversion(std::string const & from, std::string const & to,
                                         loss_handling handling, listener on_loss)
    : handling_(std::move(handling))
    , on_loss_(std::move(on_loss))
    , action_(std::make_unique<action>(handling_))
    , decoder_(open_converter(from))
    , encoder_(open_converter(to)) {
    UErrorCode status = U_ZERO_ERROR;
    ucnv_setToUCallBack(decoder_.get(), stop_decoding, nullptr, nullptr, nullptr, &status);
    drops_signature_ = has_no_use_for_signature(*encoder_);
    set_call_back(*encoder_, stops() ? stop_encoding : action::call_back, action_.get());
}

encoding_conversion::~encoding_conversion() = default;

std::string encoding_conversion::convert(std::string_view bytes, bool last) {
    // Decoders look for a signature in the first bytes.
    constexpr std::size_t longest_signature = 4;
    held_ += bytes;
    if (consumed_ == 0 && held_.size() < longest_signature && !last) {
        return {};
    }
    decode(last);
    drop_signature();
    std::string result = encode(last || stopped_);
    report();
    lines_ += static_cast<std::uint64_t>(std::count(units_.begin(), units_.end(), u'\n'));
    forget_units();
    unmappable_.clear();
    return result;
}

/// Decodes the bytes that are held up to where no sequence is left open: the decoder must see a sequence in
/// one piece to tell where its parts are.
void encoding_conversion::decode(bool last) {
    // Garbage may have no such place; its losses may then be a few bytes off at the edges of pieces.
    constexpr int most_attempts = 8;
    std::size_t size = held_.size();
    for (int attempt = 1; size > 0 || last; ++attempt) {
        handle before = clone(*decoder_);
        decode_to(size, last);
        std::size_t const open = std::min(pending_bytes(*decoder_), size);
        if (open == 0 || stopped_ || attempt == most_attempts) {
            break;
        }
        decoder_ = std::move(before);
        forget_units();
        size -= open;
    }
    consumed_ += size;
    held_.erase(0, size);
}

void encoding_conversion::decode_to(std::size_t size, bool last) {
    // One call rarely needs so much; there is another one then.
    i18n::ustring buffer(2 * size + 64, u'\0');
    std::vector<std::int32_t> offsets(buffer.size());
    char const * source = held_.data();
    UErrorCode status = U_BUFFER_OVERFLOW_ERROR;
    while (!stopped_ && status != U_ZERO_ERROR) {
        std::uint64_t const call = consumed_ + static_cast<std::size_t>(source - held_.data());
        char16_t * target = buffer.data();
        status = U_ZERO_ERROR;
        ucnv_toUnicode(decoder_.get(), &target, target + buffer.size(), &source, held_.data() + size,
                       offsets.data(), last, &status);
        units_.append(buffer.data(), target);
        for (std::size_t i = 0; places_.size() < units_.size(); ++i) {
            // -1 is a character of two bytes whose first some decoders keep without counting it as pending.
            places_.push_back(call + static_cast<std::uint64_t>(std::int64_t(offsets[i])));
        }
        if (is_loss(status)) {
            take_malformed(consumed_ + static_cast<std::size_t>(source - held_.data()));
            stopped_ = stops();
        }
    }
}

/// Takes the sequence at which the decoder stopped, which ends at `end`.
void encoding_conversion::take_malformed(std::uint64_t end) {
    char bytes[32];
    auto length = static_cast<std::int8_t>(sizeof bytes);
    UErrorCode status = U_ZERO_ERROR;
    ucnv_getInvalidChars(decoder_.get(), bytes, &length, &status);
    if (U_FAILURE(status)) {
        throw std::runtime_error(u_errorName(status));
    }
    auto const size = static_cast<std::size_t>(length);
    malformed_.push_back({units_.size(), std::string(bytes, size), 0});
    units_ += replacement;
    places_.push_back(end - size);
}

void encoding_conversion::drop_signature() {
    if (started_ || units_.empty()) {
        return;
    }
    started_ = true;
    if (drops_signature_ && units_.front() == signature) {
        units_.erase(0, 1);
        places_.erase(places_.begin());
        for (lost & each : malformed_) {
            --each.index;
        }
    }
}

std::string encoding_conversion::encode(bool last) {
    std::string result;
    if (stops()) {
        if (!malformed_.empty()) {
            units_.resize(malformed_.front().index);
        }
        find_unmappable(*encoder_, &result, last);
        return result;
    }
    handle const before = clone(*encoder_);
    action_->used = false;
    find_unmappable(*encoder_, &result, last);
    if (action_->used) {
        set_call_back(*before, stop_encoding, nullptr);
        find_unmappable(*before, nullptr, last);
    }
    return result;
}

/// Encodes the units and collects those at which an encoder stops.
void encoding_conversion::find_unmappable(UConverter & encoder, std::string * result, bool last) {
    std::string bytes(2 * units_.size() + 64, '\0');
    UChar const * source = units_.data();
    UErrorCode status = U_BUFFER_OVERFLOW_ERROR;
    while (status != U_ZERO_ERROR) {
        char * target = bytes.data();
        status = U_ZERO_ERROR;
        ucnv_fromUnicode(&encoder, &target, target + bytes.size(), &source, units_.data() + units_.size(),
                         nullptr, last, &status);
        if (result != nullptr) {
            result->append(bytes.data(), target);
        }
        if (is_loss(status)) {
            take_unmappable(encoder, static_cast<std::size_t>(source - units_.data()));
            if (stops()) {
                stopped_ = true;
                // What came before is completed.
                source = units_.data() + units_.size();
                last = true;
            }
        }
    }
}

/// Takes the character at which an encoder stopped, which ends at `end`.
void encoding_conversion::take_unmappable(UConverter & encoder, std::size_t end) {
    UChar units[U16_MAX_LENGTH];
    std::int8_t length = U16_MAX_LENGTH;
    UErrorCode status = U_ZERO_ERROR;
    ucnv_getInvalidUChars(&encoder, units, &length, &status);
    if (U_FAILURE(status) || length == 0) {
        throw std::runtime_error(u_errorName(status));
    }
    auto const size = static_cast<std::size_t>(length);
    unmappable_.push_back({end - std::min(size, end), {}, code_point_at({units, size}, 0)});
}

void encoding_conversion::report() {
    auto const is_before = [](lost const & a, lost const & b) { return a.index < b.index; };
    std::vector<lost> losses;
    // The encoder may lack what stands for malformed bytes, which are counted already.
    std::set_union(malformed_.begin(), malformed_.end(), unmappable_.begin(), unmappable_.end(),
                   std::back_inserter(losses), is_before);
    if (stops() && !losses.empty()) {
        losses.resize(1);
    }
    auto counted = units_.begin();
    std::uint64_t line = lines_ + 1;
    for (lost const & each : losses) {
        auto const at = units_.begin() + static_cast<std::ptrdiff_t>(each.index);
        line += static_cast<std::uint64_t>(std::count(counted, at, u'\n'));
        counted = at;
        on_loss_({each.index < places_.size() ? places_[each.index] : consumed_, line, each.bytes,
                  each.character});
    }
}

void encoding_conversion::forget_units() {
    units_.clear();
    places_.clear();
    malformed_.clear();
}

} // namespace fl::tool
