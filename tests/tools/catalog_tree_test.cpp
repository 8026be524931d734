// What a catalog file's place says of it.

#include "tests/support/temporary_directory.hpp"
#include "tools/fl_i18n/catalog/catalog_tree.hpp"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace fl::tool {
namespace {

TEST(CatalogTree, IdentifiesFilesByTheirPlace) {
    test::temporary_directory root;
    root.write(u"r/resources/app/ja/ui/menu.xml", "");
    root.write(u"r/resources/app/ja/ui.xml", "");
    root.write(u"r/resources/app/notes.txt", "");
    root.write(u"r/resources/app/catalog_map.xml", "");
    root.write(u"r/resources/app/de/resources/deep/er/ui.xml", "");
    root.write(u"plain/app/\u00E9/ui.xml", "");
    std::string const top = root.name();
    struct row {
        std::string path;
        std::vector<std::string> files; ///< name, the directory's own name, catalog, locale
    };
    std::string const nested =
        "resources/app/de/resources/deep/er/ui.xml|resources|app:resources:deep:er:ui|de";
    std::vector<row> const rows = {
        {"/r",
         {"resources/app/catalog_map.xml|||", nested, "resources/app/ja/ui.xml|resources|app:ui|ja",
          "resources/app/ja/ui/menu.xml|resources|app:ui:menu|ja"}},
        {"/r/resources/app/ja", {"ui.xml|resources|app:ui|ja", "ui/menu.xml|resources|app:ui:menu|ja"}},
        {"/r/resources/app/ja/ui/", {"menu.xml|resources|app:ui:menu|ja"}},
        {"/r/resources/app/ja/./ui.xml", {"|resources|app:ui|ja"}},
        {"/r/resources/app/notes.txt", {"|||"}},
        {"/r/resources/app/missing/ui.xml", {"|resources|app:ui|missing"}},
        {"/plain", {"app/\xC3\xA9/ui.xml|plain|app:ui|\xC3\xA9"}},
        {"/plain/app", {"\xC3\xA9/ui.xml|||"}},
    };
    for (row const & each : rows) {
        SCOPED_TRACE(each.path);
        std::vector<std::string> found;
        for (catalog_file const & file : find_catalog_files(top + each.path)) {
            ASSERT_TRUE(file.name.starts_with(top + each.path));
            std::string name = file.name.substr(top.size() + each.path.size());
            name.erase(0, name.starts_with('/') ? 1 : 0);
            std::string const directory = file.resources.substr(file.resources.rfind('/') + 1);
            found.push_back(name + "|" + directory + "|" + file.catalog + "|" + file.locale);
        }
        EXPECT_EQ(found, each.files);
    }
}

} // namespace
} // namespace fl::tool
