#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "plot/transforms.h"
#include "session/session.h"

inline constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
inline constexpr double infinite = std::numeric_limits<double>::infinity();

/// A session with one line, whose faults are kept in `faults`. Everything is put back afterwards.
class Transforms : public ::testing::Test {
protected:
    inline static std::vector<int> faults;

    void SetUp() override {
        faults.clear();
        tellfault = [](int number) { faults.push_back(number); };
        probabilityplot();
        session.negativeXAllowed = 0;
        session.mixFlag = 0;
        session.msg.clear();
        line(weibull, 100, 2);
    }
    void TearDown() override {
        tellfault = nullptr;
        SetUpSession();
    }

    static void line(int family, double eta, double beta, int extreme = -1) {
        session.dist = static_cast<int16_t>(family);
        session.gumbeltype = static_cast<int16_t>(extreme);
        session.eta = eta;
        session.beta = beta;
    }
    static void probabilityplot() { session.plotMode = 1; }
    static void xyplot(float pair) {
        session.plotMode = 2;
        session.xyscale = pair;
    }

    /// Loads u, calls, reads u.
    static float single(void (*routine)(), float value) {
        session.u = value;
        routine();
        return session.u;
    }
    /// Loads ud, calls, reads ud.
    static double wide(void (*routine)(), double value) {
        session.ud = value;
        routine();
        return session.ud;
    }

private:
    static void SetUpSession() {
        session.plotMode = 1;
        session.xyscale = 0;
        session.negativeXAllowed = 0;
        session.mixFlag = session.mixKind = 0;
        session.msg.clear();
        line(weibull, 0, 0);
    }
};

/// Relative distance within a tolerance.
inline void expectrelative(double value, double expected, double tolerance) {
    EXPECT_LE(std::fabs(value - expected), tolerance * std::fabs(expected)) << value << " for " << expected;
}
