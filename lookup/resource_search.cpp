#include "lookup/resource_search.hpp"

#include "platform/platform.hpp"

#include <algorithm>
#include <boost/throw_exception.hpp>
#include <fl/filesystem/exceptions.hpp>
#include <fl/i18n/fallback_locales.hpp>
#include <new>
#include <string_view>

namespace fl::i18n::resource_search {

namespace {

using filesystem::upath;

/// Tells whether a locale name stays one element of the path that it is put into.
bool is_path_element(ustring const & name) {
    return name.find_first_of(std::u16string_view(u"\\/:\0", 4)) == ustring::npos &&
           name.find(u"..") == ustring::npos;
}

ustring localise(query const & what, std::size_t marker_begin, ustring const & locale_name) {
    ustring before = what.pattern.substr(0, marker_begin);
    if (locale_name.empty() && before.ends_with(u'_')) {
        before.pop_back();
    }
    return before + locale_name + what.pattern.substr(marker_begin + what.marker.size());
}

/// One directory that cannot be looked into, or be told, must not hide what the others hold.
bool is_there(upath const & path) {
    try {
        return is_absolute(path) && filesystem::exists(path);
    } catch (filesystem::SystemError const & error) {
        if (error.code() == platform::error::not_enough_memory) {
            boost::throw_exception(std::bad_alloc()); // which says nothing of the file
        }
        return false;
    } catch (filesystem::FsysExceptionBase const &) {
        return false;
    }
}

match find_in_base_paths(query const & what, ustring const & relative, ustring const & locale_name,
                         visitor const & visit) {
    for (upath const & base : what.base_paths) {
        upath candidate = make_native_form(base / relative, true);
        bool const found = is_there(candidate);
        if (visit) {
            visit(candidate, locale_name, found);
        }
        if (found) {
            return {std::move(candidate), locale_name};
        }
    }
    return {};
}

} // namespace

match find(query const & what, visitor const & visit) {
    if (what.pattern.empty()) {
        return {};
    }
    std::size_t const marker_begin = what.marker.empty() ? ustring::npos : what.pattern.find(what.marker);
    if (marker_begin == ustring::npos) {
        return find_in_base_paths(what, what.pattern, {}, visit);
    }
    for (ustring const & name : what.locale_names) {
        if (!is_path_element(name)) {
            continue;
        }
        match found = find_in_base_paths(what, localise(what, marker_begin, name), name, visit);
        if (!found.path.empty()) {
            return found;
        }
    }
    return {};
}

std::vector<ustring> locale_names(QzLocale const & locale, bool use_classic_default) {
    return use_classic_default ? get_fallback_locales(locale)
                               : get_fallback_locales_with_empty_default(locale);
}

} // namespace fl::i18n::resource_search
