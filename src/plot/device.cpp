#include "plot/device.h"

#include "plot/textmetrics.h"

void Device::markstep(const MarkStep& step) {
    if (step.colour <= 0) return;
    line({.x1 = step.fromX,
          .y1 = step.fromY,
          .x2 = step.x,
          .y2 = step.y,
          .pen = {step.colour, LineStyle::solid},
          .width = step.width});
}

double Device::textwidth(std::string_view text, double size) const { return textadvance(text) * size / 1000; }
