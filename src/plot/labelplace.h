#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "plot/segment.h"

/// Finds room for the labels of points, so that no label covers a point or another label. A label that has
/// no room is left out. The area is a grid of cells half a character wide; a cell is free or taken.
class LabelPlaces {
public:
    LabelPlaces(const ClipWindow& area, double size);

    /// Keeps the room of a mark, `reach` to each side, free of labels.
    void keepfree(double x, double y, double reach);

    struct Spot {
        double x; ///< left end of the baseline
        double y;
    };
    /// A place for a label of that width beside the point: right, left, above, below; and takes it.
    std::optional<Spot> place(double x, double y, double width);

    /// A place farther off, for a label that had none: rings of eight directions, the nearest first.
    std::optional<Spot> standoff(double x, double y, double width);

private:
    std::optional<Spot> takefirst(std::span<const Spot> spots, double width);
    struct Cells {
        int left, top, right, bottom;
    };
    std::optional<Cells> cells(double left, double top, double right, double bottom) const;
    bool free(const Cells& box) const;
    void take(const Cells& box);

    ClipWindow area;
    double size;
    double cell;
    int columns;
    int rows;
    std::vector<uint8_t> taken;
};
