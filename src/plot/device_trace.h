#pragma once

#include <string>

#include "platform/files.h"
#include "plot/device.h"

/// Writes each operation of a plot as one line of plain text, for tests and for a look at what a plot does:
///
///     begin W H                                 canvas size
///     line X1 Y1 X2 Y2 pen C STYLE width N      STYLE: solid dashed dash-dot dash-dot-dot dotted
///     on X Y pen C STYLE width N                a line from where the pen stands
///     box X1 Y1 X2 Y2 pen C width N             outline
///     fill X1 Y1 X2 Y2 pen C width N            filled rectangle
///     text X Y size S rotation R pen C "…"      \" \\ and \xHH for quotes, backslashes, control characters
///     mark                                      the steps that follow are one mark
///     step X Y pen C                            a step of it, pen 0: moved with the pen up
///     width N                                   width class
///     end
///
/// Coordinates in canvas units, shortest digits. Goes to the file that the user named, else standard output.
class TraceDevice : public Device {
public:
    TraceDevice(int pixelWidth, int pixelHeight, TextSink& textSink)
        : canvasWidth(15.0 * pixelWidth),
          canvasHeight(15.0 * pixelHeight),
          sink(textSink) {}

    bool begin() override;
    bool end() override;
    void abandon() override { sink.drop(); }
    double width() const override { return canvasWidth; }
    double height() const override { return canvasHeight; }
    void line(const LineOperation& operation) override;
    void text(const TextOperation& operation) override;
    void markbegin() override { send("mark"); }
    void markstep(const MarkStep& step) override;
    void setwidth(int widthClass) override;
    bool failed() const override { return broken; }

private:
    void send(std::string_view line);

    double canvasWidth, canvasHeight;
    TextSink& sink;
    bool broken = false;
};
