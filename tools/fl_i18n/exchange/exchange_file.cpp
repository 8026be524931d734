#include "tools/fl_i18n/exchange/exchange_file.hpp"

#include "tools/fl_i18n/exchange/po_catalog.hpp"
#include "tools/fl_i18n/exchange/xliff_catalog.hpp"

#include <utility>

namespace fl::tool {

namespace {

/// Tells whether the bytes of a file are those of an XML document: no PO file begins so.
bool is_xml(std::string_view bytes) {
    if (bytes.starts_with("\xFE\xFF") || bytes.starts_with("\xFF\xFE")) {
        return true;
    }
    std::size_t const first = bytes.find_first_not_of("\xEF\xBB\xBF \t\r\n");
    return first != std::string_view::npos && bytes[first] == '<';
}

} // namespace

catalog import_file(std::string const & file, std::string bytes, std::optional<std::string> const & locale,
                    std::vector<std::string> & left_out) {
    if (is_xml(bytes)) {
        bool decoded = false;
        std::string const document = decode_xliff(file, std::move(bytes), decoded);
        return catalog_from_xliff(read_xliff(file, document, decoded), locale, file, document, left_out);
    }
    std::string encoding;
    std::string const text = decode_po(file, std::move(bytes), encoding);
    return catalog_from_po(read_po(file, text, encoding), locale, file, text, left_out);
}

bool is_foreign(catalog const & contents, exchange_format format) {
    return format == exchange_format::po
               ? is_foreign_po(contents)
               : is_foreign_xliff(contents, format == exchange_format::xliff1 ? 1 : 2);
}

std::string export_file(catalog const & contents, export_settings const & settings, exchange_format format,
                        std::string const & name) {
    if (format == exchange_format::po) {
        return write_po(po_from_catalog(contents, settings));
    }
    return xliff_from_catalog(contents, settings, format == exchange_format::xliff1 ? 1 : 2, name);
}

} // namespace fl::tool
