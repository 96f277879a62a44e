#pragma once

#include <string>
#include <string_view>
#include <vector>

/// What a plotter would draw from a text in the graphics language, read from the definition of the language
/// and not from what our own device writes. Commands: IN SP IP SR VS SC PW PT PU PD PA EA RA FT LT DI LB.
struct HpglPicture {
    struct Point {
        double x = 0, y = 0;
        bool operator==(const Point&) const = default;
    };
    struct Stroke {
        int pen = 0;
        int lineType = 0; ///< 0 solid
        std::vector<Point> points;
    };
    struct Rectangle {
        int pen = 0;
        Point from, to;
        bool filled = false;
        std::vector<double> fill; ///< parameters of FT in force
    };
    struct Label {
        int pen = 0;
        Point at;
        std::string text;
        double width = 0.75, height = 2; ///< percent
        Point direction{1, 0};
    };
    std::vector<Stroke> strokes; ///< runs of the pen on the paper
    std::vector<Rectangle> rectangles;
    std::vector<Label> labels;
    std::vector<std::string>
        problems; ///< unknown commands, wrong parameters, drawing off the canvas, open ends
    double speed = 0, penWidth = 0;
    std::vector<double> scale; ///< of SC
    int pen = 0;               ///< in the holder at the end
    bool down = false;         ///< at the end

    /// The picture as SVG, to be looked at.
    std::string drawn() const;
};

HpglPicture readhpgl(std::string_view text);
