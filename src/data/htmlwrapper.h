#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The HTML page that may stand around the lines of a data file, so that a mail program or a browser shows
/// them. Every line of the file is one paragraph of the page.

/// A page that has lost its carriage returns on the way, with them put back: told. Nothing for any other
/// text, and for one longer than the 90,000 characters that are worth a rewrite: its lines are read as they
/// are.
std::optional<std::string> restoredlines(std::string_view text);

/// Takes the rest of the head off the input, which stands behind the "<HTML>" line. False when the page was
/// not written by this program.
bool skipwrapperhead();

/// Writes the head, or the tail, of the page.
void wrapperhead();
void wrappertail();
