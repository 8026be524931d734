#include "catalogs/expat_event_handler.hpp"

#include "foundation/filesystem/open_file.hpp"

#include <boost/throw_exception.hpp>
#include <new>
#include <utility>

namespace fl::i18n {

namespace {

/// Hands the events of a document to a handler, which does not see the declaration.
class handler_sink final : public xml::event_sink {
public:
    explicit handler_sink(ExpatEventHandler & handler)
        : handler_(handler) {}

    bool on_declaration(char const *, char const *) override { return true; }
    bool on_start_element(char const * name, char const ** attributes) override {
        return handler_.start_element(name, attributes);
    }
    bool on_end_element(char const * name) override { return handler_.end_element(name); }
    bool on_character_data(std::string_view text) override {
        return handler_.character_data(text.data(), text.size());
    }

private:
    ExpatEventHandler & handler_;
};

} // namespace

ExpatEventHandler::ExpatEventHandler(std::string encoding)
    : encoding_(std::move(encoding)) {}

ExpatEventHandler::~ExpatEventHandler() = default;

xml::read_result parse_document(xml::block_source const & source, ExpatEventHandler & handler) {
    handler_sink sink(handler);
    return xml::read_document(source, handler.encoding(), sink);
}

bool parse_file(filesystem::upath const & path, ExpatEventHandler & handler) {
    // Opened for bytes: Expat turns line ends into line feeds itself, and text mode would harm UTF-16.
    auto const file = filesystem::open_file(path);
    if (!file) {
        return false;
    }
    auto const status = parse_document(xml::blocks_of(file.get()), handler).status;
    if (status == xml::read_status::no_parser) {
        boost::throw_exception(std::bad_alloc());
    }
    return status == xml::read_status::complete;
}

} // namespace fl::i18n
