#include "tools/fl_i18n/explanation.hpp"

#include "tools/fl_i18n/console.hpp"

#include <fl/i18n/ustring.hpp>
#include <string>
#include <string_view>

namespace fl::tool {

namespace {

using i18n::LookupReport;
using i18n::LookupStep;
using i18n::ustring;
using i18n::utf8_to_ustring;

/// Lines of a label and a value; lines with the label of the line before leave it out.
class table {
public:
    void add(std::u16string_view label, ustring const & value) {
        constexpr std::size_t label_width = 16;
        ustring const shown(label == last_label_ ? std::u16string_view() : label);
        last_label_ = label;
        text_ += shown + ustring(label_width - shown.size(), u' ') + value + u'\n';
    }

    ustring const & text() const { return text_; }

private:
    std::u16string_view last_label_;
    ustring text_;
};

char16_t const * failed_step(LookupStep step) {
    switch (step) {
    case LookupStep::set_roots:
        return u"setting the roots";
    case LookupStep::find_file:
        return u"finding the file";
    case LookupStep::load_file:
        return u"loading the file";
    case LookupStep::find_key:
        return u"finding the key";
    case LookupStep::fill_holes:
        return u"filling the holes";
    case LookupStep::done:
        break;
    }
    return u"";
}

ustring number(std::uint64_t value) {
    return utf8_to_ustring(std::to_string(value));
}

ustring chain_text(LookupReport const & report) {
    ustring chain;
    for (ustring const & name : report.fallback_chain) {
        chain += (chain.empty() ? u"" : u" > ") + (name.empty() ? ustring(u"(unlocalised)") : name);
    }
    return chain;
}

ustring cache_text(LookupReport::CacheKey const & key) {
    ustring text = utf8_to_ustring(key.key) + (key.hit ? u"  hit" : u"  missed");
    if (key.stored) {
        text += u", stored";
    }
    if (key.hits > 0) {
        text += u", " + number(key.hits) + (key.hits == 1 ? u" hit so far" : u" hits so far");
    }
    return text;
}

void add_holes(table & lines, LookupReport const & report) {
    for (LookupReport::Hole const & hole : report.holes) {
        lines.add(u"hole", u"{" + hole.name + u"}" +
                               (hole.type.empty() ? ustring() : u"  " + utf8_to_ustring(hole.type)));
    }
    bool const fit = report.holes_expected == report.arguments_given;
    lines.add(u"arguments", number(report.holes_expected) + u" expected, " + number(report.arguments_given) +
                                u" given" + (fit ? u"" : u": they do not fit"));
}

} // namespace

ustring explain(LookupReport const & report) {
    table lines;
    lines.add(u"catalog", utf8_to_ustring(report.catalog));
    lines.add(u"key", utf8_to_ustring(report.key));
    lines.add(u"locale", utf8_to_ustring(report.messages_locale));
    lines.add(u"fallback chain", chain_text(report));
    for (ustring const & root : report.roots) {
        lines.add(u"root", display_path(root));
    }
    for (LookupReport::Candidate const & candidate : report.candidates) {
        lines.add(u"candidate",
                  (candidate.exists ? u"exists   " : u"missing  ") + display_path(candidate.path));
    }
    for (LookupReport::CacheKey const & key : report.cache_keys) {
        lines.add(u"cache key", cache_text(key));
    }
    if (report.path.empty()) {
        lines.add(u"file", u"none found");
    } else {
        lines.add(u"file", display_path(report.path) + u"  for " + utf8_to_ustring(report.found_locale) +
                               (report.loaded ? u", loaded" : u", not loaded"));
    }
    if (report.loaded) {
        lines.add(u"key in file", report.key_found ? u"yes" : u"no");
    }
    if (report.key_found) {
        lines.add(u"text in file", report.raw_text);
        add_holes(lines, report);
    }
    if (report.step == LookupStep::done) {
        lines.add(u"message", report.text);
    } else {
        lines.add(u"failed", failed_step(report.step) + ustring(u": ") + utf8_to_ustring(report.error));
    }
    return lines.text();
}

} // namespace fl::tool
