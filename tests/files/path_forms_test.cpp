#include "foundation/filesystem/install_path.hpp"
#include "foundation/filesystem/native_form.hpp"
#include "foundation/filesystem/path_kind.hpp"

#include <fl/filesystem/exceptions.hpp>
#include <gtest/gtest.h>

namespace fl::filesystem::detail {

namespace {

using enum path_kind;

struct kind_row {
    char const * name;
    wchar_t const * text;
    path_kind kind;
    std::size_t root_name_length;
    path_kind kind_without_drives;
};

kind_row const kind_rows[] = {
    {"empty", L"", relative, 0, relative},
    {"name", L"a", relative, 0, relative},
    {"dots", L"..\\a", relative, 0, relative},
    {"backslash", L"\\", root_relative, 0, root_absolute},
    {"rooted", L"\\a", root_relative, 0, root_absolute},
    {"slash", L"/a", relative, 0, root_absolute},
    {"nt_object", L"\\??\\C:\\a", root_relative, 0, root_absolute},
    {"drive", L"C:", drive_relative, 2, drive_relative},
    {"drive_name", L"c:a", drive_relative, 2, drive_relative},
    {"drive_slash", L"C:/a", drive_relative, 2, drive_relative},
    {"drive_root", L"z:\\", drive_absolute, 2, drive_absolute},
    {"drive_absolute", L"C:\\a", drive_absolute, 2, drive_absolute},
    {"digit_drive", L"1:\\a", relative, 0, relative},
    {"at_sign_drive", L"@:\\a", relative, 0, relative},
    {"bracket_drive", L"[:\\a", relative, 0, relative},
    {"latin1_drive", L"\u00C9:\\a", relative, 0, relative},
    {"drive_of_256_plus_C", L"\u0143:\\a", relative, 0, relative},
    {"two_backslashes", L"\\\\", invalid, 0, invalid},
    {"two_slashes", L"//", invalid, 0, invalid},
    {"server_only", L"\\\\server", invalid, 0, invalid},
    {"server_separator", L"\\\\server\\", invalid, 0, invalid},
    {"no_share", L"\\\\server\\\\share", invalid, 0, invalid},
    {"no_server", L"\\\\\\share", invalid, 0, invalid},
    {"share", L"\\\\s\\x", unc, 5, unc},
    {"share_file", L"\\\\server\\share\\f", unc, 14, unc},
    {"share_slashes", L"//server/share/f", unc, 14, unc},
    {"device", L"\\\\.\\pipe", device, 0, device},
    {"device_slashes", L"//./pipe", device, 0, device},
    {"device_alone", L"\\\\.\\", device, 0, device},
    {"device_unfinished", L"\\\\.", invalid, 0, invalid},
    {"long_alone", L"\\\\?\\", invalid, 0, invalid},
    {"long_unfinished", L"\\\\?", invalid, 0, invalid},
    {"long_letter", L"\\\\?\\C", invalid, 0, invalid},
    {"long_name", L"\\\\?\\name", invalid, 0, invalid},
    {"long_digit_drive", L"\\\\?\\1:\\a", invalid, 0, invalid},
    {"long_drive", L"\\\\?\\C:", long_drive_without_root, 6, long_drive_without_root},
    {"long_drive_name", L"\\\\?\\C:a", long_drive_without_root, 6, long_drive_without_root},
    {"long_drive_slash", L"\\\\?\\C:/a", long_drive_without_root, 6, long_drive_without_root},
    {"long_absolute", L"\\\\?\\C:\\a", long_drive_absolute, 6, long_drive_absolute},
    {"long_absolute_slashes", L"//?/C:\\a", long_drive_absolute, 6, long_drive_absolute},
    {"long_unc", L"\\\\?\\UNC\\server\\share\\f", long_unc, 20, long_unc},
    {"long_unc_mixed", L"//?/uNc/s/x", long_unc, 11, long_unc},
    {"long_unc_alone", L"\\\\?\\UNC\\", invalid, 0, invalid},
    {"long_unc_unfinished", L"\\\\?\\UNC", invalid, 0, invalid},
    {"long_unc_server", L"\\\\?\\UNC\\server", invalid, 0, invalid},
};

TEST(path_kind, is_told_by_the_beginning) {
    for (kind_row const & row : kind_rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(classify_path(row.text, false), row.kind);
        EXPECT_EQ(classify_path(row.text, true), row.kind_without_drives);
        EXPECT_EQ(root_name_length(row.text, row.kind), row.root_name_length);
    }
}

struct access_row {
    wchar_t const * path;
    wchar_t const * long_form;
};

TEST(access_form, exists_for_complete_paths) {
    access_row const rows[] = {
        {L"C:\\x", L"\\\\?\\C:\\x"},
        {L"C:\\", L"\\\\?\\C:\\"},
        {L"C:\\a\\..\\b/c", L"\\\\?\\C:\\a\\..\\b/c"},
        {L"\\\\server\\share\\f", L"\\\\?\\UNC\\server\\share\\f"},
        {L"\\\\server\\share", L"\\\\?\\UNC\\server\\share"},
        {L"\\\\?\\C:\\f", L"\\\\?\\C:\\f"},
        {L"\\\\?\\unc\\server\\share", L"\\\\?\\unc\\server\\share"},
    };
    for (auto const & row : rows) {
        EXPECT_EQ(access_form(row.path, false), row.long_form);
        EXPECT_EQ(access_form(row.path, true), row.long_form);
    }
    EXPECT_EQ(access_form(L"\\usr\\x", true), L"\\usr\\x");
}

TEST(access_form, is_refused_for_every_other_kind_with_one_message) {
    for (auto const * path :
         {L"", L"a", L"/a", L"\\a", L"C:", L"C:file", L"C:/x", L"\\\\.\\pipe", L"\\\\?\\C:", L"\\\\?\\C:x",
          L"\\\\", L"\\\\server", L"\\\\?\\UNC\\server", L"\\??\\C:\\x"}) {
        try {
            access_form(path, false);
            ADD_FAILURE() << upath(path).string().size();
        } catch (InvalidArgument const & e) {
            EXPECT_STREQ(e.what(), "Long UNC path without root not permitted");
            EXPECT_EQ(e.path(), upath(path).string());
        }
    }
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

TEST(query_form, is_the_long_form_where_the_native_one_is_too_long) {
    struct {
        wchar_t const * begin;
        wchar_t const * long_begin;
    } const rows[] = {
        {L"C:/", L"\\\\?\\C:\\"},
        {L"//s/x/", L"\\\\?\\UNC\\s\\x\\"},
        {L"//?/C:/", L"\\\\?\\C:\\"},
        {L"//./", L"\\\\.\\"},
        {L"//", L"\\\\"},
    };
    for (auto const & row : rows) {
        std::wstring const begin = row.begin;
        std::wstring const name(259 - begin.size(), L'a');
        EXPECT_EQ(make_query_form(begin + name), make_native_form(begin + name, false));
        EXPECT_EQ(make_query_form(begin + name + L"a"), row.long_begin + name + L"a");
    }
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
