#include "tools/fl_i18n/command.hpp"
#include "tools/fl_i18n/exchange/xliff_file.hpp"
#include "tools/fl_i18n/exchange/xliff_text.hpp"

#include <fl/i18n/ustring.hpp>
#include <set>
#include <utility>

namespace fl::tool {

namespace {

constexpr std::string_view namespace_beginning = "urn:oasis:names:tc:xliff:document:";

std::string_view without_prefix(std::string_view name) {
    return name.substr(name.find(':') + 1);
}

std::string value_of(attributes const & all, std::string_view name) {
    auto const * const found = xml::find(all, name);
    return found != nullptr ? found->value : std::string();
}

class xliff_reader final : public xml::events {
public:
    xliff_reader(std::string const & name, std::string const & document)
        : name_(name)
        , document_(document) {}

    xliff_file take() { return std::move(result_); }

    void on_start(std::string_view full_name, attributes const & all, std::size_t offset) override {
        std::string_view const name = without_prefix(full_name);
        std::string const parent = open_.empty() ? std::string() : open_.back();
        open_.emplace_back(name);
        if (other_ != 0) {
            return;
        }
        if (text_) {
            text_->begin_element(name, all, original_data_);
        } else if (parent.empty()) {
            prefix_ = full_name.substr(0, full_name.size() - name.size());
            start_document(name, all, offset);
        } else if (is_of_others(full_name, name)) {
            leave_out(full_name);
        } else if (is_text(parent, name)) {
            text_.emplace(name == "target" ? source_codes_ : xliff_codes());
            element_ = open_.size();
            start_text(parent, name, all, offset);
        } else if (name == "file") {
            start_file(all);
        } else if (name == "trans-unit" || name == "unit") {
            start_unit(all, offset);
        } else if (name == "segment") {
            start_segment(all, offset);
        } else if (!is_container(parent, name)) {
            leave_out(full_name);
        }
    }

    void on_end(std::string_view full_name, std::size_t offset) override {
        std::string_view const name = without_prefix(full_name);
        if (other_ != 0) {
            end_other(name, offset);
        } else if (text_ && open_.size() == element_) {
            end_text(name, offset);
            text_.reset();
        } else if (text_) {
            text_->end_element();
        } else if (name == "trans-unit" || name == "segment") {
            finish_unit(offset);
        } else if (name == "unit") {
            hand_out(offset);
        }
        open_.pop_back();
    }

    void on_text(std::string_view text, std::size_t, bool) override {
        if (text_) {
            text_->append(text);
        }
    }

private:
    [[noreturn]] void fail(std::size_t offset, std::string const & what) const {
        fail_at(name_, document_, offset, what);
    }

    void leave_out(std::string_view full_name) {
        other_ = open_.size();
        ++result_.other_elements[std::string(full_name)];
    }

    /// Tells whether an element is of another namespace and none of an export.
    bool is_of_others(std::string_view full_name, std::string_view name) const {
        return full_name.substr(0, full_name.size() - name.size()) != prefix_ && name != "catalog" &&
               name != "entry";
    }

    static bool is_container(std::string_view parent, std::string_view name) {
        static std::set<std::string_view> const names = {"header", "body", "group", "notes", "originalData"};
        return names.count(name) != 0 &&
               (parent == "file" || parent == "body" || parent == "group" || parent == "unit");
    }

    /// Tells whether an element's text is read: those of the same names elsewhere are proposals and the like.
    static bool is_text(std::string_view parent, std::string_view name) {
        static std::set<std::pair<std::string_view, std::string_view>> const known = {
            {"trans-unit", "source"}, {"trans-unit", "target"}, {"trans-unit", "note"},
            {"trans-unit", "entry"},  {"segment", "source"},    {"segment", "target"},
            {"notes", "note"},        {"unit", "entry"},        {"originalData", "data"},
            {"header", "catalog"},    {"file", "catalog"}};
        return known.count({parent, name}) != 0;
    }

    void end_other(std::string_view name, std::size_t offset) {
        if (other_ == open_.size()) {
            other_ = 0;
            if (name == "seg-source") {
                // The target comes after it.
                segment_.target_begin = segment_.target_end = end_of_tag(document_, offset);
            }
        }
    }

    void start_document(std::string_view name, attributes const & all, std::size_t offset) {
        std::string const version = value_of(all, "version");
        bool known = name == "xliff";
        bool named = false;
        for (xml::attribute const & each : all) {
            named = named || each.value == std::string(namespace_beginning).append(version);
        }
        known = known && named && (version == "1.2" || version == "2.0");
        if (!known) {
            fail(offset, "the root element is not \"xliff\" of version 1.2 or 2.0 in its namespace");
        }
        result_.version = version == "1.2" ? 1 : 2;
        result_.target_language = value_of(all, "trgLang");
    }

    void start_file(attributes const & all) {
        original_ = value_of(all, "original");
        if (result_.version == 1) {
            result_.target_language = value_of(all, "target-language");
        }
    }

