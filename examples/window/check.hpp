#pragma once

#include "tally_window.hpp"

/// Plays a user who tries every language, and prints what the window then shows, in UTF-8.
void check(tally_window const & window);
