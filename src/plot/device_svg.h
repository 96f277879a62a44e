#pragma once

#include <cstdint>
#include <string>

#include "platform/files.h"
#include "plot/device.h"

/// Vector picture, SVG 1.1, written as it is drawn: no more than a buffer and the state of the path in hand
/// is held. Goes to the file that the user named, else standard output. One unit of the picture is a pixel,
/// 15 canvas units.
class SvgDevice final : public Device {
public:
    SvgDevice(int pixelWidth, int pixelHeight, TextSink& textSink);

    bool begin() override;
    bool end() override;
    void abandon() override;

    double width() const override { return 15.0 * pixelsAcross; }
    double height() const override { return 15.0 * pixelsDown; }

    void line(const LineOperation& operation) override;
    void text(const TextOperation& operation) override;
    void markstep(const MarkStep& step) override;
    /// Class 0 makes the lines of class 1 finer until another class is set.
    void setwidth(int widthClass) override { fine = widthClass == 0; }

    bool failed() const override { return broken; }

private:
    /// What the strokes of one path have in common.
    struct Stroke {
        int32_t rgb = 0;
        int width = 1; ///< width class; 0 fine
        LineStyle style = LineStyle::solid;
        bool operator==(const Stroke&) const = default;
    };
    struct Point {
        double x = 0, y = 0;
        bool operator==(const Point&) const = default;
    };

    void segment(const Stroke& wanted, Point from, Point to);
    void box(const Stroke& wanted, Point from, Point to);
    void openpath(const Stroke& wanted);
    void closepath();
    double strokewidth(int widthClass) const;
    void flush();

    int pixelsAcross, pixelsDown;
    TextSink& sink;
    std::string out;     ///< what has not been written yet
    std::string cleaned; ///< the text in hand
    bool broken = false; ///< a write has failed
    bool fine = false;   ///< width class 0 is in force
    bool inPath = false; ///< a path is being written
    Stroke stroke;       ///< of that path
    double shift = 0;    ///< and how far its strokes lie from the pixel corners
    Point tip;           ///< and where it ends
    Point pen;           ///< where the last line ended
};
