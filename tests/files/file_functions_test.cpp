#include "tests/support/std_path.hpp"
#include "tests/support/system_queries.hpp"
#include "tests/support/temporary_directory.hpp"

#include <boost/date_time/posix_time/posix_time_duration.hpp>
#include <fl/filesystem/exceptions.hpp>
#include <fl/filesystem/file.hpp>
#include <fl/i18n/date_time.hpp>
#include <functional>
#include <gtest/gtest.h>

namespace fl::filesystem {

namespace {

using boost::gregorian::date;
using boost::posix_time::microseconds;
using boost::posix_time::ptime;
using i18n::ustring;
using mode = i18n::character_handling_mode_context;

constexpr bool has_drives = std::filesystem::path::preferred_separator == '\\';
ptime const new_year(date(2024, 1, 1));
ptime const before_1601 = ptime(date(1601, 1, 1)) - microseconds(1);

int sign(int value) {
    return (value > 0) - (value < 0);
}

TEST(file_functions, keep_every_name) {
    struct {
        char const * name;
        ustring file;
    } const rows[] = {
        {"astral", u"\U0001F600\U0002070E.txt"},
        {"composed", u"\u00E9"},
        {"combining", u"e\u0301"},
        {"dots_and_spaces_at_the_end", u"name. . "},
        {"more_than_300_units", ustring(150, u'd') + u"\\" + ustring(150, u'n')},
    };
    test::temporary_directory const directory;
    for (auto const & row : rows) {
        SCOPED_TRACE(row.name);
        upath const path = directory.path() / row.file;
        std::filesystem::path const standard = test::long_std_path(path);
        std::filesystem::create_directories(standard.parent_path());
        std::FILE * stream = fopen(path, "wb");
        ASSERT_TRUE(stream);
        stream = freopen(path, "ab", stream);
        ASSERT_TRUE(stream);
        std::fclose(stream);
        EXPECT_TRUE(exists(path));
        last_write_time(path, new_year);
        EXPECT_EQ(test::file_times_of(path).write, i18n::date_time::ptime_to_filetime(new_year));
        EXPECT_EQ(compare(path, path), 0);
        std::vector<ustring> found;
        for (auto const & entry : std::filesystem::directory_iterator(standard.parent_path())) {
            found.push_back(entry.path().filename().u16string());
        }
        EXPECT_EQ(std::count(found.begin(), found.end(), standard.filename().u16string()), 1);
    }
}

TEST(file_functions, leave_no_handle_open) {
    test::temporary_directory const directory;
    directory.write(u"file", "");
    ustring const file = (directory.path() / u"file").string();
    ustring const missing = (directory.path() / u"none\\none").string();
    ustring name;
    std::pair<char const *, std::function<void()>> const rows[] = {
        {"fopen", [&] { fopen(missing, "w"); }},
        {"fopen_directory", [&] { fopen(file + u"\\", "r"); }},
        {"freopen",
         [&] {
             // After its failure some C libraries keep the memory of a stream for good.
             static std::FILE * streams[2];
             std::swap(streams[0], streams[1]);
             streams[0] = fopen(file, "r");
             freopen(missing, "r", streams[0]);
         }},
        {"tmpnam", [&] { tmpnam(u"", u"", u""); }},
        {"tmpfile", [&] { tmpfile(name, missing, u"", u""); }},
        {"tmpfile_closed", [&] { std::fclose(tmpfile(name, directory.path().string(), u"", u"")); }},
        {"last_write_time", [&] { last_write_time(file, new_year); }},
        {"last_write_time_missing", [&] { EXPECT_THROW(last_write_time(missing, new_year), PathNotFound); }},
    };
    for (auto const & [function, call] : rows) {
        SCOPED_TRACE(function);
        call(); // what the process keeps for good is opened
        std::size_t const before = test::count_open_handles();
        call();
        EXPECT_EQ(test::count_open_handles(), before);
    }
    std::FILE * const stream = fopen(file, "r");
    std::size_t const with_stream = test::count_open_handles();
    std::fclose(stream);
    EXPECT_LT(test::count_open_handles(), with_stream) << "the count notices a stream";
}

TEST(last_write_time, is_set_to_the_microsecond) {
    test::temporary_directory const directory;
    directory.write(u"file", "");
    for (upath const & path : {directory.path(), directory.path() / u"file"}) {
        for (ptime const & time : {new_year + microseconds(86'399'123'457),
                                   ptime(date(1970, 1, 1)) - microseconds(1), ptime(date(2100, 1, 1))}) {
            last_write_time(path, time);
            EXPECT_EQ(i18n::date_time::filetime_to_ptime(test::file_times_of(path).write), time);
        }
        EXPECT_NO_THROW(last_write_time(path.string(), before_1601 + microseconds(2)));
    }
}

TEST(last_write_time, refuses_what_cannot_be) {
    test::temporary_directory const directory;
    directory.write(u"file", "");
    ustring const file = (directory.path() / u"file").string();
    struct {
        ustring path;
        ptime time;
        std::string message;
    } const rows[] = {
        {u"", ptime(), "Empty Path not permitted"},
        {u"relative", ptime(), "Time is not a ptime"},
        {file, ptime(boost::date_time::pos_infin), "Time is not a ptime"},
        {u"relative", before_1601, "Time is not a file time"},
        {u"relative", new_year, "Long UNC path without root not permitted"},
        {u"C:relative", new_year, "Long UNC path without root not permitted"},
        {file + ustring(u"\0", 1), new_year,
         "The filename, directory name, or volume label syntax is incorrect."},
    };
    for (auto const & row : rows) {
        try {
            last_write_time(row.path, row.time);
            ADD_FAILURE() << row.message;
        } catch (InvalidArgument const & e) {
            EXPECT_EQ(e.what(), row.message);
            EXPECT_EQ(e.path(), row.path);
        }
    }
    EXPECT_THROW(last_write_time(file + u"\\x", new_year), PathNotFound);
}

TEST(compare, orders_absolute_paths) {
    struct {
        ustring first, second;
        unsigned mode;
        int order;
    } const rows[] = {
        {u"", u"", 0, 0},
        {u"", u"C:\\a", 0, -1},
        {u"C:\\A", u"C:\\a", mode::default_mode, -1},
        {u"C:\\A\U00010400", u"c:\\a\U00010428", mode::case_insensitive_mode, 0},
        {u"C:\\a", u"C:/a", mode::case_insensitive_mode, 1},
        {u"\\\\s\\x\\e\u0301", u"\\\\s\\x\\\u00E9", mode::default_mode, -1},
        {u"\\\\s\\x\\e\u0301", u"\\\\s\\x\\\u00E9", mode::normalization_insensitive_mode, 0},
    };
    for (auto const & row : rows) {
        EXPECT_EQ(sign(compare(row.first, row.second, row.mode)), row.order);
        EXPECT_EQ(sign(compare(upath(row.second), upath(row.first), row.mode)), -row.order);
    }
    EXPECT_EQ(sign(compare(ustring(u"C:\\A"), ustring(u"C:\\a"))), has_drives ? 0 : -1);
    EXPECT_EQ(sign(compare(upath(u"C:\\b"), upath(u"C:\\A"))), 1);
    EXPECT_EQ(compare(u"C:\\a", u"C:\\a"), 0);
    EXPECT_EQ(compare(u"C:\\A", u"C:\\a", mode::case_insensitive_mode), 0);
    EXPECT_THROW(compare(u"a", u""), InvalidArgument);
    try {
        compare(upath(), upath(u"C:a"), mode::default_mode);
        ADD_FAILURE();
    } catch (InvalidArgument const & e) {
        EXPECT_STREQ(e.what(), "Path must be absolute");
        EXPECT_EQ(e.path(), u"C:a");
        EXPECT_EQ(e.paths(), (std::vector<ustring>{u"", u"C:a"}));
    }
}

TEST(boost_path, has_native_and_generic_text) {
    std::filesystem::path const standard(u"d/\u00E9\U0001F600\\x");
    boost::filesystem::path const path(standard.native());
    EXPECT_EQ(to_ustring(path), u"d\\\u00E9\U0001F600\\x");
    EXPECT_EQ(to_generic_ustring(path), u"d/\u00E9\U0001F600/x");
}

} // namespace

} // namespace fl::filesystem
