#pragma once

#include <string>

/// What the import of text keeps from one text to the next.
struct ImportState {
    std::string importFormat; ///< last choice of the format menu: its letter, and the digit of a variant
    std::string formatWanted; ///< a format that is settled beforehand: the menu is not shown; empty for none
    std::string
        decimalWanted; ///< "," or ".": the decimal symbol of texts, settled beforehand; empty for none
};
