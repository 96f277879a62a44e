#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "session/settingstable.h"

/// The option list of a data file, by position, and the style list.

inline constexpr std::string_view programTag = "PROGRAM_SPECIFIC";
inline constexpr int programCount = 173; ///< positions that are written
inline constexpr int fewestOptions = 56; ///< a shorter list is of a version whose options meant other things
inline constexpr float listAborted = -9.123e32f; ///< in u: the option list ended the read
inline constexpr float readAborted = -8e32f;     ///< in u: the dimensions or the data did

enum class FileKind : uint8_t { num, r4, r8, str };

/// One position of the list. A value that the conditions keep out is neither taken nor written: its default
/// stands in the file.
struct ProgramField {
    int position;
    std::string_view name; ///< of the session's field
    FileKind kind = FileKind::num;
    Place (*at)(Session&) = nullptr;    ///< null: the line is kept as it stands
    double low = -9e30, high = 9e30;    ///< a number beyond them is dropped
    double scale = 1;                   ///< the file holds the value divided by this
    bool (*when)() = nullptr;           ///< null: always; else the session and file that it belongs to
    double (*settle)(double) = nullptr; ///< what becomes of a number, written or read
    std::string (*write)() = nullptr;   ///< a line of its own shape
    void (*read)(std::string_view line) = nullptr;
    bool shown = false;    ///< how things look, no option of the analysis: a reset leaves it
    bool elseKept = false; ///< where its conditions do not hold, the line is kept as it stands
};

/// The positions with a meaning, in order; what lies between is kept as it stands.
std::span<const ProgramField> programfields();

void programwrite(); ///< count and items
/// False, with u set, when the count is none: the read must end.
bool programread();

void stylewrite();
bool styleread();

/// Every analysis option of the list as at the start of the program.
void resetoptions();

/// The level check: a confidence as a fraction, held to 0 and 0.999999.
double checkedlevel(double fraction);
