#include "foundation/ascii.hpp"
#include "lookup/resource_search.hpp"

#include <algorithm>
#include <fl/i18n/resource_finder.hpp>

namespace fl::i18n {

namespace {

using filesystem::upath;

auto find_same(std::vector<upath> const & paths, upath const & path) {
    std::wstring const native = make_native_form(path, false);
    return std::find_if(paths.begin(), paths.end(),
                        [&](upath const & other) { return make_native_form(other, false) == native; });
}

} // namespace

char16_t const * const resource_finder::default_formatter = u"%S";

resource_finder::resource_finder(std::vector<upath> const & base_paths, QzLocale const & locale,
                                 bool use_classic_default, ustring const & formatter)
    : formatter_(formatter)
    , base_paths_(base_paths)
    , locale_name_(locale.getLcName(QzLocale::LcCategory::messages))
    , locale_names_(resource_search::locale_names(locale, use_classic_default)) {}

upath resource_finder::find(ustring const & pattern) const {
    return find(pattern, locale_names_, formatter_);
}

upath resource_finder::find(ustring const & pattern, ustring const & formatter) const {
    return find(pattern, locale_names_, formatter);
}

upath resource_finder::find(ustring const & pattern, QzLocale const & locale, ustring const & formatter,
                            std::string & found_locale) const {
    // The end of the finder's own chain tells which default it was made with.
    bool const use_classic_default = !locale_names_.back().empty();
    auto const names = resource_search::locale_names(locale, use_classic_default);
    resource_search::match found = resource_search::find({base_paths_, pattern, formatter, names});
    std::string name = ascii::narrow(found.locale_name);
    found_locale = name; // the last step that may fail
    found_locale_ = std::move(name);
    return std::move(found.path);
}

upath resource_finder::find(ustring const & pattern, QzLocale const & locale,
                            std::string & found_locale) const {
    return find(pattern, locale, formatter_, found_locale);
}

upath resource_finder::find(ustring const & pattern, std::vector<ustring> const & locale_names,
                            ustring const & formatter) const {
    resource_search::match found = resource_search::find({base_paths_, pattern, formatter, locale_names});
    found_locale_ = ascii::narrow(found.locale_name);
    return std::move(found.path);
}

upath resource_finder::find_resource(ustring const & pattern, std::string & found_locale,
                                     QzLocale const & locale, bool use_classic_default,
                                     ustring const & formatter) {
    // Below the empty path the pattern stays as it is.
    return find_resource({upath()}, pattern, found_locale, locale, use_classic_default, formatter);
}

upath resource_finder::find_resource(ustring const & pattern, QzLocale const & locale,
                                     bool use_classic_default, ustring const & formatter) {
    std::string found_locale;
    return find_resource(pattern, found_locale, locale, use_classic_default, formatter);
}

upath resource_finder::find_resource(std::vector<upath> const & base_paths, ustring const & pattern,
                                     std::string & found_locale, QzLocale const & locale,
                                     bool use_classic_default, ustring const & formatter) {
    auto const names = resource_search::locale_names(locale, use_classic_default);
    resource_search::match found = resource_search::find({base_paths, pattern, formatter, names});
    found_locale = ascii::narrow(found.locale_name);
    return std::move(found.path);
}

upath resource_finder::find_resource(std::vector<upath> const & base_paths, ustring const & pattern,
                                     QzLocale const & locale, bool use_classic_default,
                                     ustring const & formatter) {
    std::string found_locale;
    return find_resource(base_paths, pattern, found_locale, locale, use_classic_default, formatter);
}

bool resource_finder::add_base_path(upath const & path) const {
    if (find_same(base_paths_, path) != base_paths_.end()) {
        return false;
    }
    base_paths_.push_back(path);
    return true;
}

bool resource_finder::remove_base_path(upath const & path) const {
    auto const position = find_same(base_paths_, path);
    if (position == base_paths_.end()) {
        return false;
    }
    base_paths_.erase(position);
    return true;
}

std::vector<upath> resource_finder::get_base_path_list() const {
    return base_paths_;
}

std::string resource_finder::get_current_locale() const {
    return locale_name_;
}

std::string resource_finder::get_locale() const {
    return found_locale_;
}

} // namespace fl::i18n
