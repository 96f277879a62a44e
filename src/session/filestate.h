#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

/// State of reading and writing data files.

/// HTML wrapper around the lines of a data file. A save that was asked for with wrapperAsked writes with
/// wrapperWriting and gives the wish back at its end.
enum HtmlMode : int16_t { plainLines = 0, wrapperWriting = -1, wrapperReading = -2, wrapperAsked = 2 };

struct FileState {
    int16_t htmlMode = plainLines; ///< HtmlMode
    int16_t eofFlag = 0;           ///< 1: a line was asked for behind the end of the input
    int16_t quietRead = 0;         ///< 1: a file of the session itself is read back: no question, no note
    int16_t dataFileRead = 0;      ///< 1: the input last opened was a data file, and brought its options
    float fileLevel = 0;           ///< version that the file in hand states
    float sessionLevel = 3;        ///< version that this program writes
    std::string fileSuffix;        ///< what stands behind the product mark of its first line: "-VXW"

    int16_t fileSide = 0;      ///< side that the file in hand was written on (Side)
    float fileStride = 0;      ///< its rows a set
    float fileSetLimit = 0;    ///< the sets it had room for
    float fileRows = 0;        ///< its last row
    int16_t fileHasData = 0;   ///< 1: a set of it holds a point
    int16_t fileDiscovery = 0; ///< 1: one of its points is a discovery
    int16_t fileConvert = 0;   ///< 1: its X-Y points are taken as grouped rows of a life set
    std::string fileNotes;     ///< what was told about the file last read; empty: nothing

    /// Lines of the option list and of the style list that no field of this version stands behind, from 1:
    /// they are written back as they were read.
    std::array<std::string, 174> programKept;
    std::array<std::string, 11> styleKept;

    int16_t keepScale = 0;     ///< 1: a file does not change the scale style
    int16_t reportChoice = 0;  ///< what the file shows first: 0 the plot, 1 the report
    float xyLogFit = 0;        ///< 1: curves are fitted on logarithms
    int16_t firstPlotLine = 0; ///< number of the first line above the sets that is drawn; 0 none
};
