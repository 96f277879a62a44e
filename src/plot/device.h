#pragma once

#include <string_view>

/// Line style carried in a pen number.
enum class LineStyle { solid, dashed, outline, filled, dashDot, dashDotDot, dotted };

/// A pen number taken apart: palette colour and style.
struct Pen {
    int colour = 0;
    LineStyle style = LineStyle::solid;
};

/// One line, outline or filled rectangle, in canvas units. `continues`: from where the pen stands.
struct LineOperation {
    bool continues = false;
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    Pen pen;
    int width = 1; ///< width class
};

/// One step of a mark: a move to (x, y) with the pen down in a colour, or up when the colour is 0.
struct MarkStep {
    double fromX = 0, fromY = 0;
    double x = 0, y = 0;
    int colour = 0;
    int width = 1; ///< width class of the mark
};

/// One text. (x, y) is the left end of its baseline; at rotation 90 the text runs upwards from there.
struct TextOperation {
    std::string_view text; ///< UTF-8
    double x = 0, y = 0;
    double size = 0; ///< character size (em), canvas units
    int rotation = 0;
    int colour = 0;
};

/// An output of the drawing layer: what it can do and how. The layer holds the rules that all outputs share;
/// a device spells the operation. Devices read palette and canvas from the session.
class Device {
public:
    virtual ~Device() = default;

    /// Opens the output and sends its header. False when it cannot be opened.
    virtual bool begin() = 0;
    /// Sends the trailer and closes the output. False when something of the plot could not be written.
    virtual bool end() = 0;
    /// Drops a plot that broke off; a file that stood under the name before stays.
    virtual void abandon() = 0;

    virtual double width() const = 0; ///< canvas units
    virtual double height() const = 0;

    virtual void line(const LineOperation& operation) = 0;
    virtual void text(const TextOperation& operation) = 0;
    /// Start, step and end of a mark. Without a form of its own a device draws each step as a solid line and
    /// leaves out those with the pen up.
    virtual void markbegin() {}
    virtual void markstep(const MarkStep& step);
    virtual void markend() {}
    /// A change of the width class outside a line.
    virtual void setwidth(int /*widthClass*/) {}

    /// Length of a text of that size on this device, canvas units.
    virtual double textwidth(std::string_view text, double size) const;

    /// True once a write has failed: the plot ends.
    virtual bool failed() const { return false; }
};
