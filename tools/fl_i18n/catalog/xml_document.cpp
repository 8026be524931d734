#include "tools/fl_i18n/catalog/xml_document.hpp"

#include <boost/numeric/conversion/cast.hpp>
#include <exception>
#include <expat.h>
#include <memory>
#include <new>
#include <type_traits>

namespace fl::tool::xml {

namespace {

constexpr std::string_view white_space = " \t\r\n";

/// Returns the places of a tag's attributes, by their order in the tag, which is known to be well-formed.
///
/// None when there is no tag at the place, which then holds the reference of an entity.
std::vector<attribute> scan_tag(std::string_view document, std::size_t offset) {
    std::vector<attribute> places;
    if (offset >= document.size() || document[offset] != '<') {
        return places;
    }
    std::size_t at = document.find_first_of(" \t\r\n/>", offset);
    while ((at = document.find_first_not_of(white_space, at)) != std::string_view::npos &&
           document[at] != '>' && document[at] != '/') {
        attribute place;
        place.name_offset = at;
        std::size_t const quote = document.find_first_of("\"'", at);
        place.value_offset = quote + 1;
        places.push_back(place);
        at = document.find(document[quote], quote + 1) + 1;
    }
    return places;
}

struct parser_closer {
    void operator()(XML_Parser parser) const noexcept { XML_ParserFree(parser); }
};
using parser_handle = std::unique_ptr<std::remove_pointer_t<XML_Parser>, parser_closer>;

/// What Expat's callbacks share; an exception must not cross its frames.
class reading {
public:
    reading(XML_Parser parser, std::string const & document, events & sink)
        : parser_(parser)
        , document_(document)
        , sink_(sink) {
        XML_SetUserData(parser, this);
        XML_SetElementHandler(parser, start, end);
        XML_SetCharacterDataHandler(parser, text);
        XML_SetCommentHandler(parser, comment);
        XML_SetProcessingInstructionHandler(parser, instruction);
        XML_SetSkippedEntityHandler(parser, skipped);
    }

    std::optional<fault> run() {
        auto const size = boost::numeric_cast<int>(document_.size());
        auto const status = XML_Parse(parser_, document_.data(), size, true);
        if (failure_) {
            std::rethrow_exception(failure_);
        }
        if (status == XML_STATUS_OK) {
            return std::nullopt;
        }
        return fault{XML_ErrorString(XML_GetErrorCode(parser_)), offset()};
    }

private:
    std::size_t offset() const { return static_cast<std::size_t>(XML_GetCurrentByteIndex(parser_)); }

    template <class Event>
    static void deliver(void * user_data, Event event) {
        auto & self = *static_cast<reading *>(user_data);
        if (self.failure_) {
            return;
        }
        try {
            event(self);
        } catch (...) {
            self.failure_ = std::current_exception();
            XML_StopParser(self.parser_, XML_FALSE);
        }
    }

    static void XMLCALL start(void * user_data, char const * name, char const ** values) {
        deliver(user_data, [=](reading & self) { self.on_start(name, values); });
    }
    static void XMLCALL end(void * user_data, char const * name) {
        deliver(user_data, [=](reading & self) { self.on_end(name); });
    }
    static void XMLCALL text(void * user_data, char const * text, int length) {
        deliver(user_data, [=](reading & self) {
            std::string_view const piece(text, static_cast<std::size_t>(length));
            self.sink_.on_text(piece, self.offset(),
                               self.document_.compare(self.offset(), piece.size(), piece) == 0);
        });
    }
    static void XMLCALL comment(void * user_data, char const * text) {
        deliver(user_data, [=](reading & self) { self.sink_.on_comment(text, self.offset()); });
    }
    static void XMLCALL skipped(void * user_data, char const * name, int is_parameter) {
        if (is_parameter == 0) {
            deliver(user_data, [=](reading & self) { self.sink_.on_skipped(name, self.offset()); });
        }
    }
    static void XMLCALL instruction(void * user_data, char const * target, char const * data) {
        deliver(user_data, [=](reading & self) { self.sink_.on_instruction(target, data, self.offset()); });
    }

    void on_start(char const * name, char const ** values) {
        // Attributes that the tag does not have come after those that it has: a declaration gives them.
        auto attributes = scan_tag(document_, offset());
        for (std::size_t i = 0; values[2 * i] != nullptr; ++i) {
            if (i == attributes.size()) {
                attributes.push_back({{}, {}, offset(), offset()});
            }
            attributes[i].name = values[2 * i];
            attributes[i].value = values[2 * i + 1];
        }
        std::size_t const end = offset() + static_cast<std::size_t>(XML_GetCurrentByteCount(parser_));
        bool const is_empty = end <= document_.size() && end > offset() + 2 && document_[end - 2] == '/';
        empty_element_ = is_empty ? std::optional(offset()) : std::nullopt;
        sink_.on_start(name, attributes, offset());
    }

    void on_end(char const * name) {
        // Expat gives what follows an empty element as the place of its end.
        sink_.on_end(name, empty_element_.value_or(offset()));
        empty_element_.reset();
    }

    XML_Parser parser_;
    std::optional<std::size_t> empty_element_; // the place of the last tag, when it ends its element too
    std::string const & document_;
    events & sink_;
    std::exception_ptr failure_;
};

} // namespace

std::optional<fault> read(std::string const & document, events & sink, bool forced_utf8) {
    parser_handle const parser(XML_ParserCreate(forced_utf8 ? "UTF-8" : nullptr));
    if (!parser) {
        throw std::bad_alloc();
    }
    return reading(parser.get(), document, sink).run();
}

attribute const * find(std::vector<attribute> const & attributes, std::string_view name) {
    for (attribute const & each : attributes) {
        if (each.name == name) {
            return &each;
        }
    }
    return nullptr;
}

std::string escape(std::string_view text) {
    std::string result;
    for (char const c : text) {
        switch (c) {
        case '&':
            result += "&amp;";
            break;
        case '<':
            result += "&lt;";
            break;
        case '>':
            result += "&gt;";
            break;
        case '"':
            result += "&quot;";
            break;
        case '\n':
            result += "&#10;";
            break;
        case '\r':
            result += "&#13;";
            break;
        case '\t':
            result += "&#9;";
            break;
        default:
            result += c;
        }
    }
    return result;
}

} // namespace fl::tool::xml
