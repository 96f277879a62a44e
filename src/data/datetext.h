#pragma once

#include <string>

/// Today's date in the order and with the symbol that the user chose, "21-11-2026", and the time of day
/// behind it where that is shown. Empty without a platform.
std::string datetext();

/// A date in the form of ISO 8601, "2026-11-21", in the user's order and symbol; a text of another form as it
/// is.
std::string dateshown(const std::string& iso);
