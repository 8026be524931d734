#pragma once

#include <string>

/// The distribution's Boost.Locale, in a library of its own: its headers are those of another Boost.
namespace fl::bench::boost_locale {

#define FL_I18N_BENCH_PEER __attribute__((visibility("default")))

/// Returns the text of a key as UTF-8. `directory` holds LANGUAGE/LC_MESSAGES/DOMAIN.mo; that of the first
/// call counts, as do its domain and locale.
class FL_I18N_BENCH_PEER texts {
public:
    texts(char const * directory, char const * domain, char const * locale);
    ~texts();
    texts(texts const &) = delete;
    texts & operator=(texts const &) = delete;

    std::string find(char const * key) const;

private:
    struct state;
    state * state_;
};

/// Converts between an encoding and UTF-8.
FL_I18N_BENCH_PEER std::string to_utf8(std::string const & text, std::string const & encoding);
FL_I18N_BENCH_PEER std::string from_utf8(std::string const & text, std::string const & encoding);

/// Converts between UTF-8 and UTF-16.
FL_I18N_BENCH_PEER std::u16string utf8_to_utf16(std::string const & text);
FL_I18N_BENCH_PEER std::string utf16_to_utf8(std::u16string const & text);

/// Maps a text to upper case as in English.
FL_I18N_BENCH_PEER std::wstring to_upper(std::wstring const & text);

#undef FL_I18N_BENCH_PEER

} // namespace fl::bench::boost_locale
