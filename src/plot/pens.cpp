#include "plot/pens.h"

#include <algorithm>
#include <cmath>

#include "session/session.h"

namespace {

constexpr int mostPens = 8;
constexpr int pens[26] = {0, 2, 5, 3, 6, 7, 1, 4, 2, 5, 3, 6, 7, 1, 4, 1, 2, 5, 3, 6, 7, 1, 4, 2, 5, 3};

/// From a colour on: the type, and by how much the lines move closer.
struct HatchStep {
    int fromColour, type;
    double closer;
};
constexpr HatchStep hatchSteps[] = {{1, 3, 1}, {4, 4, 1},      {6, 3, 1.414},
                                    {9, 4, 1}, {11, 3, 1.414}, {14, 4, 1}};

constexpr int hatchAngles[5] = {45, 90, 135, 45, 90};

} // namespace

int plotterpen(int colour) {
    if (colour <= 0) return 0;
    const int pen = colour < 26 ? pens[colour] : 1;
    return (pen - 1) % std::clamp<int>(session.penCount, 1, mostPens) + 1;
}

Hatch plotterhatch(int colour, double dx, double dy) {
    // The remainder of a whole division that rounds down: colour 1 has 4.
    Hatch hatch{3, std::hypot(dx, dy) / 150, hatchAngles[(colour + 3) % 5]};
    for (const HatchStep& step : hatchSteps) {
        if (colour < step.fromColour) break;
        hatch.type = step.type;
        hatch.spacing /= step.closer;
    }
    return hatch;
}
