// Prints locale/builtin_encodings.cpp from the converters of the installed ICU. Run it after an ICU upgrade,
// from the root:
//   g++ -std=c++20 tools/tables/encoding_tables.cpp -o encoding_tables $(pkg-config --cflags --libs icu-uc)
//   ./encoding_tables > locale/builtin_encodings.cpp

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <iterator>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <unicode/ucnv.h>
#include <unicode/uenum.h>

namespace {

using names = std::vector<std::string>;

struct encoding {
    std::string jvm_name;
    std::string compat;
    names aliases;
};

// Names that Java itself reports, where they do not follow from the names that ICU lists for Java.
std::map<std::string_view, char const *> const java_names = {
    {"Big5-HKSCS", "Big5_HKSCS"},
    {"CESU-8", "CESU8"},
    {"EUC-JP", "EUC_JP"},
    {"EUC-KR", "EUC_KR"},
    {"EUC-TW", "EUC_TW"},
    {"GB18030", "GB18030"},
    {"GB2312", "EUC_CN"},
    {"GBK", "GBK"},
    {"IBM290", "Cp290"},
    {"ISO-2022-CN", "ISO2022CN"},
    {"ISO-2022-JP", "ISO2022JP"},
    {"ISO-2022-JP-1", "MS50221"},
    {"ISO-2022-JP-2", "ISO2022JP2"},
    {"ISO-2022-KR", "ISO2022KR"},
    {"ISO-8859-1", "ISO8859_1"},
    {"ISO-8859-13", "ISO8859_13"},
    {"ISO-8859-15", "ISO8859_15"},
    {"ISO-8859-2", "ISO8859_2"},
    {"ISO-8859-3", "ISO8859_3"},
    {"ISO-8859-4", "ISO8859_4"},
    {"ISO-8859-5", "ISO8859_5"},
    {"ISO-8859-6", "ISO8859_6"},
    {"ISO-8859-7", "ISO8859_7"},
    {"ISO-8859-8", "ISO8859_8"},
    {"ISO-8859-9", "ISO8859_9"},
    {"KOI8-R", "KOI8_R"},
    {"KOI8-U", "KOI8_U"},
    {"KSC_5601", "MS949"},
    {"Shift_JIS", "SJIS"},
    {"US-ASCII", "ASCII"},
    {"UTF-16", "UTF-16"},
    {"UTF-16BE", "UnicodeBigUnmarked"},
    {"UTF-16LE", "UnicodeLittleUnmarked"},
    {"UTF-32", "UTF-32"},
    {"UTF-32BE", "UTF-32BE"},
    {"UTF-32LE", "UTF-32LE"},
    {"UTF-8", "UTF8"},
    {"cp949c", "Cp949C"},
    {"hp-roman8", "hp-roman8"},
    {"macintosh", "MacRoman"},
    {"windows-57002", "ISCII91"},
    {"windows-874", "MS874"},
    {"x-IBM1364", "Cp1364"},
    {"x-IBM942", "Cp942"},
    {"x-ISO-2022-CN-CNS", "ISO2022CN_CNS"},
    {"x-mac-centraleurroman", "MacCentralEurope"},
    {"x-mac-cyrillic", "MacCyrillic"},
    {"x-mac-greek", "MacGreek"},
    {"x-mac-turkish", "MacTurkish"},
};

// What writers of the first mostly mean or produce, or a superset that reads it.
std::map<std::string_view, char const *> const compat_names = {
    {"EUC-KR", "windows-949"},
    {"GB2312", "GBK"},
    {"GBK", "GB18030"},
    {"ISO-2022-JP", "ISO-2022-JP-2"},
    {"ISO-8859-1", "windows-1252"},
    {"ISO-8859-8", "windows-1255"},
    {"ISO-8859-9", "windows-1254"},
    {"US-ASCII", "windows-1252"},
    {"cp1363", "windows-949"},
    {"cp874", "windows-874"},
    {"cp949", "windows-949"},
    {"cp949c", "windows-949"},
    {"cp950", "windows-950"},
    {"cp964", "EUC-TW"},
    {"x-iso-8859-11", "windows-874"},
};

// Names of converters that Java knows and ICU lists under no standard, the standard name first.
std::map<std::string_view, names> const unlisted_names = {{"euc-tw-2014", {"EUC-TW", "x-EUC-TW"}}};

// Encodings whose names appear in POSIX locale names without punctuation and in lower case: ja_JP.eucjp.
std::vector<std::string_view> const posix_families = {"Big5-", "EUC-", "ISO-8859-", "KOI8-", "TIS-", "UTF-"};

std::string lower_case(std::string text) {
    std::ranges::transform(text, text.begin(), [](unsigned char c) { return std::tolower(c); });
    return text;
}

std::string opened_by(std::string const & name) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<UConverter, decltype(&ucnv_close)> const cnv(ucnv_open(name.c_str(), &status),
                                                                 &ucnv_close);
    if (U_FAILURE(status)) {
        return {};
    }
    char const * const opened = ucnv_getName(cnv.get(), &status);
    return U_FAILURE(status) ? std::string() : std::string(opened);
}

