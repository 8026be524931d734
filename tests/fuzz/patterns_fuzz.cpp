// Messages made of the pieces of patterns, or of any units, and filled from arguments: the text or the
// refusal is that of ICU, the library's own limits aside.

#include "catalogs/message_pattern.hpp"
#include "catalogs/simple_message.hpp"
#include "tests/fuzz/fuzz.hpp"
#include "tests/support/formatting_by_icu.hpp"

#include <algorithm>
#include <fl/i18n/limits.hpp>
#include <fl/i18n/message_catalog.hpp>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <unicode/messagepattern.h>
#include <unicode/msgfmt.h>
#include <unicode/regex.h>
#include <vector>

namespace {

using namespace fl::i18n;
using test::Arguments;
using test::Format;

constexpr double infinity = std::numeric_limits<double>::infinity();

ustring const lone_lead(1, char16_t(0xD800));

MessageCatalog::Argument const values[] = {std::int64_t{0},
                                           std::int64_t{1},
                                           std::int64_t{2},
                                           std::int64_t{-7},
                                           std::int64_t{1'000'000'000'000},
                                           std::numeric_limits<std::int64_t>::min(),
                                           std::numeric_limits<std::int64_t>::max(),
                                           0.0,
                                           -0.0,
                                           0.5,
                                           1.0,
                                           2.5,
                                           1234567.891,
                                           1e15,
                                           1e18,
                                           1e22,
                                           -1.7976931348623157e308,
                                           5e-324,
                                           infinity,
                                           -infinity,
                                           std::numeric_limits<double>::quiet_NaN(),
                                           ustring(),
                                           ustring(u"a"),
                                           ustring(u"{0} it's '{' \u3042"),
                                           lone_lead,
                                           ustring(300, u'x'),
                                           std::string("other"),
                                           std::string("\xC3\xA9\xF0\x9F\x98\x80"),
                                           std::string("a\xFF\xE3\x81z\0", 6)};

std::vector<ustring> split(ustring const & text, std::vector<ustring> parts) {
    for (std::size_t from = 0; from <= text.size();) {
        std::size_t const end = std::min(text.find(u'~', from), text.size());
        parts.push_back(text.substr(from, end - from));
        from = end + 1;
    }
    return parts;
}

/// The pieces of patterns, which wavy lines separate; a byte chooses one.
std::vector<ustring> const pieces =
    split(u"{0}~{1}~{2}~{ 3 }~{0,number}~{1,number,integer}~{~}~'~''~it's ~'{~}'~'#'~'|'~abc~ ~,~"
          u"{0,number,~{0,number,::~percent ~.00~@@#~scale/~precision-increment/~integer-width/+00~"
          u"unit/meter ~compact-short ~sign-always ~group-off ~EE0 ~0.05~-~E~1E3~1E-3~9~0~1~1E999~1E1000~"
          u"1E-1000~1E999999999~#,##0.0#~#~|~{0,plural,~{1,plural,~{2,selectordinal,~{0,select,~"
          u"{1,select,~{0,choice,~offset:1 ~=1{~=0{~one{~two{~other{~other{#}}~a{~0#~|1<~|2.5\u2264~}}~"
          u"{0,plural,other{~{0,select,other{~{0,choice,0#~{x}~{_}~{x,number}~{00}~{01}~{63}~{64}~"
          u"{32768}~\t~\u200E~\u00A0~\u2028~{0\t,\u200Enumber }~{0,Number}~{0,PLURAL,other{x}}~"
          u"{0,nonsense}~{0,number,percent}~{0,number,currency}~Infinity~\u3042\U0001F600",
          {lone_lead, ustring(1, char16_t(0xDC00)), ustring(1, u'\0')});

/// Takes an input apart.
class reader {
public:
    reader(std::uint8_t const * data, std::size_t size)
        : at_(data)
        , end_(data + size) {}

    std::size_t byte() { return at_ == end_ ? 0 : *at_++; }

