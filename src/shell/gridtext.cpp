#include <algorithm>
#include <cmath>
#include <span>

#include "data/cell.h"
#include "data/numbertext.h"
#include "data/textpieces.h"
#include "session/session.h"
#include "shell/grid.h"
#include "shell/gridedit.h"
#include "shell/words.h"

/// The grid as text: one table of columns that writer and reader both walk.

namespace {

constexpr float censored = 3e33f;
constexpr float exactFrom = 2e29f;
constexpr std::string_view noteStart = "Note: X(X-Scale) Y(Y-Scale) Q(Quantity) ";
constexpr std::string_view noteEnd = "L(Label_Point)";
constexpr std::string_view suspended = "Susp", discovered = "Disc", occurred = "Occr", upperMark = " Upper";
constexpr std::string_view fieldMarks[] = {" X", " Y", " Q", " Z", " L"};
constexpr std::size_t fieldsOfSet = std::size(fieldMarks);

/// What the Z column of the input method holds.
std::string_view znote() {
    if (session.progSide != lifeSide) return "Z(3D) ";
    switch (session.inputType) {
    case prbt2: return "Z(Occr-Cumulative) ";
    case prbt3: return "Z(Sample Size) ";
    case km4: return "Z(Occr-In-Intv) ";
    case intv5: return "Z(Occr,Susp,Disc,Intv) ";
    default: return "Z(Occr,Susp) ";
    }
}

std::string numbered(float value) {
    std::string text;
    appendtrimmed(text, value);
    wordnumbermenu(text);
    return text;
}

/// A label cannot hold what separates cells and rows.
std::string oneline(std::string_view label) {
    std::string text(label);
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\t' || c == '\r' || c == '\n'; }, ' ');
    return text;
}

bool minussuspends() { return session.progSide == lifeSide && !negativedata(); }

std::string ztext(const Cell& cell) {
    if (cell.z > censored || (cell.x < 0 && minussuspends())) return std::string(suspended);
    if (cell.z < -censored) return std::string(discovered);
    if (cell.z == 0 || std::fabs(cell.z) > exactFrom)
        return session.progSide == lifeSide ? std::string(occurred) : numbered(cell.z);
    const bool interval = session.progSide == lifeSide && session.inputType == intv5;
    return numbered(cell.z) + (interval ? std::string(upperMark) : "");
}

void appendpoint(std::string& text, const std::string& cellText) {
    const Cell cell = cellsplit(cellText);
    if (!readablecell(cellText)) { // no point: its text goes as it is, a label alone in the column of labels
        const bool labelled = cellText.starts_with('_');
        text += labelled ? std::string() : oneline(cellText);
        text.append(fieldsOfSet - 1, '\t');
        if (labelled) text += oneline(cell.label);
        return;
    }
    const float x = minussuspends() ? std::fabs(cell.x) : cell.x;
    text += numbered(x) + '\t' + numbered(cell.y) + '\t' + numbered(cell.quantity) + '\t' + ztext(cell) + '\t'
            + oneline(cell.label);
}

/// A number of an exported text with the point that cells have everywhere.
std::string inownform(std::string_view number) {
    std::string text(number);
    wordnumbermenuback(text);
    return text;
}

/// One point of a row that was read; empty where no X stands.
std::string cellfrom(std::span<const std::string_view> fields) {
    const auto field = [&](std::size_t i) {
        return i < fields.size() ? trimmed(fields[i]) : std::string_view();
    };
    if (field(0).empty()) return field(4).empty() ? std::string() : "_" + std::string(field(4));
    if (!readablecell(inownform(field(0)))) return std::string(field(0));
    std::string_view z = field(3);
    std::string text(z == suspended ? ">" : z == discovered ? "<" : "");
    text += inownform(field(0));
    const bool plain = z.empty() || z == suspended || z == discovered || z == occurred || z == "0";
    if (z.ends_with(upperMark)) z.remove_suffix(upperMark.size());
    const bool short1 = plain && (field(2).empty() || field(2) == "1");
    const bool flat = field(1).empty() || field(1) == "0";
    if (!short1 || !flat || session.progSide != lifeSide) (text += 'x') += flat ? "0" : inownform(field(1));
    if (!short1) (text += 'x') += field(2).empty() ? "1" : inownform(field(2));
    if (!plain) (text += 'x') += inownform(z);
    if (!field(4).empty()) (text += '_') += field(4);
    return text;
}

std::vector<std::string_view> fieldsof(std::string_view line) {
    std::vector<std::string_view> fields;
    for (std::size_t at = 0;;) {
        const auto end = std::min(line.find('\t', at), line.size());
        fields.push_back(line.substr(at, end - at));
        if (end == line.size()) return fields;
        at = end + 1;
    }
}

} // namespace

std::string gridtext(const CellRange& range) {
    std::string text(noteStart);
    text += znote();
    text += noteEnd;
    text += doubleLineBreak;
    for (int set = range.firstCol; set <= range.lastCol; ++set)
        for (const std::string_view mark : fieldMarks) {
            if (set > range.firstCol || mark != fieldMarks[0]) text += '\t';
            (text += "Set" + std::to_string(set)) += mark;
        }
    text += lineBreak;
    for (int row = range.firstRow; row <= range.lastRow; ++row) {
        for (int set = range.firstCol; set <= range.lastCol; ++set) {
            if (set > range.firstCol) text += '\t';
            appendpoint(text, gridcell(set, row));
        }
        text += lineBreak;
    }
    return text;
}

std::string gridtext() {
    std::size_t longest = 0;
    for (const auto& column : session.gridCells) longest = std::max(longest, column.size());
    return gridtext({1, 1, static_cast<int>(longest), static_cast<int>(session.gridCells.size())});
}

std::optional<std::vector<std::vector<std::string>>> gridtextread(std::string_view text) {
    if (!text.starts_with(noteStart)) return std::nullopt;
    takeline(text);
    while (!text.empty() && trimmed(text.substr(0, text.find('\n'))).empty()) takeline(text);
    const std::size_t sets = (fieldsof(takeline(text)).size() + fieldsOfSet - 1) / fieldsOfSet;
    std::vector<std::vector<std::string>> cells(sets);
    while (!text.empty()) {
        const auto fields = fieldsof(takeline(text));
        const bool last = text.empty() && fields.size() == 1 && trimmed(fields[0]).empty();
        for (std::size_t set = 0; set < sets && !last; ++set) {
            const std::size_t from = std::min(set * fieldsOfSet, fields.size());
            const std::size_t count = std::min(fieldsOfSet, fields.size() - from);
            cells[set].push_back(cellfrom(std::span(fields).subspan(from, count)));
        }
    }
    return cells;
}
