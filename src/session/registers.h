#pragma once

#include <array>
#include <cstdint>
#include <string>

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
};
