#include "tests/faults/process_state.hpp"

#include "catalogs/catalog_service.hpp"
#include "locale/qz_locale_ctx.hpp"

#include <algorithm>
#include <bit>
#include <fl/i18n/catalog_config.hpp>
#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/environment.hpp>
#include <fl/i18n/locale_status.hpp>
#include <fstream>
#include <memory>
#include <stdlib.h>
#include <unistd.h>
#include <vector>

namespace fl::test {

using namespace i18n;

namespace {

template <class Cache>
std::string service_state(std::vector<filesystem::upath> const & roots,
                          std::vector<filesystem::upath> const & locations, Cache const & cache) {
    std::string state;
    for (auto const & root : roots) {
        state += "root " + ustring_to_utf8(root.string()) + '\n';
    }
    for (auto const & location : locations) {
        state += "location " + ustring_to_utf8(location.string()) + '\n';
    }
    std::vector<std::string> entries;
    for (auto const & [key, entry] : cache) {
        std::string line = "cached " + key.parts().joined() +
                           (entry.catalog->loaded() ? " loaded " : " not loaded ") +
                           ustring_to_utf8(entry.catalog->path().string()) + ' ' + entry.catalog->locale();
        auto keys = entry.catalog->keys();
        std::sort(keys.begin(), keys.end());
        for (auto const & name : keys) {
            line += ' ' + name + '=' + ustring_to_utf8(*entry.texts.find(name));
        }
        entries.push_back(line + '\n');
    }
    std::sort(entries.begin(), entries.end());
    for (auto const & line : entries) {
        state += line;
    }
    return state;
}

// The arguments of an explicit instantiation may name private members.
std::string state_of(catalog_service & service);
template <auto Roots, auto Locations, auto Cache>
struct opened_service {
    friend std::string state_of(catalog_service & service) {
        return service_state(service.*Roots, service.*Locations, service.*Cache);
    }
};
template struct opened_service<&catalog_service::roots_, &catalog_service::additional_locations_,
                               &catalog_service::cache_>;

std::string registry_state() {
    auto const & registry = messagecatalog::ConfigurationManagerFactory::Get();
    std::string state;
    if (auto const critical = registry.FindCriticalCatalogs()) {
        state += "critical";
        for (auto const & id : critical->GetCriticalCatalogIds()) {
            state += ' ' + id.getCatalogID();
        }
        state += '\n';
    }
    if (auto const format = registry.FindDoubleFormat()) {
        state += "format " + std::to_string(static_cast<unsigned>(format->GetORBLANDoubleFormat())) + '\n';
    }
    if (auto const path = registry.FindSearchPath()) {
        for (auto const & directory : path->GetSearchPaths()) {
            state += "search " + ustring_to_utf8(directory) + '\n';
        }
    }
    return state;
}

template <class T, class... Arguments>
void renew(T & object, Arguments &&... arguments) {
    std::destroy_at(&object);
    std::construct_at(&object, std::forward<Arguments>(arguments)...);
}

constexpr char small_database[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<lcdata>
  <locale name="xx_YY" encoding="EUC-JP" xpg_name="xx_YY.eucJP"><alias name="ex"/><region_alias name="xx_ZZ"/></locale>
  <!-- A remark that is long enough for a byte of it to be changed. -->
  <locale name="zz_ZZ" encoding="ISO-8859-15"><l10n disable="yes"/></locale>
  <locale name="ja_JP" encoding="Shift_JIS"/>
  <codeset><encoding name="X-Own" jvm_encoding="Own" compat="ISO-8859-2"><encoding_alias name="own"/></encoding></codeset>
</lcdata>
)";

std::string large_database() {
    std::string text = "<lcdata>";
    for (unsigned i = 0; i < 800; ++i) {
        std::string const name =
            "q" + std::string(1, static_cast<char>('a' + i % 26)) + "_" + std::to_string(i);
        text += "<locale name='" + name + "' encoding='ISO-8859-1' xpg_name='" + name +
                ".a_codeset_with_a_long_name'><alias name='an_alias_of_some_length_" + name +
                "'/><region_alias name='region_of_some_length_" + name + "'/><l10n disable='no'/></locale>";
    }
    text += "<codeset>";
    for (unsigned i = 0; i < 80; ++i) {
        std::string const name = "X-Encoding-Of-Ours-" + std::to_string(i);
        text += "<encoding name='" + name + "' jvm_encoding='" + name +
                "J' compat='ISO-8859-3'><encoding_alias name='" + name + "-alias'/></encoding>";
    }
    return text + "</codeset></lcdata>";
}

} // namespace

fault_files::fault_files() {
    std::string pattern = (std::filesystem::temp_directory_path() / "fl_i18n-faults-XXXXXX").string();
    directory_ = ::mkdtemp(pattern.data());
    write("one/resources/app/ja/ui.xml", catalog_file("ja", 40));
    write("one/resources/app/ja/bad.xml", "<rsccat><message><entry key='k'>");
    write("one/resources/app/ja/large.xml", catalog_file("ja", 600));
    write(
        "one/resources/app/ja/entities.xml",
        "<!DOCTYPE rsccat [<!ENTITY name 'a text of some length'><!ENTITY both '&name; and &name;'>"
        "<!ATTLIST entry note CDATA 'none'>]><rsccat><message><entry key='Plain' note='&both;'>A &both; and "
        "<![CDATA[<raw>]]><!-- a remark --></entry></message></rsccat>");
    std::string wide = "\xff\xfe";
    for (char const c :
         std::string_view("<rsccat><message><entry key='Plain'>A text</entry></message></rsccat>")) {
        wide += {c, '\0'};
    }
    write("one/resources/app/ja/utf16.xml", wide);
    for (unsigned i = 0; i < critical_catalogs; ++i) {
        write("one/resources/app/ja_JP/critical" + std::to_string(i) + ".xml",
              catalog_file("ja", 3 + 12 * i));
    }
    write("two/resources/app/ja_JP/extra.xml", catalog_file("ja_JP", 4));
    write("two/resources/app/ja/a_sub_component_with_a_name_that_is_long/ui.xml", catalog_file("ja_JP", 4));
    write("more/resources/app/en_US_POSIX/more.xml", catalog_file("en", 2));
    write("small.xml", small_database);
    write("large.xml", large_database());
    write("bad.xml", "<lcdata><locale name='xx_YY' encoding='EUC-JP'/><bad/></lcdata>");
    write("file.txt", "text");
}

fault_files::~fault_files() {
    std::error_code ignored;
    std::filesystem::remove_all(directory_, ignored);
}

std::string fault_files::name(std::string_view name) const {
    return (directory_ / name).string();
}

ustring fault_files::path(std::string_view name) const {
    std::u16string path = (directory_ / name).u16string();
    std::replace(path.begin(), path.end(), u'/', u'\\');
    return path;
}

void fault_files::write(std::string_view name, std::string_view bytes) const {
    std::filesystem::path const file = directory_ / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string catalog_file(std::string_view language, unsigned entries) {
    std::string text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<rsccat version='1.0' locale='x'>\n<message>\n";
    for (unsigned i = 0; i < entries; ++i) {
        std::string const number = std::to_string(i);
        text += "  <entry key='Message" + number + "'>\n    A text in " + std::string(language) +
                " &amp; so on,\n" + std::string(i * 7 % 90, 'x') + " in lines \\u00e9 {0} </entry>\n";
    }
    return text + "  <entry key='Plain'>A message without holes</entry>\n</message></rsccat>\n";
}

void renew_process_state(fault_files const & files) {
    lcmgmt::startup_inputs inputs;
    inputs.environment["QZLOCALE_LCDATA_PATH"] = files.path("");
    inputs.environment["QZLOCALE_LCDATA_FILENAME"] = u"small.xml";
    inputs.settings.category_names.fill({"ja_JP"});
    inputs.settings.details["LANG"] = "ja_JP";
    renew(lcmgmt::QzLocaleCtx::get(), std::move(inputs));
    renew(process_catalog_service(), [&files] { return filesystem::upath(files.path("one")); });
    renew(messagecatalog::ConfigurationManagerFactory::Get(),
          std::bit_cast<messagecatalog::ConfigurationManager::CreatorKey>('\0'));
    ::unsetenv("FL_I18N_FAULTS");
    ::unsetenv("FL_I18N_FAULTS_NEW");
    MessageCatalog::MessageCatalogInit({files.path("one"), files.path("two")});
}

std::string locale_state() {
    std::string state;
    for (auto const * const locale : {&QzLocale::classic(), &QzLocale::system(), &QzLocale::global()}) {
        state += "locale";
        for (unsigned i = 0; i < 6; ++i) {
            auto const category = static_cast<QzLocale::LcCategory>(i);
            state += ' ' + locale->getLcName(category) + '(' + locale->getUserLcName(category) + ')';
        }
        state += ' ' + locale->getXpgName() + ' ' + locale->getEncoding() + '\n';
    }
    state += "narrow " + to_string(u"\u00e9\u3042") + '\n';
    state += "l10n " + std::to_string(get_l10n_resource_status()) + '\n';
    state += "status " + std::to_string(QzLcUtil::getLcStatus()) + ' ' + QzLcUtil::getInitWarningMsg() + '\n';
    for (auto const & event : QzLcUtil::getEventLog()) {
        state += "event " + event + '\n';
    }
    for (auto const & map : {QzLcUtil::getLocaleInformation(), QzLcUtil::getDataPathNames()}) {
        for (auto const & [name, value] : map) {
            state += name + '=' + value + '\n';
        }
    }
    // The tables, through locales made of them.
    for (char const * const name : {"xx_YY", "ex", "xx_ZZ", "zz_ZZ", "ja_JP", "qb_1"}) {
        auto const locale = QzLocale::createLocale(name);
        state +=
            std::string("table ") + name + ' ' + locale->getXpgName() + ' ' + locale->getEncoding() + '\n';
    }
    return state + "table own " + get_standard_encoding_name("own") + '\n';
}

std::string process_state() {
    std::string state = locale_state() + registry_state() + state_of(process_catalog_service());
    for (char const * const name : {"FL_I18N_FAULTS", "FL_I18N_FAULTS_NEW"}) {
        state += std::string(name) + '=' + std::to_string(isenv(std::string(name))) +
                 ustring_to_utf8(i18n::getenv(std::string(name))) + '\n';
    }
    return state;
}

// The lowest free one is another when one was left open, or closed that should not be.
int open_files_mark() {
    int const descriptor = ::dup(0);
    ::close(descriptor);
    return descriptor;
}

} // namespace fl::test
