#pragma once

#include <cstdint>
#include <string>

/// State of reading and writing data files.

/// HTML wrapper around the lines of a data file. A save that was asked for with wrapperAsked writes with
/// wrapperWriting and gives the wish back at its end.
enum HtmlMode : int16_t { plainLines = 0, wrapperWriting = -1, wrapperReading = -2, wrapperAsked = 2 };

struct FileState {
    int16_t htmlMode = plainLines; ///< HtmlMode
    int16_t eofFlag = 0;           ///< 1: a line was asked for behind the end of the input
    int16_t dataFileRead = 0;      ///< 1: the input last opened was a data file, and brought its options
    float fileLevel = 0;           ///< version that the file in hand states
    float sessionLevel = 3;        ///< version that this program writes
    std::string fileSuffix;        ///< what stands behind the product mark of its first line: "-VXW"
};
