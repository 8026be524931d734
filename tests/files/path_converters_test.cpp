#include <fl/filesystem/file.hpp>
#include <fl/i18n/locale.hpp>
#include <gtest/gtest.h>

namespace {

using fl::i18n::ustring;

TEST(path_converters, copy_native_text_unit_for_unit) {
    ustring const text = u"C:\\\u65E5\xD800" + ustring(1, u'\0') + u"\U0001F600";
    fl::filesystem::codecvt_ustring_to_filesystem to_native(false);
    fl::filesystem::codecvt_filesystem_to_ustring from_native(false);
    std::wstring const native = to_native.convert(text);
    EXPECT_EQ(native, std::wstring(text.begin(), text.end()));
    EXPECT_EQ(from_native.convert(native), text);
    EXPECT_EQ(to_native.get_destination_size(text), text.size());
    EXPECT_EQ(from_native.get_destination_size(native), text.size());

    wchar_t wide[4] = {L'#', L'#', L'#', L'#'};
    EXPECT_EQ(to_native.convert(wide, 3, text), 3u);
    EXPECT_EQ(std::wstring(wide, 4), L"C:\\#");
    char16_t units[4] = {u'#', u'#', u'#', u'#'};
    EXPECT_EQ(from_native.convert(units, 3, native), 3u);
    EXPECT_EQ(ustring(units, 4), u"C:\\#");
}

TEST(path_converters, use_the_system_encoding_for_narrow_text) {
    std::string const encoding = fl::i18n::QzLocale::system().getEncoding();
    fl::i18n::codecvt_string_to_ustring expected(encoding, true);
    fl::filesystem::codecvt_narrow_string_to_ustring from_narrow(true);
    std::string every_byte;
    for (int byte = 1; byte < 256; ++byte) {
        every_byte += static_cast<char>(byte);
    }
    EXPECT_EQ(from_narrow.convert(every_byte), expected.convert(every_byte)) << encoding;
    EXPECT_EQ(from_narrow.get_destination_size(every_byte), expected.get_destination_size(every_byte));

    fl::i18n::codecvt_ustring_to_string expected_narrow(encoding, true);
    fl::filesystem::codecvt_ustring_to_narrow_string to_narrow(true);
    ustring const text = u"a\u00E9\u20AC\u65E5";
    EXPECT_EQ(to_narrow.convert(text), expected_narrow.convert(text));
    EXPECT_EQ(to_narrow.get_destination_size(text), expected_narrow.get_destination_size(text));

    char narrow[4] = {'#', '#', '#', '#'};
    EXPECT_EQ(to_narrow.convert(narrow, 3, u"abcdef", 6), 3u);
    EXPECT_EQ(std::string(narrow, 4), "abc#");
    char16_t units[4] = {u'#', u'#', u'#', u'#'};
    EXPECT_EQ(from_narrow.convert(units, 3, "abcdef", 6), 3u);
    EXPECT_EQ(ustring(units, 4), u"abc#");
}

TEST(path_converters, are_strict_when_told_so) {
    fl::filesystem::codecvt_ustring_to_narrow_string to_narrow(false);
    EXPECT_THROW(to_narrow.convert(u"\xD800z"), fl::i18n::CvtInvalidCharacter);
    if (fl::i18n::QzLocale::system().getEncoding() == "UTF-8") {
        fl::filesystem::codecvt_narrow_string_to_ustring from_narrow(false);
        EXPECT_THROW(from_narrow.convert("a\xFF"), fl::i18n::CvtInvalidCharacter);
    }
}

} // namespace
