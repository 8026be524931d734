#include "catalogs/message_formatting.hpp"

#include "catalogs/message_pattern.hpp"
#include "catalogs/simple_message.hpp"
#include "foundation/find_unit.hpp"

#include <algorithm>
#include <boost/throw_exception.hpp>
#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/message_catalog.hpp>
#include <limits>

namespace fl::i18n {

namespace {

/// Tells whether a message without arguments is its own result: it has neither holes nor apostrophes.
bool is_plain(std::u16string_view message) {
    char16_t const * const end = message.data() + message.size();
    return message.size() <= std::numeric_limits<std::int32_t>::max() &&
           find_either(message.data(), end, u'{', u'\'') == end;
}

} // namespace

ustring format_message(std::u16string_view message, std::vector<MessageCatalog::Argument> const & args,
                       std::optional<numeric_format> const & format) {
    simple_message const simple(message);
    if (simple.is_simple()) {
        if (args.size() != simple.distinct_holes()) {
            boost::throw_exception(MessageCatalog::IncorrectHoleCount(simple.distinct_holes(), args.size()));
        }
        if (auto const room = simple.room_for(args); room != simple_message::too_much) {
            return simple.fill(args, format, room);
        }
    }
    return message_pattern(message).fill(args, format);
}

ustring format_message(std::u16string_view message) {
    return is_plain(message) ? ustring(message) : format_message(message, {}, std::nullopt);
}

ustring MessageCatalog::GetFormattedMessage(ustring const & message, std::vector<Argument> const & args,
                                            std::optional<numeric_format> const & format) {
    return format_message(message, args, format);
}

ustring MessageCatalog::GetFormattedMessage(ustring const & message, std::uint64_t count, ArgumentFiller fill,
                                            std::optional<numeric_format> const & format) {
    if (count != 0 && !fill) {
        boost::throw_exception(MessageFormatIncorrect());
    }
    std::vector<Argument> args(count);
    if (fill) {
        fill(args, {message, count});
    }
    return GetFormattedMessage(message, args, format);
}

ustring MessageCatalog::GetCustomHoleType(ustring const & message, std::uint64_t hole) {
    message_pattern const pattern(message);
    pattern.check();
    if (hole > pattern.distinct_holes()) {
        boost::throw_exception(IncorrectHoleCount(hole, pattern.distinct_holes()));
    }
    auto const & holes = pattern.holes();
    auto const position = std::find_if(holes.begin(), holes.end(), [hole](message_pattern::hole const & h) {
        return !h.has_name && static_cast<std::uint64_t>(h.number) == hole;
    });
    return position == holes.end() ? ustring() : codecvt_ascii_to_ustring(false).convert(position->type());
}

} // namespace fl::i18n