names names_under(std::string const & canonical, char const * standard) {
    names result;
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<UEnumeration, decltype(&uenum_close)> const list(
        ucnv_openStandardNames(canonical.c_str(), standard, &status), &uenum_close);
    if (U_FAILURE(status) || !list) {
        return result;
    }
    while (char const * const name = uenum_next(list.get(), nullptr, &status)) {
        result.emplace_back(name);
    }
    return result;
}

// ICU lists some names under several converters; a name counts for the one that it opens.
std::string standard_name(std::string const & canonical) {
    for (char const * standard : {"MIME", "IANA", "WINDOWS", "JAVA"}) {
        names const candidates = names_under(canonical, standard);
        if (!candidates.empty() && opened_by(candidates.front()) == canonical) {
            return candidates.front();
        }
    }
    auto const unlisted = unlisted_names.find(canonical);
    return unlisted == unlisted_names.end() ? std::string() : unlisted->second.front();
}

std::string java_name(std::string const & name, std::string const & canonical) {
    if (auto const known = java_names.find(name); known != java_names.end()) {
        return known->second;
    }
    names const candidates = names_under(canonical, "JAVA");
    for (std::string const & candidate : candidates) {
        if (candidate.size() > 2 && lower_case(candidate).starts_with("cp") && std::isdigit(candidate[2])) {
            return "Cp" + candidate.substr(2);
        }
    }
    return candidates.empty() ? std::string() : candidates.front();
}

std::string posix_spelling(std::string const & name) {
    if (std::ranges::none_of(posix_families, [&](auto family) { return name.starts_with(family); })) {
        return name;
    }
    std::string result = lower_case(name);
    std::erase_if(result, [](unsigned char c) { return !std::isalnum(c); });
    return result;
}

encoding describe(std::string const & name, std::string const & canonical, std::set<std::string> & used) {
    encoding result{.jvm_name = java_name(name, canonical), .compat = {}, .aliases = {}};
    if (auto const known = compat_names.find(name); known != compat_names.end()) {
        result.compat = known->second;
    }
    names candidates = {name, result.jvm_name};
    for (char const * standard : {"IANA", "MIME", "WINDOWS", "JAVA"}) {
        std::ranges::copy(names_under(canonical, standard), std::back_inserter(candidates));
    }
    if (auto const unlisted = unlisted_names.find(canonical); unlisted != unlisted_names.end()) {
        std::ranges::copy(unlisted->second, std::back_inserter(candidates));
    }
    for (std::string const & candidate : candidates) {
        for (std::string const & alias : {candidate, posix_spelling(candidate)}) {
            if (opened_by(alias) == canonical && used.insert(lower_case(alias)).second) {
                result.aliases.push_back(alias);
            }
        }
    }
    std::ranges::sort(result.aliases);
    return result;
}

