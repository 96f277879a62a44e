#pragma once

#include <string>
#include <vector>

#include "plot/device.h"
#include "plot/drawing.h"
#include "session/session.h"

/// A device that keeps what it is told to draw.
class RecordingDevice : public Device {
public:
    RecordingDevice(double canvasWidth, double canvasHeight) : w(canvasWidth), h(canvasHeight) {}

    bool begin() override { return true; }
    bool end() override { return true; }
    void abandon() override {}
    double width() const override { return w; }
    double height() const override { return h; }
    void line(const LineOperation& operation) override { lines.push_back(operation); }
    void text(const TextOperation& operation) override {
        texts.push_back({std::string(operation.text), operation.x, operation.y, operation.size,
                         operation.rotation, operation.colour, textwidth(operation.text, operation.size)});
    }
    void markbegin() override { ++marksBegun; }
    void markstep(const MarkStep& step) override { steps.push_back(step); }
    void markend() override { ++marksEnded; }

    std::vector<LineOperation> lines;
    struct Text {
        std::string text;
        double x, y, size;
        int rotation, colour;
        double width;
    };
    std::vector<Text> texts;
    std::vector<MarkStep> steps;
    int marksBegun = 0, marksEnded = 0;

private:
    double w, h;
};
