#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

/// What the settings file keeps beyond the options: the program's set-up and its lists.
struct Setup {
    static constexpr std::size_t formerMax = 19; ///< former results that the list can hold

    std::string programTags;         ///< product tag and the marks of the sides that were started
    std::string equationsName;       ///< title shown with "Equations" on the set-up page
    std::string fontName = "Arial";  ///< font of plot and report header
    std::string occurMark;           ///< occurrence display mark
    std::string serialLine = "23@S"; ///< number and handshake letter of the serial port
    std::string mtbfName = "MTBF";
    std::string thresholdName = "t0";
    /// Names of the first and second parameter by distType: 0 exponential type, then the families.
    std::array<std::array<std::string, 2>, 5> parameterNames = {
        {{"Lambda", "Beta"}, {"Eta", "Beta"}, {"Med", "SigF"}, {"Mu", "Sig"}, {"Xi", "Del"}}};
    std::array<std::string, 3> dateFormat = {"Y", "M", "D"}; ///< order of year, month and day
    float plannedReplacement = 0;                            ///< cost of a planned replacement
    float unplannedReplacement = 0;                          ///< and of one that was not planned

    int16_t settingsWritten = 0;         ///< 1 once the settings file has been written
    int16_t firstRunStage = 0;           ///< how often the welcome has been shown: 0, 1 or 2
    int16_t skipStartScreen = 0;         ///< 1: the main window opens without the start window's question
    std::array<int16_t, 4> windowRect{}; ///< left, top, width, height of the main window; 0 not saved

    std::vector<float> riskUsageRate, riskProdRate; ///< usage and production rates, by step
    std::vector<std::string> libraryTitles;         ///< library and comment titles
    std::vector<std::string> formerNames;           ///< names typed before
    std::vector<std::string> XFILEFORMER;           ///< files of the former results
    /// Values of one run, by section: the lines of the file and those of the run.
    struct Aside {
        std::vector<std::string> kept, run;
    };
    std::map<std::string, Aside, std::less<>> asideSettings;
    /// Lines of each section as last read: those that this version has no use for are written back.
    std::map<std::string, std::vector<std::string>, std::less<>> keptSettings;
};
