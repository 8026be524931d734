#include "foundation/filesystem/system_error.hpp"

#include <boost/exception_ptr.hpp>
#include <fl/filesystem/exceptions.hpp>
#include <gtest/gtest.h>

namespace fl::filesystem::detail {

namespace {

using i18n::ustring;

ustring const path = u"C:\\d\u00E9\\\xD800";

/// Returns the exception that the mapping throws, after a journey as if to another thread.
template <class Exception>
Exception mapped(std::uint32_t code, ustring const & first = path, ustring const & second = {}) {
    boost::exception_ptr carried;
    try {
        throw_system_error(code, first, second);
    } catch (...) {
        carried = boost::current_exception();
    }
    try {
        boost::rethrow_exception(carried);
    } catch (Exception const & e) {
        return e;
    }
}

template <class Exception>
void expect(std::uint32_t code, std::string const & what) {
    SCOPED_TRACE(code);
    auto const e = mapped<Exception>(code);
    EXPECT_EQ(e.what(), what);
    EXPECT_EQ(e.path(), path);
    EXPECT_EQ(e.paths(), std::vector{path});
}

TEST(system_error, has_its_exception) {
    std::string const printed = ": C:\\d\xC3\xA9\\\xEF\xBF\xBD";
    expect<PathNotFound>(2, "The path does not exist" + printed);
    expect<PathNotFound>(3, "The path does not exist" + printed);
    expect<AccessDenied>(5, "Access to the path is denied" + printed);
    expect<AccessDenied>(1920, "Access to the path is denied" + printed);
    expect<FileExistsError>(80, "The file exists already" + printed);
    expect<FileExistsError>(183, "The file exists already" + printed);
    expect<DirectoryNotEmpty>(145, "The directory is not empty" + printed);
    expect<FileNameTooLarge>(206, "The path is too long" + printed);
    expect<NotDirectoryError>(267, "The path is not a directory" + printed);
    expect<InvalidArgument>(123, "The filename, directory name, or volume label syntax is incorrect.");
    expect<InvalidArgument>(161, "The specified path is invalid.");
    expect<InvalidArgument>(4390, "The file or directory is not a reparse point.");
    // These three are errno values, which are deliberately not told apart.
    expect<SystemError>(1, "System error 1" + printed);
    expect<SystemError>(13, "System error 13" + printed);
    expect<SystemError>(20, "System error 20" + printed);
}

TEST(system_error, of_a_missing_path_looks_at_the_longer_one) {
    ustring const longest(32767, u'a');
    ustring const too_long(32768, u'b');
    EXPECT_EQ(mapped<PathNotFound>(3, longest, u"b").path(), longest);
    EXPECT_EQ(mapped<PathNotFound>(3, u"a", longest).path(), u"a");
    EXPECT_EQ(mapped<FileNameTooLarge>(3, too_long, u"b").path(), too_long);
    EXPECT_EQ(mapped<FileNameTooLarge>(3, u"a", too_long).path(), too_long);
    EXPECT_EQ(mapped<PathNotFound>(2, too_long).path(), too_long);
}

TEST(system_error, lists_both_paths_and_keeps_the_code) {
    auto const e = mapped<SystemError>(87, u"a", u"b");
    EXPECT_EQ(e.code(), 87u);
    EXPECT_EQ(e.paths(), (std::vector<ustring>{u"a", u"b"}));
    EXPECT_EQ(mapped<InvalidArgument>(123, u"a", u"b").paths(), e.paths());
    EXPECT_STREQ(PathNotFound(u"").what(), "The path does not exist");
}

} // namespace

} // namespace fl::filesystem::detail
