#pragma once

#include <string>

#include "platform/files.h"
#include "plot/device.h"

/// A place in whole plotter units, y upwards.
struct HpglPlace {
    long x = 0, y = 0;
    bool operator==(const HpglPlace&) const = default;
};

/// Plotter text for outdev 4, and for outdev 5 the same inside the control codes that switch a laser printer
/// into its plotter language and back. Goes to plotteroutput(), one write an operation, so that a plotter
/// draws while the plot is made. Canvas: 10000 by 7500 plotter units. A line that ends off the canvas is left
/// out.
class HpglDevice : public Device {
public:
    explicit HpglDevice(TextSink& textSink) : sink(textSink) {}

    bool begin() override;
    bool end() override;
    void abandon() override { sink.drop(); }
    double width() const override { return 10000; }
    double height() const override { return 7500; }
    void line(const LineOperation& operation) override;
    void text(const TextOperation& operation) override;
    void markstep(const MarkStep& step) override;
    void markend() override { send("PU;"); }
    void setwidth(int widthClass) override { send(widthClass == 0 ? "PW0.1;" : "PW0.3;"); }
    /// A label begins with a blank, and all its characters are as wide as one another.
    double textwidth(std::string_view text, double size) const override;
    bool failed() const override { return broken; }

private:
    HpglPlace place(double x, double y) const;
    bool oncanvas(double x, double y) const;
    std::string strokes(const LineOperation& operation);
    void send(std::string_view text);

    TextSink& sink;
    bool laser = false; ///< outdev 5
    bool broken = false;
    bool placed = false; ///< where the pen stands is known
    HpglPlace stand;
};
