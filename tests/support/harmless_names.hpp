#pragma once

#include "foundation/filesystem/native_form.hpp"
#include "lookup/resource_search.hpp"

#include <algorithm>
#include <fl/filesystem/path.hpp>
#include <string>
#include <string_view>

/// What holds for every name that is put into a path, by the rules of any system and without asking one.
namespace fl::test {

/// Tells whether a relative path never leads above where it begins: also where dots and blanks at the end of
/// a name do not count.
inline bool stays_below(std::u16string_view path) {
    int depth = 0;
    while (depth >= 0 && !path.empty()) {
        std::u16string_view const element = path.substr(0, path.find_first_of(u"\\/"));
        path.remove_prefix(std::min(element.size() + 1, path.size()));
        if (element.find_first_not_of(u". ") != element.npos) {
            ++depth;
        } else if (std::count(element.begin(), element.end(), u'.') > 1) {
            --depth;
        }
    }
    return depth >= 0;
}

/// A directory under the rules of a system.
struct directory {
    char16_t const * path;
    bool root_is_absolute;
};
inline constexpr directory directories[] = {
    {u"C:\\r", false},        {u"C:/r/s", false}, {u"D:r", false}, {u"\\\\s\\x\\r", false},
    {u"\\\\?\\C:\\r", false}, {u"r", false},      {u"\\r", false}, {u"/usr/r", true}};

/// Returns the path under which a file is opened, as text.
inline std::wstring opened_path(filesystem::upath const & path, bool root_is_absolute) {
    auto const here = [](wchar_t drive) { return std::wstring(drive ? L"D:\\here" : L"C:\\here"); };
    return filesystem::detail::access_form_with_cleanup(
        filesystem::detail::complete_native_path(make_native_form(path, false), root_is_absolute, here),
        root_is_absolute);
}

/// Returns what is wrong with what a locale name makes of a pattern; null when nothing is.
inline char const * fault_of(directory const & base, i18n::ustring const & pattern,
                             i18n::ustring const & marker, i18n::ustring const & name) {
    auto const localised = i18n::resource_search::localise(pattern, marker, name);
    if (!localised) {
        return nullptr;
    }
    std::size_t const place = pattern.find(marker);
    i18n::ustring expected = pattern;
    expected.replace(place, marker.size(), name);
    if (name.empty() && place > 0 && expected[place - 1] == u'_') {
        expected.erase(place - 1, 1);
    }
    if (*localised != expected) {
        return "it is not the pattern with the name";
    }
    i18n::ustring harmless = pattern;
    harmless.replace(place, marker.size(), u"x");
    if (name.empty() || !stays_below(harmless)) {
        return nullptr;
    }
    if (!stays_below(*localised)) {
        return "it leads above the pattern";
    }
    for (char16_t const special : {u'\\', u'/', u':', u'\0'}) {
        if (std::count(name.begin(), name.end(), special) != 0) {
            return "the name is more than a part of an element";
        }
    }
    std::wstring const above = opened_path(base.path, base.root_is_absolute);
    std::wstring const file = opened_path(filesystem::upath(base.path) / *localised, base.root_is_absolute);
    if (!file.starts_with(above) || (file.size() != above.size() && file[above.size()] != L'\\')) {
        return "it is not below the directory";
    }
    // Behind this prefix the names of devices are names as others are.
    return base.root_is_absolute || above.starts_with(L"\\\\?\\") ? nullptr : "it may be a device";
}

} // namespace fl::test
