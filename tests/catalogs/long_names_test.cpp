#include <cerrno>
#include <fl/filesystem/file.hpp>
#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/environment.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/lookup_report.hpp>
#include <fl/i18n/message_catalog.hpp>
#include <fl/i18n/resource_finder.hpp>
#include <fl/i18n/ustring.hpp>
#include <functional>
#include <gtest/gtest.h>
#include <string>

// Names that no system has, given to everything that takes a name.

namespace fl::i18n {
namespace {

struct name_row {
    char const * what;
    bool served;
    std::function<bool(std::string const &)> serves; ///< takes a name of letters
};

class LongName : public testing::TestWithParam<name_row> {};

TEST_P(LongName, IsServedOrRefused) {
    std::string const name(std::size_t{4} << 20, 'x');
    bool served = false;
    try {
        served = GetParam().serves(name);
    } catch (std::exception const &) {
    }
    EXPECT_EQ(served, GetParam().served);
}

ustring path(std::string const & name) {
    return u"C:\\" + utf8_to_ustring(name);
}

name_row const rows[] = {
    {"CatalogID", true,
     [](auto & name) { return CatalogID("a:" + name).getCatalogID().size() > name.size(); }},
    {"CatalogIDMalformed", false,
     [](auto & name) { return !CatalogID("a:" + name + "-").getCatalogID().empty(); }},
    {"MessageID", true, [](auto & name) { return !MessageID("a:b:" + name).getMsgKey().empty(); }},
    {"Catalog", false,
     [](auto & name) {
         auto const catalog = MessageCatalog::GetMessageCatalog(CatalogID("a:" + name), QzLocale::classic());
         return !catalog->text("key").empty();
     }},
    {"Message", false,
     [](auto & name) { return !MessageCatalog::get_message(MessageID("fl:i18n:" + name)).empty(); }},
    {"Report", true,
     [](auto & name) {
         return !explain_lookup(MessageID("a:" + name + ":b"), QzLocale::classic(), {}, {}).key_found;
     }},
    {"HoleType", true,
     [](auto & name) {
         return MessageCatalog::GetCustomHoleType(u"{0} " + utf8_to_ustring(name), 0).empty();
     }},
    {"Root", false, [](auto & name) { return MessageCatalog::MessageCatalogInit(path(name)); }},
    {"Locale", false, [](auto & name) { return QzLocale::createLocale(name) != nullptr; }},
    {"LocaleWithParts", false,
     [](auto & name) { return QzLocale::createLocale("ja_JP." + name + "@" + name) != nullptr; }},
    {"GlobalLocale", false, [](auto & name) { return experimental::set_global_locale(name); }},
    {"MessagesLocale", false, [](auto & name) { return set_lc_messages(name); }},
    {"Category", false,
     [](auto & name) { return QzLocale::getLcCategoryName(QzLocale::getLcCategory(name)) == name; }},
    {"EncodingOut", false,
     [](auto & name) { return codecvt_ustring_to_string(name, false).convert(u"x") == "x"; }},
    {"EncodingIn", false,
     [](auto & name) { return codecvt_string_to_ustring(name, false).convert("x") == u"x"; }},
    {"EncodingOption", true,
     [](auto & name) { return codecvt_string_to_ustring("UTF-8," + name, false).convert("x") == u"x"; }},
    {"Substitution", false,
     [](auto & name) {
         codecvt_ustring_to_string latin(call_back_substitute, "ISO-8859-1", name);
         return latin.convert(u"\u3042").size() == name.size();
     }},
    {"StandardEncoding", false, [](auto & name) { return !get_standard_encoding_name(name).empty(); }},
    {"Environment", false, [](auto & name) { return isenv(name) || !getenv(name).empty(); }},
    {"EnvironmentRemoved", true, [](auto & name) { return unsetenv(name) == 0 || errno != 0; }},
    {"File", false, [](auto & name) { return filesystem::fopen(path(name), "r") != nullptr; }},
    {"FileMode", false, [](auto & name) { return filesystem::fopen(u"x", "r" + name) != nullptr; }},
    {"FileExists", false, [](auto & name) { return filesystem::exists(filesystem::upath(path(name))); }},
    {"TemporaryDirectory", true,
     [](auto & name) { return !filesystem::temp_directory_name({name}).empty(); }},
    {"TemporaryName", true,
     [](auto & name) {
         return filesystem::tmpnam(u"C:\\", utf8_to_ustring(name), u"x").size() > name.size();
     }},
    {"Resource", false,
     [](auto & name) {
         return !resource_finder::find_resource(path(name + "%S"), QzLocale::classic(), true).empty();
     }},
    {"ResourceMarkers", false,
     [](auto & name) {
         std::string many = name;
         for (std::size_t i = 0; i + 1 < many.size(); i += 2) {
             many.replace(i, 2, "%S");
         }
         return !resource_finder::find_resource(path(many), QzLocale::classic(), true).empty();
     }},
};

INSTANTIATE_TEST_SUITE_P(Functions, LongName, testing::ValuesIn(rows),
                         [](auto const & row) { return row.param.what; });

} // namespace
} // namespace fl::i18n