    Arguments arguments() {
        Arguments result(byte() % 6);
        for (auto & value : result) {
            value = values[byte() % std::size(values)];
        }
        return result;
    }
    ustring units() {
        ustring result;
        while (at_ != end_) {
            char16_t const first = static_cast<char16_t>(byte());
            result += first < 0xF0 ? first : static_cast<char16_t>(byte() << 8 | byte());
        }
        return result;
    }
    ustring pattern() {
        constexpr std::size_t most_pieces = 200; // deeper than holes nest
        ustring result;
        for (std::size_t i = 0; at_ != end_ && i < most_pieces; ++i) {
            result += pieces[byte() % std::size(pieces)];
        }
        return result;
    }

private:
    std::uint8_t const * at_;
    std::uint8_t const * end_;
};

/// What ICU reads in a message.
struct reading {
    bool is_beyond_limits = false; ///< or nearly: ICU must not be asked for more
    bool is_pattern = false;
    std::size_t distinct_holes = 0;
    std::optional<ustring> type; ///< of the first hole of the number asked for, in small letters
};

/// Tells whether a style has a great power of ten in a skeleton.
bool has_great_number(icu::UnicodeString const & style) {
    UErrorCode status = U_ZERO_ERROR;
    static std::unique_ptr<icu::RegexPattern> const great(icu::RegexPattern::compile(
        u"(scale|precision-increment)/[-+.0-9eE]*[eE][-+]?0*[1-9][0-9]{3}", 0, status));
    std::unique_ptr<icu::RegexMatcher> const matcher(great->matcher(style, status));
    return matcher->find();
}

reading read_by_icu(ustring const & message, std::int32_t number) {
    reading result;
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString const text(message.data(), static_cast<std::int32_t>(message.size()));
    auto const pattern = icu::MessageFormat::autoQuoteApostrophe(text, status);
    icu::MessagePattern const parsed(pattern, nullptr, status);
    std::vector<icu::UnicodeString> names;
    for (std::int32_t i = 0; U_SUCCESS(status) && i < parsed.countParts(); ++i) {
        auto const & part = parsed.getPart(i);
        if (part.getType() == UMSGPAT_PART_TYPE_MSG_START) {
            result.is_beyond_limits |= part.getValue() > static_cast<std::int32_t>(limits::deepest_nesting);
        } else if (part.getType() == UMSGPAT_PART_TYPE_ARG_STYLE) {
            result.is_beyond_limits |= has_great_number(parsed.getSubstring(part));
        } else if (part.getType() == UMSGPAT_PART_TYPE_ARG_START) {
            auto const & name = parsed.getPart(i + 1);
            names.push_back(parsed.getSubstring(name));
            if (!result.type && name.getType() == UMSGPAT_PART_TYPE_ARG_NUMBER && name.getValue() == number) {
                char const * const complex[] = {"", "", "choice", "plural", "select", "selectordinal"};
                result.type = part.getArgType() == UMSGPAT_ARG_TYPE_SIMPLE
                                  ? test::text_of(parsed.getSubstring(parsed.getPart(i + 2)).toLower("en"))
                                  : test::text_of(icu::UnicodeString(complex[part.getArgType()]));
            }
        }
    }
    std::sort(names.begin(), names.end());
    result.distinct_holes = static_cast<std::size_t>(std::unique(names.begin(), names.end()) - names.begin());
    result.is_pattern = U_SUCCESS(status) && !result.is_beyond_limits;
    return result;
}

bool has_formats(ustring const & message) {
    try {
        test::fill_by_icu(message, Arguments(1'000), {});
    } catch (MessageCatalog::MessageFormatIncorrect const &) {
        return false;
    } catch (MessageCatalog::IncorrectHoleCount const &) {
    }
    return true;
}

void compare_type(ustring const & message, std::uint64_t hole, reading const & expected) {
    bool const is_accepted = expected.is_pattern && has_formats(message);
    try {
        auto const type = MessageCatalog::GetCustomHoleType(message, hole);
        fl::fuzz::require(is_accepted && hole <= expected.distinct_holes, "a message is accepted");
        icu::UnicodeString const text(type.data(), static_cast<std::int32_t>(type.size()));
        fl::fuzz::require(test::text_of(icu::UnicodeString(text).toLower("en")) ==
                              expected.type.value_or(u""),
                          "the type of a hole");
    } catch (MessageCatalog::MessageFormatIncorrect const &) {
        fl::fuzz::require(!is_accepted, "a message is refused");
    } catch (MessageCatalog::IncorrectHoleCount const & error) {
        fl::fuzz::require(is_accepted && hole > expected.distinct_holes &&
                              error.getNumHolesFound() == expected.distinct_holes,
                          "the number of holes");
    }
}

void compare_texts(ustring const & message, Arguments const & args, Format const & format, bool is_pattern) {
    auto const ours = [](auto const &... given) { return MessageCatalog::GetFormattedMessage(given...); };
    auto const by_pattern = [](ustring const & text, Arguments const & given, Format const & chosen) {
        return message_pattern(text).fill(given, chosen);
    };
    MessageCatalog::MessageFormatIncorrect const refusal;
    auto const result = test::outcome(ours, message, args, format);
    fl::fuzz::require(!simple_message(message).is_simple() ||
                          result == test::outcome(by_pattern, message, args, format),
                      "a simple message as a pattern");
    auto const expected = is_pattern ? test::outcome(test::fill_by_icu, message, args, format)
                                     : std::pair(ustring(), std::string(refusal.what()));
    fl::fuzz::require(result == expected, "a filled message");
}

} // namespace

/// Most of the time would go into the sanitizer's records of ICU's small blocks.
extern "C" char const * __asan_default_options() {
    return "malloc_context_size=2:quarantine_size_mb=8:thread_local_quarantine_size_kb=64";
}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
    reader input(data, size);
    std::size_t const mode = input.byte();
    std::uint64_t const hole = input.byte() % 8; // 0 for none
    auto args = input.arguments();
    auto const message = mode % 2 == 0 ? input.pattern() : input.units();
    auto const format = mode / 2 % 16 == 0 ? Format() : static_cast<numeric_format>(mode / 2 % 16);
    auto const read = read_by_icu(message, static_cast<std::int32_t>(hole) - 1);
    if (hole != 0) {
        compare_type(message, hole - 1, read);
        return 0;
    }
    if (mode / 32 != 0 && read.distinct_holes < 6) { // mostly as many as there are holes
        args.resize(read.distinct_holes, values[mode % std::size(values)]);
    }
    compare_texts(message, args, format, read.is_pattern);
    return 0;
}
