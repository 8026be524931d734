#include "tests/support/std_path.hpp"
#include "tests/support/temporary_directory.hpp"

#include <cerrno>
#include <fl/i18n/environment.hpp>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

namespace {

namespace i18n = fl::i18n;

TEST(environment, sets_reads_and_removes) {
    i18n::ustring const name = u"FL_I18N_TEST_\u00E4\u65E5";
    i18n::ustring const value = u"v\U0001F600=\u20AC" + i18n::ustring(2000, u'\u00E9');
    ASSERT_EQ(i18n::unsetenv(name), 0);
    EXPECT_FALSE(i18n::isenv(name));
    errno = 77;
    EXPECT_EQ(i18n::getenv(name), u"");
    EXPECT_EQ(errno, 77);

    EXPECT_EQ(i18n::setenv(name, value, 0, false), 0);
    EXPECT_TRUE(i18n::isenv(name));
    EXPECT_EQ(i18n::getenv(name), value);
    EXPECT_EQ(i18n::setenv(name, u"other", 0, false), 0);
    EXPECT_EQ(errno, 0);
    EXPECT_EQ(i18n::getenv(name), value);
    EXPECT_EQ(i18n::setenv(name, u"other", 1, false), 0);
    EXPECT_EQ(i18n::getenv(name), u"other");

    EXPECT_EQ(i18n::setenv(name, u"", 1, true), 0);
    EXPECT_FALSE(i18n::isenv(name));
    EXPECT_EQ(i18n::setenv(name, u"", 1, true), 0) << "removing what is absent";
    EXPECT_FALSE(i18n::isenv(name));
}

TEST(environment, widens_narrow_names_with_their_sign) {
    ASSERT_EQ(i18n::setenv(std::string("FL_I18N_TEST_\xE9"), u"v", 1, false), 0);
    EXPECT_EQ(i18n::getenv(u"FL_I18N_TEST_\uFFE9"), u"v");
    EXPECT_FALSE(i18n::isenv(u"FL_I18N_TEST_\u00E9"));
    EXPECT_TRUE(i18n::isenv("FL_I18N_TEST_\xE9"));
    EXPECT_EQ(i18n::unsetenv("FL_I18N_TEST_\xE9"), 0);
    EXPECT_FALSE(i18n::isenv(u"FL_I18N_TEST_\uFFE9"));
}

TEST(environment, does_not_take_an_equals_sign_for_the_end_of_a_name) {
    ASSERT_EQ(i18n::setenv("FL_I18N_TEST", u"a=b", 1, false), 0);
    EXPECT_EQ(i18n::getenv("FL_I18N_TEST=a"), u"");
    EXPECT_FALSE(i18n::isenv("FL_I18N_TEST=a"));
    EXPECT_EQ(i18n::unsetenv("FL_I18N_TEST"), 0);
}

TEST(environment, is_seen_by_other_readers_of_the_process) {
    fl::test::temporary_directory const directory;
    directory.write(u"mark", "");
    i18n::ustring const path = fl::test::std_path(directory.path()).u16string();
    // The standard library asks for one or the other.
    i18n::ustring const before[] = {i18n::getenv(u"TMPDIR"), i18n::getenv(u"TMP")};
    EXPECT_EQ(i18n::setenv(u"TMPDIR", path, 1, false), 0);
    EXPECT_EQ(i18n::setenv(u"TMP", path, 1, false), 0);
    EXPECT_TRUE(std::filesystem::exists(std::filesystem::temp_directory_path() / "mark"));
    i18n::setenv(u"TMPDIR", before[0], 1, true);
    i18n::setenv(u"TMP", before[1], 1, true);
}

TEST(environment, gives_whole_values_while_another_thread_sets_them) {
    i18n::ustring const name = u"FL_I18N_TEST_SHARED";
    i18n::setenv(name, u"a", 1, false);
    std::vector<std::thread> readers;
    for (int reader = 0; reader < 3; ++reader) {
        readers.emplace_back([&] {
            for (int i = 0; i < 500; ++i) {
                i18n::ustring const value = i18n::getenv(name);
                EXPECT_EQ(value, i18n::ustring(value.size(), value.empty() ? u'-' : value[0]));
            }
        });
    }
    for (std::size_t i = 1; i < 200; ++i) {
        i18n::setenv(name, i18n::ustring(i * 7, static_cast<char16_t>(u'a' + i % 7)), 1, false);
    }
    for (auto & reader : readers) {
        reader.join();
    }
    EXPECT_EQ(i18n::unsetenv(name), 0);
}

} // namespace
