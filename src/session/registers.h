#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

/// Work registers: routines take and give values here instead of by arguments. A routine that needs one of
/// them across a call that may change it saves it first.
struct Registers {
    std::string msg;       ///< text in and out: messages, prompts, file names, words being read
    std::string menuTitle; ///< a second text, usually a header
    float u = 0;           ///< number in and out
    double ud = 0;         ///< wide number in and out
    double udq = 0;        ///< complement 1 - p that txx2pd leaves beside ud
    double ydd = 0;        ///< probability argument of txYandXandBeta2EtaD
    float loopIndex = 0;   ///< shared loop counter of the start-up and fill loops

    double xyz = 0; ///< X of the point being classified
    float xyz2 = 0; ///< Z of the point being classified

    std::string fieldText;       ///< the field that fieldcut took off msg
    std::string delimiter = "x"; ///< what fieldcut cuts at
};

/// Registers of the prompt calls.
struct PromptRegisters {
    static constexpr int menuItems = 51;

    std::array<std::string, menuItems + 1> menuItem; ///< item texts, 1 to 51
    float menuCount = 0;                             ///< number of items; 0 after a call
    float menuChoice = 0;                            ///< default item in, chosen item out; 0 on cancel
    int16_t menuPage = 0;   ///< identity of the page to show; 0 for a page that leaves no mode behind
    int16_t activeMode = 0; ///< identity of the interactive mode in force; 0 none
    int16_t menuStyle = 0;  ///< item lines of space: 3 small, 4 large, 0 as many as fit
    std::map<int16_t, int> menuScroll; ///< first row shown when a page was left, by its identity

    float promptMin = 0;      ///< lower limit of a number entry; each caller tests it
    float promptMax = 0;      ///< upper limit
    float promptDefault = 0;  ///< the default shown, for callers that ask whether anything changed
    int16_t promptKind = 0;   ///< 1: ud is the number, else u
    int16_t incrementExp = 0; ///< decimal exponent of the arrow step
    float increment = 1;      ///< the arrow step, ten to that exponent
    std::vector<std::string> recentTexts; ///< what was typed before, newest first
};
