#include "files/open_stream.hpp"
#include "files/temp_directory.hpp"
#include "files/temporary_files.hpp"
#include "foundation/filesystem/open_file.hpp"
#include "platform/platform.hpp"
#include "tests/support/system_queries.hpp"
#include "tests/support/temporary_directory.hpp"

#include <boost/throw_exception.hpp>
#include <cerrno>
#include <fl/filesystem/exceptions.hpp>
#include <fl/filesystem/file.hpp>
#include <gtest/gtest.h>

namespace fl::filesystem::detail {

namespace {

using i18n::ustring;

TEST(open_stream, counts_the_name_without_prefix) {
    for (auto const & [length, code, expected] :
         {std::tuple{32767u, ENOENT, ENOENT}, {32768u, ENOENT, ENAMETOOLONG}, {32768u, EACCES, EACCES}}) {
        std::wstring native;
        errno = EACCES;
        EXPECT_FALSE(open_stream(u"C:\\" + ustring(length - 3, u'n'), codecvt_ustring_to_filesystem(false),
                                 "r", [&, code = code](std::wstring const & path) -> std::FILE * {
                                     EXPECT_EQ(errno, 0);
                                     native = path;
                                     errno = code;
                                     return nullptr;
                                 }));
        EXPECT_EQ(errno, expected);
        EXPECT_EQ(native, L"\\\\?\\C:\\" + std::wstring(length - 3, L'n'));
    }
}

TEST(temporary_files, are_created_where_no_file_is) {
    test::temporary_directory const directory;
    directory.write(u"planted", "kept");
    ustring const planted = (directory.path() / u"planted").string();
    for (int const collisions : {0, 10, 11, 20}) {
        SCOPED_TRACE(collisions);
        int names = 0;
        auto const make_name = [&] {
            return names++ < collisions ? planted : planted + static_cast<char16_t>(u'a' + collisions);
        };
        ustring name = u"before";
        platform::file_handle const stream(create_under_new_name(name, make_name, [](ustring const & path) {
            return platform::create_exclusively(make_native_access_form(path));
        }));
        EXPECT_EQ(stream ? 0 : errno, collisions < 11 ? 0 : EEXIST);
        EXPECT_EQ(names, std::min(collisions + 1, 11));
        EXPECT_EQ(name, stream ? make_name() : u"");
    }
    char content[5] = {};
    platform::file_handle const file = platform::open_for_reading(make_native_access_form(planted));
    EXPECT_STREQ(std::fgets(content, 5, file.get()), "kept");
    ustring name = u"before";
    EXPECT_FALSE(create_under_new_name(
        name, [] { return ustring(); }, [](auto &) { return std::tmpfile(); }));
    EXPECT_EQ(errno, EIO);
    EXPECT_EQ(name, u"");
}

/// Has one candidate for each letter and returns the one chosen, or what was thrown.
///
/// "d" is a directory that serves, "m" missing, "f" a file, "u" unwritable; the question about "t" throws.
std::string choose(std::string const & kinds) {
    std::vector<ustring> candidates;
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        candidates.push_back({static_cast<char16_t>(kinds[i]), static_cast<char16_t>(u'0' + i)});
    }
    directory_queries const queries{[](upath const & path) {
                                        wchar_t const kind = path.native()[0];
                                        if (kind == L't') {
                                            boost::throw_exception(AccessDenied(path.string()));
                                        }
                                        return file_status{kind != L'm', kind != L'm' && kind != L'f'};
                                    },
                                    [](upath const & path) { return path.native()[0] == L'u' ? EACCES : 0; }};
    try {
        ustring const chosen = choose_temp_directory(candidates, queries);
        return {chosen.begin(), chosen.end()};
    } catch (FsysExceptionBase const & e) {
        return e.what();
    }
}

std::string expected_choice(std::string const & kinds) {
    auto const name = [&](std::size_t i) { return std::string{kinds[i], static_cast<char>('0' + i)}; };
    if (kinds.empty()) {
        return "No directory for temporary files is specified.";
    }
    if (std::size_t const serves = kinds.find('d'); serves != std::string::npos) {
        return name(serves);
    }
    if (std::size_t const throws = kinds.rfind('t'); throws != std::string::npos) {
        return "Access to the path is denied: " + name(throws);
    }
    std::string const reason = kinds.back() == 'm'   ? "The path does not exist: "
                               : kinds.back() == 'f' ? "System error 20: "
                                                     : "System error 13: ";
    return reason + name(kinds.size() - 1);
}

TEST(temp_directory, is_chosen_from_every_mixture_of_candidates) {
    std::vector<std::string> mixtures{""};
    for (std::size_t i = 0; i < mixtures.size(); ++i) {
        EXPECT_EQ(choose(mixtures[i]), expected_choice(mixtures[i])) << mixtures[i];
        for (char const kind : mixtures[i].size() < 4 ? std::string("dmfut") : std::string()) {
            mixtures.push_back(mixtures[i] + kind);
        }
    }
    EXPECT_EQ(mixtures.size(), 1u + 5 + 25 + 125 + 625);
}

TEST(open_file, reads_a_name_to_its_end) {
    test::temporary_directory const directory;
    directory.write(u"file", "");
    EXPECT_TRUE(open_file(directory.path() / u"file"));
    EXPECT_FALSE(open_file(directory.path() / ustring(u"file\0x", 6)));
}

TEST(last_write_time, sets_100_nanoseconds_and_leaves_the_access_time) {
    test::temporary_directory const directory;
    constexpr std::uint64_t odd_time = 133'500'000'012'345'671;
    std::wstring const native = make_native_access_form(directory.path());
    std::uint64_t const accessed = test::file_times_of(directory.path()).access;
    ASSERT_EQ(platform::set_last_write_time(native, odd_time), platform::error::success);
    EXPECT_EQ(test::file_times_of(directory.path()).write, odd_time);
    EXPECT_EQ(test::file_times_of(directory.path()).access, accessed);
}

} // namespace

} // namespace fl::filesystem::detail
