#include "plot/strokes.h"

#include <array>
#include <cmath>

namespace {

constexpr std::string_view noMark = "c00u1;"; ///< a step with the pen up
constexpr std::string_view fixedMark = "c27e1c00l3d3r3u3e1c27l5d5r5u5;";

constexpr int dotSize = 2, mediumSize = 3, largeSize = 4, fixedSize = 20;
constexpr float flagsMark = 15, firstFixedMark = 20, lastInTable = lastDataMark, barCode = barMark;

/// Digits, the signs of stroke numbers, and small figures: one form at every size.
constexpr std::array<std::string_view, 18> figures = {
    "c00l3c11u1e2u1l2g1d2f1r2e1u2h1;",
    "c11l4r2u4g1;",
    "c11l4e2r1e1h1l2g1;",
    "c00l4c11r3e1h1l2r2e1h1l3;",
    "c00l1c11u4g3r4;",
    "c00l4c11r3e1h1l3u2r4;",
    "c00l3c11h1f1r2e1h1l2g1u2e1r2;",
    "c00l4c11e4l4;",
    "c00l1c11l2h1e1r2e1h1l2g1f1r2f1g1;",
    "c00l3c11r2e1u2h1l2g1f1r3;",
    "c00l2c11r1;",
    "c00u2l1c11l3;",
    "c00l2u1c11u2d1l2r4;",
    "c11l4u2r2l2u2r4;",
    "c00l5;",
    "c00u2c15u5r2l2d2r2c00d5r2c15u5r2l2d2r2;",
    "c28d3r3c00r1c28u3r2l2d1r2l2d2r3c00r1c28u3r2l2d3r3u2l1r1d2c00r1c28u3r2l2d1r2"
    "l2d2r3c00r1c28u3f3u3d3c00r1c28u3r2f1d2g1l9l9l4;",
    "c01d9l8e3r2e1u2h1l2g1d2g3u8r9;"};
constexpr std::string_view largeFlags = "c00u2c15u5r2l2d2r2d2c00d3r2c15u5r2l2d2r2;";

/// A data mark at its sizes.
struct DataMark {
    std::string_view standard, medium, large;
    std::string_view dot = noMark; ///< most leave the dot to the caller
};

/// From code firstDataMark to lastDataMark. 20 has a colour of its own, to be seen above other marks.
constexpr std::array<DataMark, lastDataMark - firstDataMark + 1> dataMarks = {{
    {"c00r2c99h4l1f4g4r1e4;", "c00r1c99h2l1f2g2r1e2;", "c00r4c99h8l1f8g8r1e8;", "c99h1f1g1e1;"},
    {"c00l2c99e4r1g4f4l1h4;", "c00l2c99e2r1g2f2l1h2;", "c00l2c99e8r1g8f8l1h8;", "c99e1g1f1h1;"},
    {"c27u2d4u2l2r4l2c00e3c27h1l4g2d4f2r4e2u4h1;", "c27u1l1d2r2u2c00e1u1c27l4g1d4f1r4e1u4h1;",
     "c27u2d4u2l2r4l2c00e2u3c27f3d4g3l4h3u4e3r4f3;"},
    {"c00u2c99f4l8e4;", "c00u1c99f2l4e2;", "c00u3c99f6l8l4e6;"},
    {"c00d2c99h4r8g4;", "c00d1c99h2r4g2;", "c00d3c99h6r8r4g6;"},
    {"c00f3c99l6u6r6d6;", "c00f2c99l4u4r4d4;", "c00f4c99l8u8r8d8;"},
    {"c00l3c99e3f3g3h3;", "c00l2c99e2f2g2h2;", "c00l4c99e4f4g4h4;"},
    {"c00r2c99u4g4d4e4;", "c00r1c99u2g2d2e2;", "c00r3c99u6g6d6e6;"},
    {"c00r2c99d4h4u4f4;", "c00r1c99d2h2u2f2;", "c00r3c99d6h6u6f6;"},
    {"c00u2c99r4g4l4e4;", "c00u1c99r2g2l2e2;", "c00u3c99r6g6l6e6;"},
    {"c00d2c99r4h4l4f4;", "c00d1c99r2h2l2f2;", "c00d3c99r6h6l6f6;"},
    {"c00g3c99e6l6f6l6;", "c00g2c99e4l4f4l4;", "c00g4c99e8l8f8l8;"},
    {"c00h3c99f6u6g6u6;", "c00h2c99f4u4g4u4;", "c00h4c99f8u8g8u8;"},
    {"c00l3c99u1e2r2f2d2g2l2h2u1;", "c00l2c99u1e1r2f1d2g1l2h1u1;", "c00l4c99u1e3r2f3d2g3l2h3u1;"},
    {"c99d3u6d3e3g6e3h3f6h3r3l6;", "c99d2u4d2e2g4e2h2f4h2r2l4;", "c99d4u8d4e4g8e4h4f8h4r4l8;"},
    {"c00l3d1c99u2r2u2r2d2r2d2l2d2l2u2l2;", "c00d2c99u4d2l2r4l2;", "c00l4d2c99u3r3u3r3d3r3d3l3d3l3u3l3;"},
    {"c00l3d2c99e2h2r2f1e1r2g2f2l2h1g1l2;", "c00g2c99e4g2h2f4h2;", "c00l4d3c99e3h3r3f2e2r3g3f3l3h2g2l3;"},
    {"c00e1c99l2d2r2u2c00e1e1c99l6d6r6u6;", "c00e1c99l2d2r2u2e1l4d4r4u4;",
     "c00e2c99l4d4r4u4e1c00e1c99l8d8r8u8;"},
    {"c99f1l2e1u1c00u1c99f4l8e4;", "c99d1l3e3f3l3;", "c00u1c99f2l4e2u1c00u1c99f6l8l4e6;"},
    {"c99h1r2g1d1c00d1c99h4r8g4;", "c99u1r3g3h3r3;", "c00d1c99h2r4g2d1c00d1c99h6r8r4g6;"},
    {"c00l2c99e2f2g2h2l1c00l1c99e4f4g4h4;", "c00l1c99e1f1g1h1l1c00l1c99e2f2g2h2;",
     "c00l2c99e2f2g2h2l1c00l2c99e5f5g5h5;"},
    {"c00l1c99e1f1g1h1l1c00l1c99u1e2r2f2d2g2l2h2u1;", "c99l1c00l1c99u1e1r2f1d2g1l2h1u2;",
     "c00l2c99u1e1r2f1d2g1l2h1u1l1c00l1c99u2e2r3f2d4g2l3h2u2;"},
    {"c00h3c99r6l3f3g3r3l6r3h3e3;", "c00h2c99r4l2f2g2r2l4r2h2e2;", "c00u4c99l4r8l4f4g4l4r8l4h4e4;"},
    {"c00h3c99d6u3e3f3u3d6u3g3h3;", "c00h2c99d4u2e2f2u2d4u2g2h2;", "c00l4c99u4d8u4e4f4u4d8u4g4h4;"},
    {"c00f2c99f2h2l4g2e2u4h2f2r4e2g2d4;", "c00f2c99f1h1l2g1e1u2h1f1r2e1g1d2;",
     "c00f3c99f2h2l6g2e2u6h2f2r6e2g2d6;"},
    {"c00l1c99u3l2r6l2d6r2l6r2u3;", "c00l1c99u2l1r4l1d4r1l4r1u2;", "c00l2c99u4l2r8l2d8r2l8r2u5;"},
    {"c00d1c99l3d2u6d2r6u2d6u2l4;", "c00d1c99l2d1u4d1r4u1d4u1l2;", "c00d2c99l4d2u8d2r8u2d8u2l5;"},
}};
constexpr DataMark bar = {"c00l3c99r6;", "c00l2c99r4;", "c00l4c99r8d1l8u1;"};

std::string_view formof(const DataMark& mark, int size) {
    if (size == dotSize) return mark.dot;
    if (size == mediumSize) return mark.medium;
    return size == largeSize ? mark.large : mark.standard;
}

} // namespace

std::string_view strokestring(float code, int size) {
    if (size == fixedSize && code >= firstFixedMark) return fixedMark;
    if (code == barCode) return formof(bar, size);
    if (!(code >= 0 && code <= lastInTable) || std::floor(code) != code) return noMark;
    if (code == flagsMark && size == largeSize) return largeFlags;
    const auto row = static_cast<std::size_t>(code);
    return row < firstDataMark ? figures[row] : formof(dataMarks[row - firstDataMark], size);
}
