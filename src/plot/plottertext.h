#pragma once

#include <string>
#include <string_view>

/// A UTF-8 text as a plotter can letter it: printable ASCII only. Accents fall off Latin-1 letters,
/// typographic dashes and quotes become plain, control characters go, so that no text ends its own label or
/// gives the printer a command. "?" for all else.
std::string plottertext(std::string_view text);
