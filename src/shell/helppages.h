#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The pages of advice in the tabbed view: which method for which data, how to go about an analysis, what the
/// methods do, what a cell may hold, which keys there are. Pure text; a window lays it out.

enum class HelpKind { heading, text, item, entry }; ///< an entry explains what stands in `term`

struct HelpPart {
    HelpKind kind;
    std::string term; ///< of an entry: a cell, a key, a method
    std::string text;
};

struct HelpPage {
    std::string title;
    std::vector<HelpPart> parts;
};

/// The pages in the order of their tabs, titles and terms in the language in force.
std::vector<HelpPage> helppages();

/// The flow chart: boxes on a grid of columns and rows, and the ways between them.
struct FlowBox {
    int column, row;
    bool question;    ///< asks; the others say what to do
    std::string text; ///< of a few lines
};
struct FlowWay {
    int from, to; ///< boxes, by their place in the list
    std::string answer;
};
struct FlowChart {
    std::string title;
    int columns, rows;
    std::vector<FlowBox> boxes;
    std::vector<FlowWay> ways;
};
FlowChart flowchart();
