#include "tests/conversion/classic_locale.hpp"

#include <cstdlib>
#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/ustring.hpp>
#include <gtest/gtest.h>
#include <utility>

namespace fl::i18n {
namespace {

/// Runs only while the variable is set, which the library looks at once, when it is loaded.
class EncodingDiagnostics : public ClassicLocale {
protected:
    void SetUp() override {
        if (!std::getenv("QZ_CHAR_ENCODING_DIAG")) {
            GTEST_SKIP() << "QZ_CHAR_ENCODING_DIAG is not set";
        }
        testing::internal::CaptureStdout();
        capturing_ = true;
    }
    void TearDown() override { take_output(); }

    std::string take_output() {
        return std::exchange(capturing_, false) ? testing::internal::GetCapturedStdout() : std::string();
    }

private:
    bool capturing_ = false;
};

TEST_F(EncodingDiagnostics, ReportsNarrowStrings) {
    EXPECT_EQ(to_ustring(std::string("abc\xE9", 4)), u"abc\xFFFD");
    EXPECT_EQ(take_output(), "to_ustring called with non-ASCII string input: abc\xE9\n");
}

TEST_F(EncodingDiagnostics, ReportsNarrowStringsUpToTheFirstNul) {
    EXPECT_EQ(to_ustring(std::string("\xC3\xA9\0x", 4)), ustring(u"\xE9\0x", 3));
    EXPECT_EQ(take_output(), "to_ustring called with non-ASCII string input: \xC3\xA9\n");
}

TEST_F(EncodingDiagnostics, ReportsNarrowPointers) {
    EXPECT_EQ(to_ustring("\xC3\xA9"), u"\xE9");
    EXPECT_EQ(take_output(), "to_ustring called with non-ASCII char * input: \xC3\xA9\n");
}

TEST_F(EncodingDiagnostics, ReportsTheWholeUtf16Text) {
    EXPECT_EQ(to_string(ustring(u"\xE9\0\x80", 3)), std::string("\xC3\xA9\0\xC2\x80", 5));
    EXPECT_EQ(take_output(), std::string("to_string called with non-ASCII input: \xC3\xA9\0\xC2\x80\n", 45));
}

TEST_F(EncodingDiagnostics, AreSilentForEverythingElse) {
    to_ustring(std::string());
    to_string(ustring());
    to_ustring("ascii\x7F");
    to_string(u"ascii\x7F");
    to_string(ustring(u"\0\xE9", 2));
    to_ustring(std::string("a\0\xC3\xA9", 4));
    to_ustring("\xC3\xA9", codecvt_string_to_ustring("UTF-8", true));
    to_string(u"\xE9", codecvt_ustring_to_string("UTF-8", true));
    ustring_to_utf8(u"\xE9");
    utf8_to_ustring("\xC3\xA9");
    EXPECT_EQ(take_output(), "");
}

} // namespace
} // namespace fl::i18n
