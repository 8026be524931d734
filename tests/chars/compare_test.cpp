#include <fl/i18n/ctype.hpp>
#include <gtest/gtest.h>
#include <random>
#include <unicode/uchar.h>
#include <unicode/unorm2.h>
#include <unicode/ustring.h>
#include <unicode/utf16.h>

namespace fl::i18n {
namespace {

using namespace std::string_view_literals;
using modes = character_handling_mode_context;

// A slow reference: normalise, fold, normalise, compare unit by unit.

ustring normalized(ustring const & text, bool decompose) {
    UErrorCode status = U_ZERO_ERROR;
    UNormalizer2 const * const normalizer =
        decompose ? unorm2_getNFDInstance(&status) : unorm2_getNFCInstance(&status);
    ustring result(20 * text.size() + 1, u'\0');
    std::int32_t const length = unorm2_normalize(normalizer, text.data(), std::int32_t(text.size()),
                                                 result.data(), std::int32_t(result.size()), &status);
    EXPECT_TRUE(U_SUCCESS(status));
    return result.substr(0, std::size_t(length));
}

ustring folded(ustring const & text, bool turkic) {
    UErrorCode status = U_ZERO_ERROR;
    ustring result(3 * text.size() + 1, u'\0');
    std::int32_t const length =
        u_strFoldCase(result.data(), std::int32_t(result.size()), text.data(), std::int32_t(text.size()),
                      turkic ? U_FOLD_CASE_EXCLUDE_SPECIAL_I : U_FOLD_CASE_DEFAULT, &status);
    EXPECT_TRUE(U_SUCCESS(status));
    return result.substr(0, std::size_t(length));
}

/// Lower-cases, as Turkish does, each capital I of a text in NFD together with the marks behind it.
ustring without_capital_i(ustring text) {
    auto const turkish = QzLocale::createLocale("tr");
    for (std::size_t i = 0; (i = text.find(u'I', i)) != ustring::npos; ++i) {
        std::size_t end = i + 1;
        while (end < text.size() && !U16_IS_SURROGATE(text[end]) && u_getCombiningClass(text[end]) != 0) {
            ++end;
        }
        text.replace(i, end - i, transform(text.substr(i, end - i), to_lower_locale(*turkish)));
    }
    return text;
}

ustring model(ustring text, unsigned mode, bool turkic_locale) {
    bool const turkic = turkic_locale && (mode & 8) != 0;
    bool const compose = (mode & 6) == 2;
    bool const decompose = (mode & 6) == 6 || ((mode & 2) == 0 && (mode & 16) != 0);
    if (mode & 1) {
        if (compose || decompose) {
            text = normalized(text, true);
            text = turkic ? without_capital_i(text) : text;
        }
        text = folded(text, turkic);
    }
    return compose || decompose ? normalized(text, decompose) : text;
}

int sign(int value) {
    return (value > 0) - (value < 0);
}

int slow_compare(ustring const & a, ustring const & b) {
    std::size_t i = 0;
    while (i < a.size() && i < b.size() && a[i] == b[i]) {
        ++i;
    }
    int const left = i < a.size() ? a[i] : -1;
    int const right = i < b.size() ? b[i] : -1;
    return sign(left - right);
}

// What is hard to compare, in pieces that a space ends.
constexpr std::u16string_view hard_pieces =
    u"a A z i I \x130 \x131 s ss \xDF \x1E9E \x17F \x3A3 \x3C3 \x3C2 \x345 \x3B1 \x1FB3 \x1F80 \x390 \x1FBE "
    u"\x300 \x301 \x307 \x308 \x323 \x327 \x31B \x5B0 \x93C \x212B \xC5 \xE5 \x30A \x1E9B \x1E9B\x323 \x1E69 "
    u"\x149 \x1F0 \x587 \xFB03 \xFB13 \xB5 \x2126 \x13A0 \xAB70 \x1C4 \x1C5 \x1100 \x1161 \x11A8 \xAC00 "
    u"\xAC01 \x4E00 \xF900 \x344 \x958 \xD800 \xDBFF \xDC00 \xD801 \xD801\xDC00 \xD801\xDC28 "
    u"\xD834\xDD5E \xD83A\xDD00 \xD87E\xDC02 \xFFFF \xFFFD \xE000 \xFF21 \0 "sv;

class text_source {
public:
    text_source() {
        for (std::size_t at = 0, end = 0; at < hard_pieces.size(); at = end + 1) {
            end = hard_pieces.find(u' ', at);
            pieces_.emplace_back(hard_pieces.substr(at, end - at));
        }
    }

    ustring text() {
        ustring result;
        for (std::size_t count = below(7); count > 0; --count) {
            result += piece();
        }
        return result;
    }

