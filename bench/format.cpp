#include <benchmark/benchmark.h>
#include <cstdint>
#include <fl/i18n/message_catalog.hpp>
#include <string>
#include <unicode/decimfmt.h>
#include <unicode/msgfmt.h>
#include <unicode/numberformatter.h>
#include <vector>

// Messages with their holes filled, beside ICU's formatter built for each message, as the rule for such
// messages goes (with its locale), and one built beforehand.

namespace fl::bench {
namespace {

using i18n::MessageCatalog;
using i18n::ustring;
using Arguments = std::vector<MessageCatalog::Argument>;
using icu::Formattable;
using icu::UnicodeString;

struct message {
    char const * name;
    ustring text;
    Arguments args;
};

message const messages[] = {
    {"no holes", u"The file was not saved, since the disk is full; free some.", {}},
    {"plain holes", u"Cannot open {0}: error {1}", {ustring(u"settings.xml"), std::int64_t{1404}}},
    {"plain holes, UTF-8", u"Cannot open {0}: error {1}", {"settings.xml", std::int64_t{1404}}},
    {"number hole", u"{0,number} files", {std::int64_t{4711}}},
    {"double", u"{0}", {1234.5678}},
    {"double in text", u"The page is {0} mm wide, {1} mm high.", {210.25, 296.875}},
    {"plural", u"{0,plural,one{One file}other{# files}} in {1}", {std::int64_t{3}, ustring(u"src")}},
};

icu::Locale locale() {
    return {"en", "US", "POSIX"};
}

icu::MessageFormat build(message const & m) {
    UErrorCode status = U_ZERO_ERROR;
    UParseError position;
    UnicodeString const text(false, m.text.data(), static_cast<std::int32_t>(m.text.size()));
    auto const pattern = icu::MessageFormat::autoQuoteApostrophe(text, status);
    icu::MessageFormat format(pattern, locale(), position, status);
    // The format of doubles, which ours have by default.
    static auto const doubles = icu::number::NumberFormatter::with()
                                    .precision(icu::number::Precision::fixedFraction(4))
                                    .locale(locale());
    for (std::size_t i = 0; i < m.args.size(); ++i) {
        if (std::holds_alternative<double>(m.args[i])) {
            format.adoptFormat(static_cast<std::int32_t>(i), doubles.toFormat(status));
        }
    }
    return format;
}

struct setter {
    Formattable & value;

    void operator()(std::int64_t integer) const { value.setInt64(integer); }
    void operator()(double number) const { value.setDouble(number); }
    void operator()(std::string const & text) const { value.setString(UnicodeString::fromUTF8(text)); }
    void operator()(ustring const & text) const {
        value.setString(UnicodeString(false, text.data(), static_cast<std::int32_t>(text.size())));
    }
};

ustring fill(icu::MessageFormat const & format, Arguments const & args) {
    std::vector<Formattable> values(args.size());
    for (std::size_t i = 0; i < args.size(); ++i) {
        std::visit(setter{values[i]}, args[i]);
    }
    UErrorCode status = U_ZERO_ERROR;
    UnicodeString result;
    icu::FieldPosition ignored(icu::FieldPosition::DONT_CARE);
    format.format(values.data(), static_cast<std::int32_t>(values.size()), result, ignored, status);
    return {result.getBuffer(), static_cast<std::size_t>(result.length())};
}

/// Measures a way to fill a message, which must give the text that ours gives.
template <class Fill>
void measure(benchmark::State & state, message const & m, Fill const & fill_message) {
    if (fill_message(m) != MessageCatalog::GetFormattedMessage(m.text, m.args)) {
        state.SkipWithError("another text");
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(fill_message(m));
    }
}

void ours(benchmark::State & state, message const & m) {
    measure(state, m, [](message const & given) {
        return MessageCatalog::GetFormattedMessage(given.text, given.args);
    });
}

void built_each_time(benchmark::State & state, message const & m) {
    measure(state, m, [](message const & given) { return fill(build(given), given.args); });
}

void prebuilt(benchmark::State & state, message const & m) {
    auto const format = build(m);
    measure(state, m, [&format](message const & given) { return fill(format, given.args); });
}

bool const registered = [] {
    for (auto const & m : messages) {
        auto const add = [&m](char const * contestant, auto function) {
            benchmark::RegisterBenchmark((std::string("format/") + m.name + '/' + contestant).c_str(),
                                         function, std::cref(m));
        };
        add("ours", ours);
        add("ICU built each time", built_each_time);
        add("ICU prebuilt", prebuilt);
    }
    return true;
}();

} // namespace
} // namespace fl::bench
