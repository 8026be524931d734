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

/// Tells whether a locale name leads nowhere else, whatever stands beside it in its element of a path: dots
/// would join those of the pattern, and blanks at the end may not count.
bool is_harmless(ustring const & name) {
    return name.find_first_of(std::u16string_view(u"\\/:\0", 4)) == ustring::npos &&
           name.find(u"..") == ustring::npos &&
           (name.empty() || name.find_first_not_of(u". ") != ustring::npos);
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

bool has_marker(ustring const & pattern, ustring const & marker) {
    return !marker.empty() && pattern.find(marker) != ustring::npos;
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
    if (!has_marker(what.pattern, what.marker)) {
        return find_in_base_paths(what, what.pattern, {}, visit);
    }
    for (ustring const & name : what.locale_names) {
        auto const relative = localise(what.pattern, what.marker, name);
        match found = relative ? find_in_base_paths(what, *relative, name, visit) : match();
        if (!found.path.empty()) {
            return found;
        }
    }
    return {};
}

std::optional<ustring> localise(ustring const & pattern, ustring const & marker,
                                ustring const & locale_name) {
    if (!is_harmless(locale_name)) {
        return std::nullopt;
    }
    std::size_t const marker_begin = pattern.find(marker);
    ustring before = pattern.substr(0, marker_begin);
    if (locale_name.empty() && before.ends_with(u'_')) {
        before.pop_back();
    }
    return before + locale_name + pattern.substr(marker_begin + marker.size());
}

std::vector<ustring> locale_names(QzLocale const & locale, bool use_classic_default) {
    return use_classic_default ? get_fallback_locales(locale)
                               : get_fallback_locales_with_empty_default(locale);
}

} // namespace fl::i18n::resource_search
