#pragma once

#include <fl/i18n/locale.hpp>
#include <fl/i18n/message_catalog.hpp>

#include <array>
#include <cstddef>
#include <string>
#include <vector>

/// The languages that the program has texts for, by their locales; the first is the default.
inline constexpr std::array<char const *, 4> languages = {"en_US_POSIX", "de_DE", "ja_JP", "ar"};

/// Makes the catalogs beside the program the ones to search.
void open_catalogs();

/// Returns the language in force.
std::size_t current_language();

/// Returns a text in the language in force, its holes filled; its key where the catalog has no text.
std::wstring text(std::string const & key, std::vector<fl::i18n::MessageCatalog::Argument> const & args = {});

/// Returns the name that a language has in itself.
std::wstring language_name(std::size_t language);

/// Tells whether the language in force is written from right to left.
bool is_right_to_left();
