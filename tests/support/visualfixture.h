#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "expression/functiontext.h"
#include "plot/plotprob.h"
#include "plot/shown.h"
#include "support/lifefixture.h"
#include "support/recordingdevice.h"

/// A session on the visual side, with curves as a fit would leave them.
class VisualTest : public LifeTest {
protected:
    VisualTest() {
        session = Session{};
        chooseside(visualSide);
        EXPECT_TRUE(allocatearrays());
    }

    static RecordingDevice drawn(int across = 1200, int down = 900) {
        RecordingDevice device(15.0 * across, 15.0 * down);
        EXPECT_TRUE(plotentry(device));
        return device;
    }

    /// Puts a curve of that equation through set k.
    static void curve(int k, std::string_view equation, double low, double high) {
        const auto tokens = typedtokens(equation, functionCurve, true);
        ASSERT_TRUE(tokens) << equation;
        SetCurve& fitted = session.curves(k);
        fitted.fitmodel = 1;
        fitted.code = tokens->fcode;
        fitted.literals = tokens->literals;
        fitted.dataLow = low;
        fitted.dataHigh = high;
        fitted.r = 0.98765;
        fitted.hasR = true;
    }

    static void typed(std::string_view function, float low, float high) {
        const auto tokens = typedtokens(function, functionCurve, true);
        ASSERT_TRUE(tokens) << function;
        session.fcode = tokens->fcode;
        session.flits.assign(1, 0);
        session.flits.insert(session.flits.end(), tokens->literals.begin(), tokens->literals.end());
        session.flitcount = static_cast<float>(tokens->literals.size());
        session.fxlow = low;
        session.fxhigh = high;
        session.functionShown = 1;
    }

    static bool shows(const RecordingDevice& device, std::string_view start) {
        return std::any_of(device.texts.begin(), device.texts.end(),
                           [start](const auto& t) { return t.text.starts_with(start); });
    }

    /// Lines in a colour on the plot area.
    static std::vector<LineOperation> linesof(const RecordingDevice& device, int colour) {
        std::vector<LineOperation> lines;
        for (const LineOperation& one : device.lines)
            if (one.pen.colour == colour && one.pen.style == LineStyle::solid
                && one.x2 <= session.window.right + 20)
                lines.push_back(one);
        return lines;
    }
};
