#include "numeric/matherror.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

MathErrorTeller tellmatherror = nullptr;
int16_t errCode = 0;

namespace {

// In the order of MathError.
constexpr std::string_view texts[] = {
    "Invalid input",          "Inputs out of bounds",     "Excessive iterations",
    "Excessive iterations: ", "Array too small to solve", "Array too small",
    "Undefined Array",        "Singular Matrix",          "Singular Matrix cannot be solved",
    "Matrix Problem",         "Error in Matrix Solution", "Error: ",
    "Undetermined Error",     "Undetermined Error:  ",
};
static_assert(std::size(texts) == static_cast<std::size_t>(MathError::undeterminedOf) + 1);

} // namespace

std::string_view matherrortext(MathError number) {
    const auto index = static_cast<std::size_t>(number);
    return texts[index < std::size(texts) ? index : static_cast<std::size_t>(MathError::undetermined)];
}

void matherror(MathError number, std::string_view detail) {
    if (!tellmatherror) return;
    char text[400];
    const std::string_view first = matherrortext(number);
    const std::string_view second = detail.substr(0, sizeof text - first.size());
    std::copy(second.begin(), second.end(), std::copy(first.begin(), first.end(), text));
    tellmatherror({text, first.size() + second.size()});
}
