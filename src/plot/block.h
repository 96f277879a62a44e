#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "plot/layout.h"

/// The block beside the plot: legend and parameters.

/// Mark of the points of set k: twenty-four shapes that tell apart, then again from the first.
float setmark(int k);

/// Mark that shows where a suspension stands, at the foot of the plot.
float suspensionmark();

/// A name from the user, without what would pass for a column of the block.
std::string withoutcolumns(std::string_view name);

/// The block of the plot in hand.
struct PlotBlock {
    std::vector<BlockLine> lines; ///< legend first, then the parameters
    std::size_t legendLines = 0;
};
enum BlockKind { fullBlock, shortBlock }; ///< short: fewer lines a set, where a full one has no room
PlotBlock composeblock(BlockKind kind);

/// Draws the legend's lines, or the parameters', where the layout puts them. A line too long for the block is
/// cut short; a block too long ends in "(...".
void plotlegend(const PlotBlock& block, const Layout& layout);
void plotparams(const PlotBlock& block, const Layout& layout);
