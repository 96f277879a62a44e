#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// What a run of the typed function is for, and so what its second operand means.
enum FunctionMode : int16_t {
    functionCurve = 0,   ///< Y over the X range; the second operand is the parameter k
    functionY = 1,       ///< Y of each row from its x and y
    functionX = 2,       ///< X of each row from its x and y
    functionTwoSets = 3, ///< X of each row from the X of two sets, "A" and "B"
};

/// What the remainder operator stands for.
enum ModSetting : int16_t {
    modRemainder = 0,
    modPlotPlace = 1,    ///< place of a probability on the axis of a family
    modRankPosition = 2, ///< plotting position of a rank in a sample
};

/// The typed function: a string of two-digit token codes and the numbers that its "00" tokens stand for.
struct Expression {
    std::string fcode;               ///< two decimal digits a token
    std::vector<double> flits = {0}; ///< numbers of the "00" tokens in order, from index 1
    float flitcount = 0;             ///< how many there are
    float fk = 0;                    ///< the parameter k
    float fxlow = 0, fxhigh = 1;     ///< X range the function is drawn over
    std::string fcodeSaved;          ///< the copy that an undo, or a run that failed, comes back to
    std::vector<double> flitsSaved = {0};
    int16_t functionMode = functionCurve; ///< FunctionMode
    int16_t modSetting = modRemainder;    ///< ModSetting
    int functionSet = 1;                  ///< set that x is taken from; "A" of two
    int functionSetB = 2;                 ///< "B" of two
    bool functionRunning = false;         ///< a run is under way: no other may start within it
};
