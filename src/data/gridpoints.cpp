#include "data/gridpoints.h"

#include "data/numbertext.h"
#include "session/session.h"

const std::vector<std::string>& gridcellsof(int k) {
    static const std::vector<std::string> none;
    const auto column = static_cast<std::size_t>(k - 1);
    return k >= 1 && column < session.gridCells.size() ? session.gridCells[column] : none;
}

bool ispointtext(std::string_view text, const Cell& cell) {
    return cell.hasValue
           && (session.decimalSeparator == ","
               || text.substr(0, text.find('_')).find(',') == std::string_view::npos);
}

std::vector<std::optional<GridPoint>> gridpoints(int k) {
    std::vector<std::optional<GridPoint>> points;
    for (const std::string& text : gridcellsof(k)) {
        const Cell cell = cellsplit(text);
        points.emplace_back();
        if (ispointtext(text, cell)) points.back() = GridPoint{cell, cell.hasY};
    }
    return points;
}

std::optional<std::string> pointtext(const GridPoint& point) {
    const Cell& cell = point.cell;
    std::string text;
    appendtrimmed(text, cell.x);
    const float fields[] = {cell.y, cell.quantity, cell.z};
    const float silent[] = {0, 1, 0};
    int last = 2;
    const int least = point.hasY ? 0 : -1;
    while (last > least && fields[last] == silent[last]) --last;
    for (int i = 0; i <= last; ++i) {
        text += 'x';
        if (i > 0 || point.hasY) appendtrimmed(text, fields[i]);
    }
    if (!cell.label.empty()) (text += '_') += cell.label;
    const Cell again = cellsplit(text);
    const bool holds = again.hasValue && again.hasY == point.hasY && again.x == cell.x && again.y == cell.y
                       && again.quantity == cell.quantity && again.z == cell.z && again.label == cell.label;
    return holds ? std::optional(std::move(text)) : std::nullopt;
}
