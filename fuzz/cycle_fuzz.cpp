// Any bytes as a plain text file through the whole cycle and onto a plot, under any family, input type and
// method.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "data/importread.h"
#include "data/resultsjson.h"
#include "data/textnormalize.h"
#include "data/utf8.h"
#include "platform/headless/headless.h"
#include "plot/plotprob.h"
#include "session/session.h"
#include "shell/calcplot.h"
#include "shell/grid.h"
#include "shell/prompts.h"

namespace {

void chooseoptions(uint8_t a, uint8_t b, uint8_t c) {
    session.dist = static_cast<int16_t>(1 + (a & 3));
    session.gumbeltype = (a & 4) ? 1 : -1;
    session.inputType = static_cast<int16_t>((a >> 3) % 6);
    session.rankMethod = static_cast<float>(1 + (b & 7));
    session.rrSwap = (b & 8) ? 1 : 0;
    session.negativeXAllowed = (b & 16) ? 1 : 0;
    session.groupingOption = static_cast<int16_t>((b >> 5) % 3);
    session.fixedSlope = (c & 1) ? 2.5f : 0;
    session.popPortion = (c & 2) ? 0.5f : 0;
    session.fitMethod = session.fitMethodSaved = (c & 4) ? maximumLikelihood : rankRegression;
    session.t0(1) = (c & 8) ? 3.0f : 0.0f;
    session.xLimitLow = (c & 16) ? 20 : 0;
    session.yLimitHigh = (c & 32) ? 0.3 : 0;
    session.yScaleKind = static_cast<int16_t>((c >> 6) & 3);
}

/// Whatever the data, a plot is drawn at finite places, and its words stand on the canvas.
class CheckingDevice : public Device {
public:
    bool begin() override { return true; }
    bool end() override { return true; }
    void abandon() override {}
    double width() const override { return 12000; }
    double height() const override { return 9000; }
    void line(const LineOperation& o) override {
        if (!std::isfinite(o.x1) || !std::isfinite(o.y1) || !std::isfinite(o.x2) || !std::isfinite(o.y2))
            __builtin_trap();
    }
    void text(const TextOperation& o) override {
        const double length = textwidth(o.text, o.size);
        const double right = o.rotation == 0 ? o.x + length : o.x;
        const double top = o.rotation == 0 ? o.y : o.y - length;
        constexpr double slack = 2;
        if (!(o.x >= -slack && right <= width() + slack && top >= -slack && o.y <= height() + slack))
            __builtin_trap();
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    static HeadlessPlatform console;
    platform = &console;
    installreporters();
    if (session.maxPoints == 0) {
        chooseside(lifeSide);
        if (!allocatearrays()) return 0;
    }
    if (size < 3) return 0;
    console.messages.clear();
    sessionclear();
    gridclear();
    chooseoptions(data[0], data[1], data[2]);
    session.noPrompt = 1;
    const std::string_view text(reinterpret_cast<const char*>(data + 3), size - 3);
    ImportOptions options;
    options.mostSets = 10;
    session.gridCells = importread(textnormalize(text), *importchoice(lifeSide, "A1").form, options).cells;
    calcplot();
    std::string json;
    writeresults(json);
    if (!isutf8(json)) __builtin_trap();
    for (int k = 1; k <= setcount(); ++k)
        if (session.setFitted(k) == 1 && !(session.betaFit(3 * k, 1) > 0)) __builtin_trap();
    CheckingDevice device;
    if (!plotentry(device)) __builtin_trap();
    return 0;
}
