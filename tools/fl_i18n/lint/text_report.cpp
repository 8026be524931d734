#include "tools/fl_i18n/lint/report.hpp"

#include <utility>

namespace fl::tool::lint {

namespace {

class text_report final : public report {
public:
    explicit text_report(output out)
        : out_(std::move(out)) {}

    void add(std::string const & file, finding const & found) override {
        out_(file + ":" + std::to_string(found.begin.line) + ":" + std::to_string(found.begin.column) + ": " +
             std::string(to_string(found.level)) + ": " + found.text + " [" +
             std::string(found.broken->name) + "]\n");
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
