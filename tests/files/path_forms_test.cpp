#include "foundation/filesystem/install_path.hpp"
#include "foundation/filesystem/native_form.hpp"
#include "foundation/filesystem/path_kind.hpp"

#include <fl/filesystem/exceptions.hpp>
#include <gtest/gtest.h>

namespace fl::filesystem::detail {

namespace {

using enum path_kind;

struct form_row {
    char const * name;
    std::wstring text;
    path_kind kind;
    std::size_t root_name_length;
    /// Empty when refused.
    std::wstring long_form = {};
    /// The long form without redundant elements, where that differs.
    std::wstring other_clean_form = {};

    std::wstring const & clean_form() const {
        return other_clean_form.empty() ? long_form : other_clean_form;
    }
};

std::wstring const long_name(39990, L'n');
std::wstring const emoji = L"\xD83D\xDE00";

form_row const form_rows[] = {
    {"empty", L"", relative, 0},
    {"letter", L"a", relative, 0},
    {"digit", L"1", relative, 0},
    {"colon", L":", relative, 0},
    {"dot", L".", relative, 0},
    {"question_mark", L"?", relative, 0},
    {"astral", emoji, relative, 0},
    {"lone_surrogate", L"\xD83D", relative, 0},
    {"null", std::wstring(1, L'\0'), relative, 0},
    {"dots", L"..\\a", relative, 0},
    {"name_slash", L"a/b", relative, 0},
    {"name_of_40000_units", long_name, relative, 0},
    {"digit_drive", L"1:\\a", relative, 0},
    {"at_sign_drive", L"@:\\a", relative, 0},
    {"bracket_drive", L"[:\\a", relative, 0},
    {"backquote_drive", L"`:\\a", relative, 0},
    {"brace_drive", L"{:\\a", relative, 0},
    {"latin1_drive", L"\u00C9:\\a", relative, 0},
    {"drive_of_256_plus_C", L"\u0143:\\a", relative, 0},
    {"fullwidth_drive", L"\uFF23:\\a", relative, 0},
    {"slash", L"/", relative, 0},
    {"slash_name", L"/a", relative, 0},
    {"backslash", L"\\", root_relative, 0},
    {"backslash_name", L"\\a", root_relative, 0},
    {"backslash_astral", L"\\" + emoji, root_relative, 0},
    {"backslash_dots", L"\\..\\a\\.\\b\\", root_relative, 0},
    {"nt_object", L"\\??\\C:\\a", root_relative, 0},
    {"drive", L"C:", drive_relative, 2},
    {"drive_name", L"c:a", drive_relative, 2},
    {"drive_slash", L"C:/", drive_relative, 2},
    {"drive_slash_name", L"C:/a\\b", drive_relative, 2},
    {"drive_dots", L"C:..\\a", drive_relative, 2},
    {"drive_root", L"z:\\", drive_absolute, 2, L"\\\\?\\z:\\"},
    {"first_drive", L"A:\\a", drive_absolute, 2, L"\\\\?\\A:\\a"},
    {"last_drive", L"Z:\\a", drive_absolute, 2, L"\\\\?\\Z:\\a"},
    {"drive_mixed", L"C:\\a/b", drive_absolute, 2, L"\\\\?\\C:\\a/b", L"\\\\?\\C:\\a\\b"},
    {"drive_astral", L"C:\\" + emoji, drive_absolute, 2, L"\\\\?\\C:\\" + emoji},
    {"drive_combining", L"C:\\e\u0301", drive_absolute, 2, L"\\\\?\\C:\\e\u0301"},
    {"drive_lone_surrogate", L"C:\\\xDE00", drive_absolute, 2, L"\\\\?\\C:\\\xDE00"},
    {"drive_dot", L"C:\\.\\a", drive_absolute, 2, L"\\\\?\\C:\\.\\a", L"\\\\?\\C:\\a"},
    {"drive_dot_end", L"C:\\a\\.", drive_absolute, 2, L"\\\\?\\C:\\a\\.", L"\\\\?\\C:\\a"},
    {"drive_parent", L"C:\\a\\..\\b", drive_absolute, 2, L"\\\\?\\C:\\a\\..\\b", L"\\\\?\\C:\\b"},
    {"drive_parent_end", L"C:\\a\\b\\..", drive_absolute, 2, L"\\\\?\\C:\\a\\b\\..", L"\\\\?\\C:\\a"},
    {"drive_parent_only", L"C:\\a\\..", drive_absolute, 2, L"\\\\?\\C:\\a\\..", L"\\\\?\\C:\\"},
    {"drive_above_root", L"C:\\..\\..\\a", drive_absolute, 2, L"\\\\?\\C:\\..\\..\\a", L"\\\\?\\C:\\a"},
    {"drive_parent_slashes", L"C:\\a/../b/./c", drive_absolute, 2, L"\\\\?\\C:\\a/../b/./c",
     L"\\\\?\\C:\\b\\c"},
    {"drive_doubled", L"C:\\a\\\\b//c", drive_absolute, 2, L"\\\\?\\C:\\a\\\\b//c", L"\\\\?\\C:\\a\\b\\c"},
    {"drive_doubled_root", L"C:\\\\a", drive_absolute, 2, L"\\\\?\\C:\\\\a", L"\\\\?\\C:\\a"},
    {"drive_separator_end", L"C:\\a\\", drive_absolute, 2, L"\\\\?\\C:\\a\\"},
    {"drive_slash_end", L"C:\\a/", drive_absolute, 2, L"\\\\?\\C:\\a/", L"\\\\?\\C:\\a\\"},
    {"drive_trailing_dots", L"C:\\a.\\b..\\...", drive_absolute, 2, L"\\\\?\\C:\\a.\\b..\\..."},
    {"drive_of_40000_units", L"C:\\" + long_name, drive_absolute, 2, L"\\\\?\\C:\\" + long_name},
    {"drive_of_40000_units_parent", L"C:\\" + long_name + L"\\..\\a", drive_absolute, 2,
     L"\\\\?\\C:\\" + long_name + L"\\..\\a", L"\\\\?\\C:\\a"},
    {"two_backslashes", L"\\\\", invalid, 0},
    {"two_slashes", L"//", invalid, 0},
    {"mixed_separators", L"/\\", invalid, 0},
    {"three_backslashes", L"\\\\\\", invalid, 0},
    {"server_only", L"\\\\server", invalid, 0},
    {"server_separator", L"\\\\server\\", invalid, 0},
    {"no_share", L"\\\\server\\\\share", invalid, 0},
    {"no_server", L"\\\\\\share", invalid, 0},
    {"server_of_40000_units", L"\\\\" + long_name, invalid, 0},
    {"share", L"\\\\s\\x", unc, 5, L"\\\\?\\UNC\\s\\x"},
    {"share_root", L"\\\\s\\x\\", unc, 5, L"\\\\?\\UNC\\s\\x\\"},
    {"share_file", L"\\\\server\\share\\f", unc, 14, L"\\\\?\\UNC\\server\\share\\f"},
    {"share_slashes", L"//server/share/f", unc, 14, L"\\\\?\\UNC\\server/share/f",
     L"\\\\?\\UNC\\server\\share\\f"},
    {"share_mixed", L"\\/s/x\\f", unc, 5, L"\\\\?\\UNC\\s/x\\f", L"\\\\?\\UNC\\s\\x\\f"},
    {"share_above_root", L"\\\\s\\x\\..\\..\\f", unc, 5, L"\\\\?\\UNC\\s\\x\\..\\..\\f",
     L"\\\\?\\UNC\\s\\x\\f"},
    {"share_astral", L"\\\\" + emoji + L"\\x\\f", unc, 6, L"\\\\?\\UNC\\" + emoji + L"\\x\\f"},
    {"share_of_40000_units", L"\\\\s\\x\\" + long_name, unc, 5, L"\\\\?\\UNC\\s\\x\\" + long_name},
    {"question_mark_server", L"\\\\?a\\x", unc, 6, L"\\\\?\\UNC\\?a\\x"},
    {"device", L"\\\\.\\pipe", device, 0},
    {"device_slashes", L"//./pipe", device, 0},
    {"device_drive", L"\\\\.\\C:\\a", device, 0},
    {"device_alone", L"\\\\.\\", device, 0},
    {"device_unfinished", L"\\\\.", invalid, 0},
    {"long_unfinished", L"\\\\?", invalid, 0},
    {"long_alone", L"\\\\?\\", invalid, 0},
    {"long_letter", L"\\\\?\\C", invalid, 0},
    {"long_name", L"\\\\?\\name", invalid, 0},
    {"long_digit_drive", L"\\\\?\\1:\\a", invalid, 0},
    {"long_volume", L"\\\\?\\Volume{0}\\a", invalid, 0},
    {"long_drive", L"\\\\?\\C:", long_drive_without_root, 6},
    {"long_drive_name", L"\\\\?\\C:a", long_drive_without_root, 6},
    {"long_drive_slash", L"\\\\?\\C:/a", long_drive_without_root, 6},
    {"long_root", L"\\\\?\\C:\\", long_drive_absolute, 6, L"\\\\?\\C:\\"},
    {"long_absolute", L"\\\\?\\C:\\a", long_drive_absolute, 6, L"\\\\?\\C:\\a"},
    {"long_absolute_slashes", L"//?/C:\\a", long_drive_absolute, 6, L"//?/C:\\a", L"\\\\?\\C:\\a"},
    {"long_absolute_parent", L"\\\\?\\C:\\a\\..\\b", long_drive_absolute, 6, L"\\\\?\\C:\\a\\..\\b",
     L"\\\\?\\C:\\b"},
    {"long_absolute_astral", L"\\\\?\\C:\\" + emoji, long_drive_absolute, 6, L"\\\\?\\C:\\" + emoji},
    {"long_unc", L"\\\\?\\UNC\\server\\share\\f", long_unc, 20, L"\\\\?\\UNC\\server\\share\\f"},
    {"long_unc_share", L"\\\\?\\UNC\\s\\x", long_unc, 11, L"\\\\?\\UNC\\s\\x"},
    {"long_unc_mixed", L"//?/uNc/s/x", long_unc, 11, L"//?/uNc/s/x", L"\\\\?\\uNc\\s\\x"},
    {"long_unc_parent", L"\\\\?\\UNC\\s\\x\\..\\..\\..\\f", long_unc, 11, L"\\\\?\\UNC\\s\\x\\..\\..\\..\\f",
     L"\\\\?\\UNC\\s\\x\\f"},
    {"long_unc_unfinished", L"\\\\?\\UNC", invalid, 0},
    {"long_unc_alone", L"\\\\?\\UNC\\", invalid, 0},
    {"long_unc_server", L"\\\\?\\UNC\\server", invalid, 0},
    {"long_unc_no_share", L"\\\\?\\UNC\\server\\\\f", invalid, 0},
};

bool begins_with_one_separator(std::wstring const & text) {
    return text.find_first_of(L"\\/") == 0 && text.find_first_of(L"\\/", 1) != 1;
}

template <class Form>
void expect_form(Form make_form, std::wstring const & text, bool root_is_absolute,
                 std::wstring const & expected) {
    try {
        EXPECT_EQ(make_form(text, root_is_absolute), expected);
    } catch (InvalidArgument const & e) {
        EXPECT_EQ(expected, L"");
        EXPECT_STREQ(e.what(), "Long UNC path without root not permitted");
        EXPECT_EQ(e.path(), upath(text).string());
    }
}

TEST(path_forms, follow_from_the_beginning_of_the_text) {
    for (form_row const & row : form_rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(classify_path(row.text, false), row.kind);
        EXPECT_EQ(root_name_length(row.text, row.kind), row.root_name_length);
        expect_form(access_form, row.text, false, row.long_form);
        expect_form(access_form_with_cleanup, row.text, false, row.clean_form());
        // Without drives all that begins with one separator is complete; the rest is told in the same way.
        bool const is_root_absolute = begins_with_one_separator(row.text);
        EXPECT_EQ(classify_path(row.text, true), is_root_absolute ? root_absolute : row.kind);
        expect_form(access_form, row.text, true, is_root_absolute ? row.text : row.long_form);
        if (!is_root_absolute) {
            expect_form(access_form_with_cleanup, row.text, true, row.clean_form());
        }
    }
}

TEST(path_forms, keep_the_parents_where_there_are_no_drives) {
    EXPECT_EQ(access_form_with_cleanup(L"/a//.\\..\\b./", true), L"\\a\\..\\b.\\");
    EXPECT_EQ(access_form_with_cleanup(L"/..", true), L"\\..");
    EXPECT_EQ(access_form_with_cleanup(L"/.", true), L"\\");
}

struct completion_row {
    char const * name;
    wchar_t const * path;
    wchar_t const * on_drive;
    wchar_t const * on_share;
    wchar_t const * without_drives;
};

TEST(complete_native_path, uses_the_current_directories) {
    // The current directory is the first of each pair, that of drive D the second.
    auto const on_drive = [](wchar_t drive) {
        return std::wstring(drive == L'D' ? L"D:\\work" : L"C:\\home");
    };
    auto const on_share = [](wchar_t drive) {
        return std::wstring(drive == L'D' ? L"D:\\" : L"\\\\s\\x\\home");
    };
    auto const without_drives = [](wchar_t drive) { return std::wstring(drive == 0 ? L"\\home" : L""); };
    completion_row const rows[] = {
        {"empty", L"", L"", L"", L""},
        {"name", L"a\\b", L"C:\\home\\a\\b", L"\\\\s\\x\\home\\a\\b", L"\\home\\a\\b"},
        {"dots_stay", L"..\\a.", L"C:\\home\\..\\a.", L"\\\\s\\x\\home\\..\\a.", L"\\home\\..\\a."},
        {"root", L"\\a", L"C:\\a", L"\\\\s\\x\\a", L"\\a"},
        {"drive", L"D:", L"D:\\work", L"D:\\", L"D:\\"},
        {"drive_name", L"D:a", L"D:\\work\\a", L"D:\\a", L"D:\\a"},
        {"drive_absolute", L"E:\\a", L"E:\\a", L"E:\\a", L"E:\\a"},
        {"share", L"\\\\t\\y\\a", L"\\\\t\\y\\a", L"\\\\t\\y\\a", L"\\\\t\\y\\a"},
        {"device", L"\\\\.\\pipe", L"\\\\.\\pipe", L"\\\\.\\pipe", L"\\\\.\\pipe"},
        {"long", L"\\\\?\\C:\\a", L"\\\\?\\C:\\a", L"\\\\?\\C:\\a", L"\\\\?\\C:\\a"},
        {"invalid", L"\\\\t", L"\\\\t", L"\\\\t", L"\\\\t"},
    };
    for (auto const & row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(complete_native_path(row.path, false, on_drive), row.on_drive);
        EXPECT_EQ(complete_native_path(row.path, false, on_share), row.on_share);
        EXPECT_EQ(complete_native_path(row.path, true, without_drives), row.without_drives);
    }
}

TEST(complete_native_path, keeps_the_long_form_of_the_current_directory) {
    auto const long_directory = [](wchar_t) { return std::wstring(L"\\\\?\\C:\\home"); };
    EXPECT_EQ(complete_native_path(L"a", false, long_directory), L"\\\\?\\C:\\home\\a");
    EXPECT_EQ(complete_native_path(L"\\a", false, long_directory), L"\\\\?\\C:\\a");
}

TEST(query_form, is_the_long_form_where_there_is_one) {
    EXPECT_EQ(make_query_form(u"C:/a/../b."), L"\\\\?\\C:\\b.");
    EXPECT_EQ(make_query_form(u"//s/x/f"), L"\\\\?\\UNC\\s\\x\\f");
    EXPECT_EQ(make_query_form(u"//./pipe/a"), L"\\\\.\\pipe\\a");
    EXPECT_EQ(make_query_form(u"//"), L"\\\\");
}

TEST(install_base, is_above_the_program_and_library_directories) {
    struct {
        wchar_t const * module;
        wchar_t const * base;
    } const rows[] = {
        {L"C:\\app\\bin\\fl.dll", L"C:\\app"},
        {L"C:\\app\\BIN\\fl.dll", L"C:\\app"},
        {L"C:\\app\\fl.dll", L"C:\\app"},
        {L"C:\\app\\cabin\\fl.dll", L"C:\\app\\cabin"},
        {L"C:\\bin\\fl.dll", L"C:\\"},
        {L"C:\\fl.dll", L"C:\\"},
        {L"\\\\?\\C:\\app\\bin\\fl.dll", L"\\\\?\\C:\\app"},
        {L"\\\\server\\share\\bin\\fl.dll", L"\\\\server\\share"},
        {L"\\\\server\\bin\\fl.dll", L"\\\\server\\bin"},
        {L"\\\\?\\UNC\\server\\lib\\fl.dll", L"\\\\?\\UNC\\server\\lib"},
        {L"\\usr\\lib\\libfl.so.1", L"\\usr"},
        {L"\\usr\\lib64\\libfl.so.1", L"\\usr"},
        {L"\\usr\\lib\\x86_64-linux-gnu\\libfl.so.1", L"\\usr"},
        {L"\\usr\\lib\\plugins\\libfl.so.1", L"\\usr\\lib\\plugins"},
        {L"\\usr\\x86_64-linux-gnu\\libfl.so.1", L"\\usr\\x86_64-linux-gnu"},
        {L"\\lib\\libfl.so.1", L"\\"},
        {L"libfl.so.1", L""},
        {L"", L""},
    };
    for (auto const & row : rows) {
        EXPECT_EQ(install_base(row.module), row.base);
    }
}

} // namespace

} // namespace fl::filesystem::detail
