#pragma once

#include <cstdint>

/// Weibayes and test planning: what is added to the data, and the plan of the test. The known slope is
/// fixedSlope.
struct Weibayes {
    float wbConf = 0;     ///< confidence in percent of a test without failures; 0: one failure is assumed
    float wbFail = 0;     ///< failures added to the calculation
    float wbSusp = 0;     ///< suspensions added to it
    int16_t wbPlan = 0;   ///< type of calculation, 0 to 3; 3 the Dauser shift
    int16_t testQty = 4;  ///< units on a test of which the order of the last failure is known
    int16_t testLast = 2; ///< and that order
    double LFAIL = -9.123e+32; ///< last failure value of a Dauser shift; noAnswer when it is missing
    double RSUSP = -9.123e+32; ///< its largest suspension value; noAnswer when it is missing
};
