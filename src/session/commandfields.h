#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

/// What the command line asked for. The parser only records; the values take effect when the run begins,
/// after the settings, so that the command line always wins.
struct CommandFields {
    std::string cmdFile;              ///< data file named on the line; "-" standard input
    std::string cmdConfig;            ///< -c, config folder
    std::string cmdTemp;              ///< -t, temp folder
    std::string cmdData;              ///< -d, data folder
    int16_t cmdSide = 0;              ///< -p; 0 not given
    int16_t cmdInput = -1;            ///< -i or -j, 0 to 5; -1 not given
    int16_t cmdMethod = 0;            ///< -m, 1 to 8; 0 not given
    std::string cmdDistribution;      ///< -e
    std::string cmdConfidence;        ///< -b
    std::string cmdLanguage;          ///< file of the language asked for; empty: that of the settings
    std::string cmdTitle;             ///< -f
    std::string cmdTitleSecond;       ///< -k
    std::string cmdOptionFile;        ///< -a
    char cmdPlotChoice = 0;           ///< -w; 0 not given
    int16_t cmdPlot = 1;              ///< -8: 0 no plot
    int16_t cmdShowWindow = 0;        ///< -h: 1 the main window opens after a script run
    float cmdSets = 0;                ///< -r, sets wanted; 0 not given
    float cmdPoints = 0;              ///< and points a set
    float cmdSamples = 0;             ///< -g, number of the sampling routines; 0 not given
    std::vector<double> cmdLimits;    ///< -z: x low, x high, y low, y high
    std::vector<double> cmdRanges;    ///< -1: the same, of the data window
    std::vector<double> cmdScale;     ///< -2: fixed scale positions
    std::vector<double> cmdX, cmdY;   ///< -x, -y: start values
    std::array<double, 6> cmdMarks{}; ///< -q -u -o -3 -4 -5: marks for the routines that read them
    std::array<char, 2> cmdLine{}; ///< -6, -7: a line fit by 'B' beta, 'X' value or 'R' reliability; 0 none
    std::array<double, 2> cmdLineAt{}; ///< and its value
    std::vector<std::string> cmdNotes; ///< values that were not understood, and so have no effect
};

/// Marks of cmdMarks.
enum CommandMark : std::size_t { startMark, reportMark, optionMark, scriptMark3, scriptMark4, scriptMark5 };
