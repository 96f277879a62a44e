#pragma once

#include <string_view>

/// The special option file of one run. A line KEY, OPTREPL, RISK or LIBRARY opens a part; then lines of one
/// letter and a value:
///   OPTREPL  A MTBF name, B threshold name, C equations title, D font, E decimal symbol of exported text,
///            F plot title, G its second line, H X-axis title, I Y-axis title, J language file
///   RISK     A to L the usage of steps 1 to 12, M to X the production of the same
///   LIBRARY  A to Z the library titles 1 to 26
///   KEY      letters that this version gives no meaning
/// The words of a curve fit stand in any place (curvefit/curvewords.h). Lines of no part, and letters without
/// a meaning, count for nothing.
void optionfiletake(std::string_view text);

/// Reads and takes the file. False when it cannot be read.
bool optionfileread(std::string_view path);
