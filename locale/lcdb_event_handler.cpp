#include "locale/lcdb_event_handler.hpp"

#include "foundation/ascii.hpp"
#include "foundation/xml_reader.hpp"

#include <algorithm>
#include <iterator>

namespace fl::i18n::lcmgmt {

namespace {

std::string_view value_of(char const ** attributes, std::string_view name) {
    char const * const value = xml::find_attribute(attributes, name);
    return value != nullptr ? value : std::string_view();
}

} // namespace

constexpr LcdbEventHandler::element_rule LcdbEventHandler::rules[] = {
    {element::lcdata, "lcdata", element::none},
    {element::locale, "locale", element::lcdata},
    {element::alias, "alias", element::locale},
    {element::region_alias, "region_alias", element::locale},
    {element::l10n, "l10n", element::locale},
    {element::codeset, "codeset", element::lcdata},
    {element::encoding, "encoding", element::codeset},
    {element::encoding_alias, "encoding_alias", element::encoding},
};

LcdbEventHandler::LcdbEventHandler(LcData const & data)
    : data_(data)
    , expected_encoding_("UTF-8") {}

int LcdbEventHandler::xml_declaration(char const *, char const * encoding) {
    std::string_view const declared = encoding != nullptr ? encoding : "";
    return ascii::equal_ignoring_case(declared, expected_encoding_) ? 0 : stop;
}

int LcdbEventHandler::start_element(char const * name, char const ** attributes) {
    auto const found = std::ranges::find(rules, std::string_view(name), &element_rule::name);
    if (found == std::end(rules) || !open(*found)) {
        return stop;
    }
    switch (found->code) {
    case element::none:
        break;
    case element::lcdata:
    case element::codeset:
        return 0;
    case element::locale:
        return read_locale(attributes);
    case element::encoding:
        return read_encoding(attributes);
    case element::encoding_alias:
        return read_encoding_alias(attributes);
    case element::alias:
    case element::region_alias: {
        std::string_view const alias = value_of(attributes, "name");
        if (alias.empty()) {
            return stop;
        }
        if (found->code == element::alias) {
            data_.addAliasLcName(locale_name_, alias);
        } else {
            data_.addRegionAliasLcName(locale_name_, alias);
        }
        return 0;
    }
    case element::l10n: {
        std::string_view const disable = value_of(attributes, "disable");
        if (disable.empty()) {
            return stop;
        }
        data_.addL10nFlag(locale_name_, disable);
        return 0;
    }
    }
    return stop;
}

int LcdbEventHandler::character_data(char const *, int) {
    return 0;
}

int LcdbEventHandler::end_element(char const * name) {
    if (open_elements_.empty() || open_elements_.back()->name != name) {
        return stop;
    }
    open_elements_.pop_back();
    return 0;
}

bool LcdbEventHandler::open(element_rule const & rule) {
    element const outer = open_elements_.empty() ? element::none : open_elements_.back()->code;
    if (outer == rule.code) {
        // Not pushed: the end tag of the inner one closes the outer, and that of the outer then finds
        // nothing.
        return true;
    }
    if (outer != rule.parent) {
        return false;
    }
    open_elements_.push_back(&rule);
    return true;
}

int LcdbEventHandler::read_locale(char const ** attributes) {
    locale_name_ = value_of(attributes, "name");
    locale_encoding_ = value_of(attributes, "encoding");
    locale_xpg_name_ = value_of(attributes, "xpg_name");
    // The attribute disable_user_locale is accepted, and without effect.
    if (locale_name_.empty()) {
        return stop;
    }
    data_.addLcName(locale_name_, locale_encoding_, locale_xpg_name_);
    return 0;
}

int LcdbEventHandler::read_encoding(char const ** attributes) {
    encoding_name_ = value_of(attributes, "name");
    encoding_has_name_ = !encoding_name_.empty();
    if (!encoding_has_name_) {
        return stop;
    }
    data_.addEncodingName(encoding_name_, value_of(attributes, "jvm_encoding"),
                          value_of(attributes, "compat"));
    return 0;
}

int LcdbEventHandler::read_encoding_alias(char const ** attributes) {
    std::string_view const alias = value_of(attributes, "name");
    if (!encoding_has_name_ || alias.empty()) {
        return stop;
    }
    data_.addEncodingAlias(encoding_name_, alias);
    return 0;
}

} // namespace fl::i18n::lcmgmt
