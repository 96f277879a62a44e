#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "platform/headless/headless.h"
#include "session/session.h"
#include "shell/calcplot.h"
#include "shell/grid.h"

/// A session on the life side as the process starts it: every option at its default, empty arrays, a platform
/// that keeps the messages. The session is put back afterwards, so that no test sees another's choices. A
/// test that wants to answer prompts or press Escape puts a ScriptedPlatform in force for its own scope.
class LifeTest : public testing::Test {
protected:
    static constexpr int stride = 3; ///< rows a set occupies on the life side

    HeadlessPlatform desktop;

    LifeTest() : former(std::exchange(platform, &desktop)) {
        session = Session{};
        chooseside(lifeSide);
        EXPECT_TRUE(allocatearrays());
    }
    ~LifeTest() override {
        session = Session{};
        platform = former;
    }

    using Cells = std::vector<std::string>;

    /// Fills the grid with one set and runs the cycle.
    void life(const Cells& cells) { sets({cells}); }

    /// Fills the grid with several sets and runs the cycle.
    void sets(const std::vector<Cells>& all) {
        desktop.messages.clear();
        gridclear();
        for (int k = 1; k <= static_cast<int>(all.size()); ++k)
            for (int j = 1; j <= static_cast<int>(all[k - 1].size()); ++j) gridset(k, j, all[k - 1][j - 1]);
        calcplot();
    }

    struct Fit {
        bool fitted;
        double eta, beta, r;
        bool operator==(const Fit&) const = default;
    };
    static Fit fit(int k = 1) {
        const int row = k * stride;
        return {session.setFitted(k) == 1, session.etaFit(row, 1), session.betaFit(row, 1),
                session.setCorrelation(k)};
    }

    /// Plotted position and mean rank of a point, by its place of entry.
    static double position(int j, int k = 1) { return session.Y(k * stride, j); }
    static double rank(int j, int k = 1) { return session.plotRank(k * stride, j); }

    /// What the user was told about set k (0: about the run) in the last cycle.
    static const std::vector<std::string>& told(int k = 1) { return session.setMessages[k]; }

    static void choose(Dist family, int extreme = -1) {
        session.dist = family;
        session.gumbeltype = static_cast<int16_t>(extreme);
    }

    static void choosemethod(float method) { session.fitMethod = session.fitMethodSaved = method; }

private:
    Platform* former;
};

/// A weighted straight line by least squares about the means: the textbook form, as a check on the running
/// sums of the program.
struct CheckLine {
    struct Point {
        double x, y, weight = 1;
    };
    double slope = 0, crossing = 0, r = 0;

    CheckLine(const std::vector<Point>& points, bool xOnY) {
        long double n = 0, mx = 0, my = 0, xx = 0, yy = 0, xy = 0;
        for (const Point& p : points) n += p.weight, mx += p.weight * p.x, my += p.weight * p.y;
        mx /= n, my /= n;
        for (const Point& p : points) {
            xx += p.weight * (p.x - mx) * (p.x - mx);
            yy += p.weight * (p.y - my) * (p.y - my);
            xy += p.weight * (p.x - mx) * (p.y - my);
        }
        slope = static_cast<double>(xOnY ? yy / xy : xy / xx);
        crossing = static_cast<double>(mx - my / slope);
        r = static_cast<double>(xy / std::sqrt(xx * yy));
    }
};

/// Plot Y of a Weibull or smallest-extreme line.
inline double smallestextreme(double p) { return std::log(-std::log1p(-p)); }

#define EXPECT_RELATIVE(actual, expected, tolerance)                                                         \
    EXPECT_NEAR(actual, expected, std::fabs(expected) * (tolerance))
