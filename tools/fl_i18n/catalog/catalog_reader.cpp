#include "tools/fl_i18n/catalog/catalog.hpp"

#include "tools/fl_i18n/command.hpp"
#include "tools/fl_i18n/files.hpp"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace fl::tool {

namespace {

class catalog_reader final : public xml::events {
public:
    explicit catalog_reader(std::vector<catalog_fault> & faults)
        : faults_(faults) {}

    catalog take() {
        result_.tail_comments = std::move(comments_);
        return std::move(result_);
    }

    void on_start(std::string_view name, std::vector<xml::attribute> const & attributes,
                  std::size_t offset) override {
        if (name == "rsccat") {
            start_catalog(attributes, offset);
        } else if (name == "message") {
            start_messages(offset);
        } else if (name == "entry") {
            start_entry(attributes, offset);
        } else {
            refuse(offset, "unknown element \"" + std::string(name) + "\"", "unknown-element");
        }
        open_.emplace_back(name);
    }

    void on_end(std::string_view name, std::size_t offset) override {
        open_.pop_back();
        if (name == "entry" && in_entry_) {
            end_entry(offset);
        }
        result_.end_offset = offset;
    }

    void on_text(std::string_view text, std::size_t offset, bool literal) override {
        if (in_entry_) {
            text_.append(text, offset, literal);
            return;
        }
        std::size_t const first = text.find_first_not_of(" \t\r\n");
        if (first != std::string_view::npos) {
            faults_.push_back(
                {literal ? offset + first : offset, false, "text outside an entry is ignored", "stray-text"});
        }
    }

    void on_skipped(std::string_view entity, std::size_t offset) override {
        faults_.push_back(
            {offset, false,
             "the entity \"" + std::string(entity) + "\" is not defined in the file and left out",
             "unknown-entity"});
    }

    void on_comment(std::string_view text, std::size_t) override {
        if (!in_entry_) {
            (open_.empty() && state_ == state::before_root ? result_.head_comments : comments_)
                .emplace_back(text);
        }
    }

    void on_instruction(std::string_view target, std::string_view data, std::size_t) override {
        result_.instructions.push_back(std::string(target) + " " + std::string(data));
    }

private:
    enum class state { before_root, in_catalog, in_messages, in_entries };

    void refuse(std::size_t offset, std::string text, std::string rule) {
        faults_.push_back({offset, true, std::move(text), std::move(rule)});
    }

    void start_catalog(std::vector<xml::attribute> const & attributes, std::size_t offset) {
        if (state_ != state::before_root) {
            refuse(offset, "\"rsccat\" inside the catalog: it is the root element alone",
                   "misplaced-element");
            return;
        }
        state_ = state::in_catalog;
        result_.attributes = attributes;
        result_.offset = offset;
    }

    void start_messages(std::size_t offset) {
        if (state_ == state::in_catalog) {
            state_ = state::in_messages;
        } else {
            refuse(offset,
                   state_ == state::before_root ? "\"message\" outside \"rsccat\""
                                                : "a second \"message\": a catalog has one",
                   "misplaced-element");
        }
    }

    void start_entry(std::vector<xml::attribute> const & attributes, std::size_t offset) {
        if (in_entry_) {
            refuse(offset, "\"entry\" inside an entry", "misplaced-element");
        } else if (state_ == state::before_root || state_ == state::in_catalog) {
            refuse(offset, "\"entry\" outside \"message\"", "misplaced-element");
        } else if (open_.back() != "message") {
            faults_.push_back({offset, false, "\"entry\" outside \"message\"", "misplaced-element"});
        }
        if (state_ == state::in_messages) {
            state_ = state::in_entries;
        }
        in_entry_ = true;
        std::optional<std::size_t> ignored;
        text_.finish(0, ignored);
        entry_ = {};
        entry_.offset = entry_.key_offset = offset;
        entry_.comments = std::exchange(comments_, {});
        for (xml::attribute const & attribute : attributes) {
            if (attribute.name == "key") {
                entry_.key = attribute.value;
                entry_.key_offset = attribute.value_offset;
            } else {
                entry_.attributes.push_back(attribute);
            }
        }
        if (entry_.key.empty()) {
            refuse(entry_.key_offset, entry_.key_offset == offset ? "an entry without key" : "an empty key",
                   "missing-key");
        }
    }

    void end_entry(std::size_t offset) {
        in_entry_ = false;
        std::optional<std::size_t> bad_escape;
        entry_.text = text_.finish(offset, bad_escape);
        if (bad_escape) {
            faults_.push_back(
                {*bad_escape, false,
                 "a malformed escape: it makes the whole text empty; a backslash is written \"\\\\\"",
                 "bad-escape"});
        }
        result_.entries.push_back(std::move(entry_));
    }

    std::vector<catalog_fault> & faults_;
    catalog result_;
    state state_ = state::before_root;
    std::vector<std::string> open_;
    bool in_entry_ = false;
    catalog_entry entry_;
    text_builder text_;
    std::vector<std::string> comments_;
};

} // namespace

std::string catalog::attribute(std::string_view name) const {
    auto const * const found = xml::find(attributes, name);
    return found != nullptr ? found->value : std::string();
}

bool is_translatable(catalog_entry const & entry) {
    auto const * const given = xml::find(entry.attributes, "translate");
    return given == nullptr || given->value != "no";
}

catalog read_catalog(source_text const & source, bool forced_utf8, std::vector<catalog_fault> & faults) {
    catalog_reader reader(faults);
    if (auto const malformed = xml::read(source.bytes(), reader, forced_utf8)) {
        faults.push_back({malformed->offset, true, malformed->text, "xml"});
    }
    return reader.take();
}

catalog read_good_catalog(std::string const & file) {
    try {
        bool decoded = false;
        source_text const source(decode_xml(read_file(file), decoded));
        std::vector<catalog_fault> faults;
        catalog result = read_catalog(source, decoded, faults);
        auto const refused = std::find_if(faults.begin(), faults.end(),
                                          [](catalog_fault const & each) { return each.refused; });
        if (refused != faults.end()) {
            position const at = source.position_of(refused->offset);
            throw command_failure(exit_input_output, file + ":" + std::to_string(at.line) + ":" +
                                                         std::to_string(at.column) + ": " + refused->text);
        }
        return result;
    } catch (command_failure const &) {
        throw;
    } catch (std::runtime_error const & failure) {
        throw command_failure(exit_input_output, file + ": " + failure.what());
    }
}

} // namespace fl::tool