    /// Returns another spelling of a text, often one that some mode takes for the same.
    ustring variant(ustring text) {
        for (std::size_t count = 1 + below(3); count > 0; --count) {
            std::size_t const at = below(text.size() + 1);
            switch (below(5)) {
            case 0:
                text = normalized(text, below(2) != 0);
                break;
            case 1:
                text = folded(text, below(2) != 0);
                break;
            case 2:
                text = transform(text, to_upper_locale(QzLocale::classic()));
                break;
            case 3:
                if (at < text.size()) {
                    std::swap(text[at], text[at / 2]);
                }
                break;
            default:
                text.insert(at, piece());
            }
        }
        return text;
    }

private:
    std::size_t below(std::size_t limit) { return random_() % limit; }
    ustring const & piece() { return pieces_[below(pieces_.size())]; }

    std::vector<ustring> pieces_;
    std::mt19937 random_{20240229};
};

TEST(Compare, AgreesWithTheSlowReferenceInEveryMode) {
    auto const turkish = QzLocale::createLocale("fr", {{QzLocale::LcCategory::ctype, "tr_TR.UTF-8"}});
    auto const azeri = QzLocale::createLocale("az_Latn_AZ");
    QzLocale const * const locales[] = {&QzLocale::classic(), turkish.get(), azeri.get()};
    constexpr int pairs = 12000;
    text_source source;
    int equal = 0;
    int mismatches = 0;
    for (int i = 0; i < pairs; ++i) {
        ustring const a = source.text();
        ustring const b = i % 4 != 0 ? source.variant(a) : source.text();
        QzLocale const & locale = *locales[i % 3];
        for (unsigned mode = 0; mode < 32; ++mode) {
            int const expected = slow_compare(model(a, mode, i % 3 != 0), model(b, mode, i % 3 != 0));
            modes const context(mode, locale);
            if (sign(detail::compare(a, b, context)) != expected ||
                sign(detail::compare(b, a, context)) != -expected) {
                if (++mismatches <= 5) {
                    ADD_FAILURE() << "mode " << mode << ", locale " << i % 3 << ", expected " << expected
                                  << ": " << testing::PrintToString(a) << " and "
                                  << testing::PrintToString(b);
                }
            }
            equal += expected == 0;
        }
    }
    EXPECT_EQ(mismatches, 0);
    EXPECT_GT(equal, pairs) << "too few of the pairs are equal in some mode";
}

TEST(Compare, PairsTheLettersIOfTurkish) {
    auto const turkish = QzLocale::createLocale("tr");
    for (unsigned form : {0u, 2u, 6u, 16u}) {
        modes const mode(modes::case_insensitive_mode | modes::locale_mode | form, *turkish);
        EXPECT_EQ(detail::compare(u"\x130I\xE9", u"i\x131\xC9", mode), 0);
        EXPECT_NE(detail::compare(u"I\xE9", u"i\xE9", mode), 0);
        EXPECT_EQ(detail::compare(u"I\x323\x307", u"i\x323", mode) == 0, form != 0);
    }
}

TEST(Compare, OrdersIllFormedTexts) {
    modes const folding(modes::case_insensitive_mode, QzLocale::classic());
    EXPECT_LT(detail::compare(u"\x13A0\xD83A\xDD00", u"\x13A0\xD83A\xFF21\xDD22", folding), 0);
    modes const decomposing(modes::normalized_decompose_mode, QzLocale::classic());
    EXPECT_LT(detail::compare(u"\x5B0\xD87E\xDC02", u"\x5B0\xD87E\x3C2\xDC02", decomposing), 0);
}

TEST(Compare, TakesLengthsAndNullPointers) {
    for (unsigned mode = 0; mode < 32; ++mode) {
        SCOPED_TRACE(mode);
        modes const context(mode, QzLocale::classic());
        EXPECT_EQ(detail::compare(nullptr, 0, nullptr, 0, context), 0);
        EXPECT_LT(detail::compare(nullptr, 0, u"\xE9", 1, context), 0);
        EXPECT_GT(detail::compare(u"\xE9", 1, nullptr, 0, context), 0);
        EXPECT_EQ(detail::compare(u"\xE9x", 1, u"\xE9y", 1, context), 0);
        EXPECT_THROW(detail::compare(u"", 0x80000000, u"", 0, context), CtypeSizeTooLarge);
        EXPECT_THROW(detail::compare(u"", 0, u"", 0x80000000, context), CtypeSizeTooLarge);
    }
}

TEST(Compare, RefusesModesThatAreNone) {
    EXPECT_THROW(modes(32), CtypeInvalidArgument);
    EXPECT_THROW(modes(~0u, QzLocale::classic()), CtypeInvalidArgument);
    EXPECT_EQ(modes(31, QzLocale::classic()).mode(), 31u);
    EXPECT_EQ(&modes(31, QzLocale::classic()).locale(), &QzLocale::classic());
}

} // namespace
} // namespace fl::i18n
