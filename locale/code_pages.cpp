#include "locale/code_pages.hpp"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace fl::i18n::lcmgmt {

namespace {

struct code_page_row {
    unsigned code_page;
    std::string_view encoding;
};

// The code pages whose encoding is not named after their number.
// clang-format off
constexpr code_page_row rows[] = {
    {720,   "windows-720"},
    {1200,  "UTF-16LE"},
    {1201,  "UTF-16BE"},
    {10000, "macintosh"},
    {10006, "x-mac-greek"},
    {10007, "x-mac-cyrillic"},
    {10029, "x-mac-centraleurroman"},
    {10081, "x-mac-turkish"},
    {12000, "UTF-32LE"},
    {12001, "UTF-32BE"},
    {20127, "US-ASCII"},
    {20866, "KOI8-R"},
    {20932, "EUC-JP"},
    {21866, "KOI8-U"},
    {28591, "ISO-8859-1"},
    {28592, "ISO-8859-2"},
    {28593, "ISO-8859-3"},
    {28594, "ISO-8859-4"},
    {28595, "ISO-8859-5"},
    {28596, "ISO-8859-6"},
    {28597, "ISO-8859-7"},
    {28598, "ISO-8859-8"},
    {28599, "ISO-8859-9"},
    {28603, "ISO-8859-13"},
    {28605, "ISO-8859-15"},
    {38598, "ISO-8859-8"},
    {50220, "ISO-2022-JP"},
    {50221, "ISO-2022-JP"},
    {50222, "ISO-2022-JP"},
    {50225, "ISO-2022-KR"},
    {51932, "EUC-JP"},
    {51936, "GB2312"},
    {51949, "EUC-KR"},
    {52936, "HZ-GB-2312"},
    {54936, "GB18030"},
    {65000, "UTF-7"},
    {65001, "UTF-8"},
};
// clang-format on

bool is_windows_page(unsigned code_page) {
    return (code_page >= 1250 && code_page <= 1258) || code_page == 874 || code_page == 932 ||
           code_page == 936 || code_page == 949 || code_page == 950;
}

} // namespace

std::string encoding_of_code_page(unsigned code_page) {
    if (code_page == 0) {
        return {};
    }
    auto const found = std::find_if(std::begin(rows), std::end(rows),
                                    [&](code_page_row const & row) { return row.code_page == code_page; });
    if (found != std::end(rows)) {
        return std::string(found->encoding);
    }
    return (is_windows_page(code_page) ? "windows-" : "cp") + std::to_string(code_page);
}

} // namespace fl::i18n::lcmgmt
