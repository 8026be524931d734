#include "tools/fl_i18n/lint/report.hpp"

#include <utility>

namespace fl::tool::lint {

namespace {

/// Returns a text that stays in its line and does nothing to a terminal.
std::string in_one_line(std::string_view text) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    constexpr unsigned char del = 0x7F;
    std::string result;
    for (char const c : text) {
        auto const byte = static_cast<unsigned char>(c);
        if (byte < ' ' || byte == del) {
            result += {'\\', 'x', digits[byte >> 4], digits[byte & 0xF]};
        } else {
            result += c;
        }
    }
    return result;
}

class text_report final : public report {
public:
    explicit text_report(output out)
        : out_(std::move(out)) {}

    void add(std::string const & file, finding const & found) override {
        out_(in_one_line(file) + ":" + std::to_string(found.begin.line) + ":" +
             std::to_string(found.begin.column) + ": " + std::string(to_string(found.level)) + ": " +
             in_one_line(found.text) + " [" + std::string(found.broken->name) + "]\n");
    }
    void finish(totals const &) override {}

private:
    output out_;
};

} // namespace

std::unique_ptr<report> make_text_report(output out) {
    return std::make_unique<text_report>(std::move(out));
}

} // namespace fl::tool::lint
