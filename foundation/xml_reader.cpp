#include "foundation/xml_reader.hpp"

#include <array>
#include <boost/numeric/conversion/cast.hpp>
#include <boost/throw_exception.hpp>
#include <exception>
#include <fl/i18n/limits.hpp>
#include <memory>
#include <new>
#include <type_traits>

// Without it the header of Expat hides the protection against entities that grow, which the library has.
#define XML_DTD 1
#include <expat.h>

namespace fl::xml {

namespace {

namespace limits = i18n::limits;

struct parser_closer {
    void operator()(XML_Parser parser) const noexcept { XML_ParserFree(parser); }
};
using parser_handle = std::unique_ptr<std::remove_pointer_t<XML_Parser>, parser_closer>;

/// What Expat's callbacks share; an exception must not cross its frames.
struct parse_state {
    XML_Parser parser;
    event_sink & sink;
    std::exception_ptr failure;
    bool stopped = false;
    std::size_t depth = 0; ///< of elements inside each other

    template <class Event>
    static void deliver(void * user_data, Event event) {
        auto & self = *static_cast<parse_state *>(user_data);
        // Expat still reports the end of an empty element at whose start it was stopped.
        if (self.stopped) {
            return;
        }
        try {
            self.stopped = !event(self.sink);
        } catch (...) {
            self.failure = std::current_exception();
            self.stopped = true;
        }
        if (self.stopped) {
            XML_StopParser(self.parser, XML_FALSE);
        }
    }
};

void XMLCALL declaration(void * user_data, char const * version, char const * encoding, int) {
    // Expat reports the text declarations of external entities here too, which have no version.
    if (version != nullptr) {
        parse_state::deliver(user_data,
                             [=](event_sink & sink) { return sink.on_declaration(version, encoding); });
    }
}

void XMLCALL start_element(void * user_data, char const * name, char const ** attributes) {
    auto & state = *static_cast<parse_state *>(user_data);
    bool const is_too_much =
        ++state.depth > limits::deepest_element ||
        static_cast<std::size_t>(XML_GetCurrentByteCount(state.parser)) > limits::longest_tag;
    parse_state::deliver(user_data, [=](event_sink & sink) {
        return !is_too_much && sink.on_start_element(name, attributes);
    });
}

void XMLCALL end_element(void * user_data, char const * name) {
    --static_cast<parse_state *>(user_data)->depth;
    parse_state::deliver(user_data, [=](event_sink & sink) { return sink.on_end_element(name); });
}

void XMLCALL character_data(void * user_data, char const * text, int length) {
    parse_state::deliver(user_data, [=](event_sink & sink) {
        return sink.on_character_data({text, static_cast<std::size_t>(length)});
    });
}

/// Throws `std::bad_alloc` where the document is not to blame.
read_result malformed(XML_Parser parser, XML_Error error) {
    if (error == XML_ERROR_NO_MEMORY) {
        boost::throw_exception(std::bad_alloc());
    }
    return {read_status::malformed, static_cast<int>(error), XML_GetCurrentLineNumber(parser),
            XML_GetCurrentColumnNumber(parser)};
}

} // namespace

char const * find_attribute(char const ** attributes, std::string_view name) {
    char const * value = nullptr;
    for (; *attributes != nullptr && (value == nullptr || *value == '\0'); attributes += 2) {
        if (*attributes == name) {
            value = attributes[1];
        }
    }
    return value;
}

read_result read_document(block_source const & source, char const * forced_encoding, event_sink & sink) {
    parser_handle const parser(XML_ParserCreate(forced_encoding));
    if (!parser) {
        return {read_status::no_parser};
    }
    XML_SetBillionLaughsAttackProtectionActivationThreshold(parser.get(), limits::free_entity_bytes);
    parse_state state{parser.get(), sink, nullptr};
    XML_SetUserData(parser.get(), &state);
    XML_SetXmlDeclHandler(parser.get(), declaration);
    XML_SetElementHandler(parser.get(), start_element, end_element);
    XML_SetCharacterDataHandler(parser.get(), character_data);

    std::size_t bytes_read = 0;
    for (bool last = false; !last;) {
        std::optional<block> const next = source();
        if (!next) {
            return {read_status::read_failed};
        }
        last = next->is_last;
        auto const status =
            XML_Parse(parser.get(), next->bytes.data(), boost::numeric_cast<int>(next->bytes.size()), last);
        if (state.failure) {
            std::rethrow_exception(state.failure);
        }
        if (status != XML_STATUS_OK) {
            return malformed(parser.get(), XML_GetErrorCode(parser.get()));
        }
        bytes_read += next->bytes.size();
        if (bytes_read > limits::longest_file) {
            return malformed(parser.get(), XML_ERROR_ABORTED);
        }
    }
    return {};
}

block_source blocks_of(std::FILE * file) {
    return [file, bytes = std::array<char, 1024>()]() mutable -> std::optional<block> {
        std::size_t const length = std::fread(bytes.data(), 1, bytes.size(), file);
        if (std::ferror(file)) {
            return std::nullopt;
        }
        return block{{bytes.data(), length}, length < bytes.size()};
    };
}

} // namespace fl::xml
