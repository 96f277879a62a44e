#pragma once

#include <string>
#include <vector>

#include "analysis/bounds.h"
#include "support/lifefixture.h"

/// Runs with double-sided 90 percent bounds by likelihood, on sets that several tests share.
class BoundsTest : public LifeTest {
protected:
    using Notices = std::vector<std::string>;
    const Cells censored = {"12", "31x0x2", "-40", "55", "70", "-80x0x3", "95", "-120"};
    const Cells complete = {"12", "31", "40", "55", "70", "82", "95", "120"};
    const Cells three = {"100", "200", "300"};

    BoundsTest() {
        session.confLow = 5;
        session.confHigh = 95;
        choosemethod(maximumLikelihood);
    }
    static int points(BoundSide side, int k = 1) { return static_cast<int>(session.n(boundrow(k, side))); }
    static double at(BoundSide side, double p) {
        const int row = boundrow(1, side);
        for (int m = 1; m <= points(side); ++m)
            if (session.Y(row, m) == static_cast<float>(p)) return session.X(row, m);
        return noAnswer;
    }
    static std::string report() { return session.reportBuffer; }
};
