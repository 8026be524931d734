#include "locale/lcdb_parser.hpp"

#include "foundation/filesystem/open_file.hpp"
#include "foundation/utf8.hpp"
#include "locale/lc_rsc_exceptions.hpp"
#include "locale/lcdb_event_handler.hpp"

#include <boost/throw_exception.hpp>

namespace fl::i18n::lcmgmt {

namespace {

/// Hands the events of the XML reader to an `EventHandler`.
class handler_sink final : public xml::event_sink {
public:
    explicit handler_sink(EventHandler & handler)
        : handler_(handler) {}

    bool on_declaration(char const * version, char const * encoding) override {
        return handler_.xml_declaration(version, encoding) == 0;
    }
    bool on_start_element(char const * name, char const ** attributes) override {
        return handler_.start_element(name, attributes) == 0;
    }
    bool on_end_element(char const * name) override { return handler_.end_element(name) == 0; }
    bool on_character_data(std::string_view text) override {
        return handler_.character_data(text.data(), static_cast<int>(text.size())) == 0;
    }

private:
    EventHandler & handler_;
};

} // namespace

xml::read_result read_lcdata(LcData const & data, xml::block_source const & source) {
    LcdbEventHandler handler(data);
    handler_sink sink(handler);
    return xml::read_document(source, handler.expected_encoding().c_str(), sink);
}

void parse_lcdata(LcData const & data, filesystem::upath const & path) {
    platform::file_handle const file = filesystem::open_file(path);
    if (!file) {
        boost::throw_exception(LcRscOpenFileFailure(to_readable_utf8(path.string())));
    }
    xml::read_result const result = read_lcdata(data, xml::blocks_of(file.get()));
    switch (result.status) {
    case xml::read_status::complete:
        return;
    case xml::read_status::no_parser:
        boost::throw_exception(LcRscParserCreationFailure());
    case xml::read_status::read_failed:
        boost::throw_exception(LcRscFileReadFailure(to_readable_utf8(path.string())));
    case xml::read_status::malformed:
        boost::throw_exception(LcRscInvalidXmlDoc(result.error_code, result.column, result.line));
    }
}

} // namespace fl::i18n::lcmgmt