std::string quoted(std::string const & text, std::size_t width = 0) {
    std::string result = '"' + text + "\",";
    result.resize(std::max(result.size(), width), ' ');
    return result;
}

void print(std::map<std::string, encoding> const & encodings) {
    std::puts("// Written by tools/tables/encoding_tables.cpp; change that program, not this file.\n\n"
              "#include \"locale/builtin_index.hpp\"\n"
              "#include \"locale/builtin_tables.hpp\"\n\n"
              "namespace fl::i18n::lcmgmt {\n\n"
              "namespace {\n\n"
              "// clang-format off\n"
              "constexpr builtin_encoding encodings[] = {\n"
              "    // name                      Java name                compatible encoding");
    for (auto const & [name, data] : encodings) {
        std::printf("    {%s %s \"%s\"},\n", quoted(name, 28).c_str(), quoted(data.jvm_name, 24).c_str(),
                    data.compat.c_str());
    }
    std::puts("};\n\n"
              "constexpr builtin_alias aliases[] = {");
    for (auto const & [name, data] : encodings) {
        for (std::string const & alias : data.aliases) {
            std::printf("    {%s \"%s\"},\n", quoted(alias, 48).c_str(), name.c_str());
        }
    }
    std::puts("};\n"
              "// clang-format on\n\n"
              "constexpr builtin_index<builtin_encoding, std::size(encodings), ascii::same_ignoring_case>\n"
              "    encoding_index(encodings, &builtin_encoding::name);\n"
              "constexpr builtin_index<builtin_alias, std::size(aliases), ascii::same_ignoring_case>\n"
              "    alias_index(aliases, &builtin_alias::alias);\n"
              "\n"
              "} // namespace\n\n"
              "std::span<builtin_encoding const> builtin_encodings() {\n    return encodings;\n}\n\n"
              "std::span<builtin_alias const> builtin_encoding_aliases() {\n    return aliases;\n}\n"
              "\n"
              "builtin_encoding const * find_builtin_encoding(std::string_view name) {\n"
              "    return encoding_index.find(name);\n"
              "}\n"
              "\n"
              "builtin_alias const * find_builtin_encoding_alias(std::string_view alias) {\n"
              "    return alias_index.find(alias);\n"
              "}\n"
              "\n"
              "} // namespace fl::i18n::lcmgmt");
}

// A row of the tables above that names nothing is a mistake or an encoding that ICU has dropped.
bool complete(std::map<std::string, encoding> const & encodings) {
    bool good = true;
    auto const expect = [&good](bool condition, std::string_view text) {
        if (!condition) {
            std::fprintf(stderr, "no such encoding: %.*s\n", static_cast<int>(text.size()), text.data());
        }
        good = good && condition;
    };
    for (auto const & [name, java] : java_names) {
        expect(encodings.contains(std::string(name)), name);
    }
    for (auto const & [name, compat] : compat_names) {
        expect(encodings.contains(std::string(name)), name);
        std::string const opened = opened_by(compat);
        expect(!opened.empty() && opened != opened_by(std::string(name)), compat);
    }
    return good;
}

} // namespace

int main() {
    std::map<std::string, std::string> converters;
    std::set<std::string> used;
    for (int i = 0; i < ucnv_countAvailable(); ++i) {
        std::string const canonical = ucnv_getAvailableName(i);
        std::string const name = standard_name(canonical);
        if (!name.empty() && used.insert(lower_case(name)).second) {
            converters[name] = canonical;
        }
    }
    std::map<std::string, encoding> encodings;
    for (auto const & [name, canonical] : converters) {
        encodings[name] = describe(name, canonical, used);
    }
    print(encodings);
    return complete(encodings) ? 0 : 1;
}
