#pragma once

#include "locale/lc_data.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace fl::i18n::lcmgmt {

/// Receives the events of a resource document. Each event returns 0 to go on, another status to stop the
/// parse.
class EventHandler {
public:
    virtual ~EventHandler() = default;

    /// `encoding` is null when the declaration names none.
    virtual int xml_declaration(char const * version, char const * encoding) = 0;
    /// `attributes` alternates names and values and ends with a null.
    virtual int start_element(char const * name, char const ** attributes) = 0;
    virtual int character_data(char const * text, int length) = 0;
    virtual int end_element(char const * name) = 0;
    /// Returns the encoding name to create the parser with.
    virtual std::string const & expected_encoding() const = 0;
};

/// Feeds the elements of a locale database to the tables as they come.
class LcdbEventHandler final : public EventHandler {
public:
    /// The status that stops the parse.
    static constexpr int stop = -2;

    explicit LcdbEventHandler(LcData const & data);

    int xml_declaration(char const * version, char const * encoding) override;
    int start_element(char const * name, char const ** attributes) override;
    int character_data(char const * text, int length) override;
    int end_element(char const * name) override;
    std::string const & expected_encoding() const override { return expected_encoding_; }

private:
    enum class element { none, lcdata, locale, alias, region_alias, l10n, codeset, encoding, encoding_alias };

    struct element_rule {
        element code;
        std::string_view name;
        element parent; ///< none for the root
    };
    static element_rule const rules[];

    bool open(element_rule const & rule);
    int read_locale(char const ** attributes);
    int read_encoding(char const ** attributes);
    int read_encoding_alias(char const ** attributes);

    LcData data_;
    std::string expected_encoding_;
    std::vector<element_rule const *> open_elements_;
    std::string locale_name_;
    std::string locale_encoding_;
    std::string locale_xpg_name_;
    std::string encoding_name_;
    bool encoding_has_name_ = false;
};

} // namespace fl::i18n::lcmgmt
