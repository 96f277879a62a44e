#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "session/session.h"
#include "shell/calcplot.h"
#include "shell/grid.h"
#include "support/scriptedplatform.h"

/// A session on the visual side as the process starts it, under a platform that answers from a script.
class XYTest : public testing::Test {
protected:
    ScriptedPlatform desk;

    XYTest() {
        session = Session{};
        chooseside(visualSide);
        EXPECT_TRUE(allocatearrays());
    }
    ~XYTest() override { session = Session{}; }

    using Cells = std::vector<std::string>;

    /// Fills the grid with sets, each with a kind of fit, and runs the cycle.
    void sets(const std::vector<Cells>& all, const std::vector<int>& kinds = {}) {
        gridclear();
        for (int k = 1; k <= static_cast<int>(all.size()); ++k)
            for (int j = 1; j <= static_cast<int>(all[k - 1].size()); ++j) gridset(k, j, all[k - 1][j - 1]);
        for (std::size_t i = 0; i < kinds.size(); ++i)
            session.FITKIND(static_cast<int>(i) + 1) = static_cast<int16_t>(kinds[i]);
        calcplot();
    }
    void set(const Cells& cells, int kind = 0) { sets({cells}, {kind}); }

    static const SetCurve& curve(int k = 1) { return session.curves(k); }
    static const std::vector<std::string>& told(int k = 1) { return session.setMessages[k]; }
};
