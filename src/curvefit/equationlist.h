#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "expression/functiontext.h"

/// Saved lists of equations:
///
///   {
///   EqnsName=Pumps
///   Eqns1=00O+00O*VA 1.5 2
///   Eqns2=...
///   }
///
/// Each equation is a function in the two-letter spelling of function files, with the numbers of its "00"
/// tokens in order behind it. Lines with other keys belong to later versions and count for nothing.
struct EquationList {
    std::string name;
    std::vector<FunctionTokens> equations;
    bool operator==(const EquationList&) const = default;
};

inline constexpr std::size_t mostEquations = 100;

/// The list as text; an equation that is no function is left out, line ends in the name become blanks.
std::string equationlisttext(const EquationList& list);

/// Reads the first block of a text. Nothing when there is none, when it is not closed, or when one of its
/// equations is no function, has no numbers for its tokens or too many, stands twice, or is numbered outside
/// 1 to mostEquations.
std::optional<EquationList> equationlistof(std::string_view text);

/// The fitted curves of the session as a list, in the order of the sets.
EquationList equationsofcurves();

/// Saves the list of the fitted curves; false, and told, when there are none or the file cannot be written.
bool equationssave(const std::string& path);

/// Opens a list; nothing, and told, when it cannot be read.
std::optional<EquationList> equationsopen(const std::string& path);
