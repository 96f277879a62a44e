#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <initializer_list>
#include <sstream>
#include <string>
#include <utility>

#include "platform/headless/headless.h"
#include "plot/drawing.h"
#include "session/session.h"
#include "support/freshsession.h"
#include "support/textsink.h"

/// A fresh session, a platform that keeps what the user is told, and a sink in memory. No plot outlives a
/// test.
class PlotTest : public testing::Test {
protected:
    FreshSession fresh{lifeSide};
    HeadlessPlatform desktop;
    MemorySink sink;

    PlotTest() : former(std::exchange(platform, &desktop)) { plotabandon(); }
    ~PlotTest() override { platform = former; }
    void TearDown() override { plotabandon(); } // while the device of the test still lives

    static void lineto(double x1, double y1, double x2, double y2, float pen) {
        session.plotx1 = x1;
        session.ploty1 = y1;
        session.plotx2 = x2;
        session.ploty2 = y2;
        session.plotpen = pen;
        plotline();
    }
    static void on(double x, double y, float pen) { lineto(continueLine, 0, x, y, pen); }

    static void textat(double x, double y, float pen, float size, int16_t rotation, std::string_view text) {
        session.plotx2 = x;
        session.ploty2 = y;
        session.plotpen = pen;
        session.textSize = size;
        session.textRotation = rotation;
        plottext(text);
    }

    /// One operation of each kind: what the golden files spell out.
    static void shapes() {
        lineto(100, 200, 1500, 300, 1);
        on(1500, 450, 1);
        on(2000, 1000, 1);
        lineto(1000, 1000, 1300, 1400, -198);
        lineto(2000, 2000, 2300, 2400, -299);
        lineto(0, 0, 9000, 6000, -95);
        lineto(0, 100, 9000, 6100, -390);
        lineto(0, 200, 9000, 6200, -480);
        lineto(0, 300, 9000, 6300, -570);
        textat(500, 4000, 3, 200, 0, "Weibull");
        textat(300, 5000, 28, 437.5f, 90, "say \"F\"");
        Device& device = *plotdevice();
        device.markbegin();
        device.markstep({3000, 3000, 3000, 2970, 0, 2});
        device.markstep({3000, 2970, 3060, 3030, 2, 2});
        device.markend();
        plotwidth(0);
        plotwidth(2);
    }

private:
    Platform* former;
};

/// A golden file. Plotter text has no line ends: there they only keep the golden file readable.
inline std::string golden(const std::string& name) {
    std::ifstream file(std::string(VANEX_TESTS_DIR) + "/golden/" + name, std::ios::binary);
    EXPECT_TRUE(file) << name;
    std::ostringstream text;
    text << file.rdbuf();
    std::string content = std::move(text).str();
    EXPECT_FALSE(content.empty()) << name;
    if (name.ends_with(".hgl")) std::erase(content, '\n');
    return content;
}
