#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Where the blocks of a plot stand on the canvas.

/// One line of the block beside the plot. Columns stand at "[[TABnn" marks, nn in characters.
struct BlockLine {
    std::string text;
    int colour = 0;   ///< palette number
    float mark = 0;   ///< mark drawn before the text; 0 none, the text then starts at the edge
    float setRow = 0; ///< row of the set whose colour the mark takes
    int box = 0;      ///< palette number of a filled box in place of the mark; 0 none
};

struct Layout {
    double size = 0;       ///< standard character size
    double titleSize = 0;  ///< of the main title
    double blockSize = 0;  ///< of the block beside the plot
    double titleLines = 0; ///< title lines above the plot
    double yTitleX = 0;    ///< baseline of the rotated Y title
    double xLabelY = 0;    ///< baselines below the plot
    double xTitleY = 0;
    double footY = 0;
    double blockLeft = 0, blockRight = 0; ///< the block beside the plot; left = right: none
    std::size_t blockRows = 0;            ///< lines of the block that have room
};

/// Standard character size of the canvas in force: a forty-second of its height, readable on a small one.
double charactersize();

/// Width that a block line takes at a size, canvas units.
double blockwidth(const BlockLine& line, double size);

/// Baseline distance of text lines of a size.
inline double lineheight(double size) { return 1.35 * size; }

/// Room that the labels of the axes need beside the plot area.
struct LabelRoom {
    double y = 0;      ///< width of the widest label of the Y axis
    double xFirst = 0; ///< half the width of the first and of the last label of the X axis
    double xLast = 0;
};

/// What stands behind a text that was cut short.
inline constexpr std::string_view cutMark = "(...";

/// Places the plot area (session.window) and the blocks on the canvas. The block takes at most a quarter of
/// the width and a little more, the plot area the rest.
Layout plotlayout(const std::vector<BlockLine>& block, const LabelRoom& labels, int titleLines);

/// Cuts a text so that it fits into `room` at a size: whole, or ending in "(...".
std::string fittedtext(std::string_view text, double size, double room);

/// Place of the column "[[TABnn", from the start of its line.
double tabplace(std::string_view digits, double size);
