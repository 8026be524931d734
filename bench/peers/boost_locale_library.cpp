#include "bench/peers/boost_locale.hpp"

#include <boost/locale.hpp>
#include <locale>

namespace fl::bench::boost_locale {

struct texts::state {
    std::locale locale;
    std::string domain;
};

texts::texts(char const * directory, char const * domain, char const * locale) {
    boost::locale::generator generator;
    generator.add_messages_path(directory);
    generator.add_messages_domain(domain);
    state_ = new state{generator(locale), domain};
}

texts::~texts() {
    delete state_;
}

std::string texts::find(char const * key) const {
    return boost::locale::dgettext(state_->domain.c_str(), key, state_->locale);
}

std::string to_utf8(std::string const & text, std::string const & encoding) {
    return boost::locale::conv::to_utf<char>(text, encoding);
}

std::string from_utf8(std::string const & text, std::string const & encoding) {
    return boost::locale::conv::from_utf(text, encoding);
}

std::u16string utf8_to_utf16(std::string const & text) {
    return boost::locale::conv::utf_to_utf<char16_t>(text);
}

std::string utf16_to_utf8(std::u16string const & text) {
    return boost::locale::conv::utf_to_utf<char>(text);
}

std::wstring to_upper(std::wstring const & text) {
    static std::locale const english = boost::locale::generator()("en_US.UTF-8");
    return boost::locale::to_upper(text, english);
}

} // namespace fl::bench::boost_locale