    void start_unit(attributes const & all, std::size_t offset) {
        unit_ = {};
        unit_.original = original_;
        unit_.id = value_of(all, "id");
        unit_.name = value_of(all, result_.version == 1 ? "resname" : "name");
        unit_.offset = offset;
        segment_ = unit_;
        segments_.clear();
        original_data_.clear();
        has_source_ = false;
    }

    void start_segment(attributes const & all, std::size_t offset) {
        segment_ = {};
        segment_.offset = offset;
        segment_.state = value_of(all, "state");
        has_source_ = false;
    }

    void start_text(std::string_view parent, std::string_view name, attributes const & all,
                    std::size_t offset) {
        keeps_note_ = value_of(all, parent == "notes" ? "category" : "from") != "source";
        data_id_ = value_of(all, "id");
        if (name == "target") {
            segment_.target_begin = offset;
            if (result_.version == 1) {
                segment_.state = value_of(all, "state");
            }
        }
    }

    void end_text(std::string_view name, std::size_t offset) {
        if (name == "source") {
            segment_.source = text_->text();
            source_codes_ = text_->codes();
            has_source_ = true;
            segment_.target_begin = segment_.target_end = end_of_tag(document_, offset);
        } else if (name == "target") {
            segment_.target = text_->text();
            segment_.target_has_codes = text_->has_codes();
            segment_.unknown_code = text_->unknown();
            segment_.target_end = end_of_tag(document_, offset);
        } else if (name == "catalog") {
            result_.catalog_lines = i18n::ustring_to_utf8(text_->text());
        } else {
            std::string const text = i18n::ustring_to_utf8(text_->text());
            if (name == "data") {
                original_data_[data_id_] = text;
            } else if (name == "entry") {
                unit_.tag = text;
            } else if (keeps_note_) {
                unit_.notes.push_back(text);
            }
        }
    }

    /// Finishes a segment; in 1.2 a unit is one.
    void finish_unit(std::size_t offset) {
        if (!has_source_) {
            fail(offset, "a unit without source");
        }
        segments_.push_back(segment_);
        if (result_.version == 1) {
            hand_out(offset);
        }
    }

    /// Hands a unit out, with what its segments share.
    void hand_out(std::size_t offset) {
        if (segments_.empty()) {
            fail(offset, "a unit without segment");
        }
        for (xliff_unit & each : segments_) {
            each.original = unit_.original;
            each.id = unit_.id;
            each.name = unit_.name;
            each.notes = unit_.notes;
            each.tag = unit_.tag;
            each.segments = segments_.size();
            if (segments_.size() > 1) {
                std::string const number = "_" + std::to_string(&each - segments_.data());
                each.id += number;
                each.name += each.name.empty() ? "" : number;
            }
            result_.units.push_back(each);
        }
    }

    std::string const & name_;
    std::string const & document_;
    xliff_file result_;
    std::string prefix_; // of the elements of XLIFF, with its colon
    std::vector<std::string> open_;
    std::optional<xliff_text> text_; // of the element open_[element_ - 1]
    std::size_t element_ = 0;
    std::size_t other_ = 0; // the depth of an element that is not read, with all in it; 0 outside
    std::string original_;
    xliff_unit unit_;
    xliff_unit segment_;
    std::vector<xliff_unit> segments_;
    bool has_source_ = false;
    xliff_codes source_codes_;
    bool keeps_note_ = false;
    std::string data_id_;
    std::map<std::string, std::string> original_data_;
};

/// Reads one element alone.
class element_reader final : public xml::events {
public:
    void on_start(std::string_view name, attributes const & all, std::size_t) override {
        if (depth_++ > 0) {
            text.begin_element(without_prefix(name), all, {});
        }
    }
    void on_end(std::string_view, std::size_t) override {
        if (--depth_ > 0) {
            text.end_element();
        }
    }
    void on_text(std::string_view content, std::size_t, bool) override { text.append(content); }

    xliff_text text;

private:
    int depth_ = 0;
};

} // namespace

bool is_unfinished(std::string_view state) {
    return state == "new" || state == "initial" || state.starts_with("needs-");
}

std::optional<i18n::ustring> xliff_unit::translation() const {
    bool const waits = target && target->empty() && !source.empty() && (state.empty() || needs_work());
    return waits ? std::nullopt : target;
}

xliff_file read_xliff(std::string const & name, std::string const & document, bool decoded) {
    xliff_reader reader(name, document);
    if (auto const malformed = xml::read(document, reader, decoded)) {
        fail_at(name, document, malformed->offset, malformed->text);
    }
    return reader.take();
}

std::size_t end_of_tag(std::string const & document, std::size_t offset) {
    char quote = 0;
    for (; offset < document.size() && (quote != 0 || document[offset] != '>'); ++offset) {
        char const c = document[offset];
        if (quote == 0 ? c == '"' || c == '\'' : c == quote) {
            quote = quote == 0 ? c : '\0';
        }
    }
    return offset + 1;
}

i18n::ustring read_target(std::string const & element, bool & has_codes) {
    element_reader reader;
    xml::read(element, reader, true);
    has_codes = reader.text.has_codes();
    return reader.text.text();
}

} // namespace fl::tool
