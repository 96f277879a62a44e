#include "expression/functionrun.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string>

#include "data/cell.h"
#include "data/gridpoints.h"
#include "expression/functionnotices.h"
#include "expression/program.h"
#include "expression/tokens.h"
#include "numeric/sngguard.h"
#include "session/session.h"

namespace {

constexpr int columnOperands = 10;

/// On a probability plot a minus sign marks a suspension where it does not make a value.
bool signmarks() { return session.plotMode == 1 && !negativedata(); }

double valueofx(float x) { return signmarks() ? std::fabs(x) : x; }

/// The columns that the function names, read once a run. x0 is the set that x comes from, x1 to x9 are sets 1
/// to 9; a row that a set does not have counts as 0.
class Columns {
public:
    Columns(uint16_t used, int set) {
        for (int d = 0; d < columnOperands; ++d)
            if (used & 1 << d) points[d] = gridpoints(d == 0 ? set : d);
    }
    const double* row(std::size_t at) {
        for (std::size_t d = 0; d < points.size(); ++d)
            values[d] = at < points[d].size() && points[d][at] ? valueofx(points[d][at]->cell.x) : 0;
        return values.data();
    }

private:
    std::array<std::vector<std::optional<GridPoint>>, columnOperands> points;
    std::array<double, columnOperands> values{};
};

/// A row of the run: where it stands in the grid, and what it offers.
struct RunRow {
    std::size_t place = 0;
    float x = 0; ///< X of the point
    FunctionRow values;
};

struct RunRows {
    std::vector<RunRow> rows;
    RowsWithout without; ///< rows of the set that lack what the function reads
};

bool reads(const FunctionProgram& program, StepKind kind) {
    return std::any_of(program.steps.begin(), program.steps.end(),
                       [kind](const Step& step) { return step.kind == kind; });
}

/// The rows that both of two sets have, with the Y of both where the operands are those.
RunRows rowsofboth(int set) {
    const bool ofY = session.functionMode == functionTwoSetsY;
    const auto first = gridpoints(set), second = gridpoints(session.functionSetB);
    const auto operand = [ofY](const GridPoint& point) {
        return ofY ? point.cell.y : valueofx(point.cell.x);
    };
    RunRows run;
    for (std::size_t at = 0; at < first.size(); ++at) {
        if (!first[at]) continue;
        if (at >= second.size() || !second[at] || (ofY && !(first[at]->hasY && second[at]->hasY))) {
            run.without.add(at);
            continue;
        }
        FunctionRow values;
        values.x = operand(*first[at]);
        values.y = operand(*second[at]);
        values.row = static_cast<double>(run.rows.size() + 1);
        run.rows.push_back({at, static_cast<float>(valueofx(first[at]->cell.x)), values});
    }
    for (RunRow& row : run.rows) {
        row.values.rows = static_cast<double>(run.rows.size());
        row.values.lastX = run.rows.back().values.x;
        row.values.lastY = run.rows.back().values.y;
    }
    return run;
}

/// The rows of a set. One without a Y keeps its number where the function reads Y, and has no result; the
/// last y is the last that there is.
RunRows rowsofone(int set, const FunctionProgram& program) {
    const bool hasK = session.functionMode < functionY;
    const bool readsY = !hasK && reads(program, StepKind::y);
    RunRows run;
    FunctionRow last;
    bool anyY = false;
    const auto points = gridpoints(set);
    for (std::size_t at = 0; at < points.size(); ++at) {
        if (!points[at]) continue;
        const auto& [cell, hasY] = *points[at];
        last.x = valueofx(cell.x);
        if (hasY) last.y = cell.y;
        anyY = anyY || hasY;
        ++last.row;
        if (readsY && !hasY)
            run.without.add(at);
        else
            run.rows.push_back({at,
                                static_cast<float>(last.x),
                                {.x = last.x, .y = hasK ? session.fk : cell.y, .row = last.row}});
    }
    if (!anyY && reads(program, StepKind::lastY)) {
        for (const RunRow& row : run.rows) run.without.add(row.place);
        run.rows.clear();
    }
    for (RunRow& row : run.rows) {
        row.values.rows = last.row;
        row.values.lastX = last.x;
        row.values.lastY = last.y;
    }
    return run;
}

/// The text of the cell with the result in it; nothing when the cell cannot hold it.
std::optional<std::string> textofresult(GridPoint point, float result) {
    const bool isX = givesx(session.functionMode);
    float& field = isX ? point.cell.x : point.cell.y;
    if (isX && signmarks()) {
        if (!(result > 0)) return std::nullopt;
        result = std::copysign(result, point.cell.x);
    }
    field = result;
    point.hasY = point.hasY || !isX;
    return pointtext(point);
}

struct Result {
    std::size_t place;
    std::string text;
};

/// Evaluates every row. The cells stand untouched meanwhile.
std::vector<Result> resultsofrun(const FunctionProgram& program, int target, RowFailures& failures) {
    const auto present = gridpoints(target);
    const int set = session.functionMode < functionY ? target : session.functionSet;
    Columns columns(program.columns, set);
    std::vector<FunctionMemory> memory(static_cast<std::size_t>(program.memories));
    std::vector<Result> results;
    RunRows run = oftwosets(session.functionMode) ? rowsofboth(set) : rowsofone(set, program);
    for (RunRow& row : run.rows) {
        if (program.columns) row.values.columns = columns.row(row.place);
        const FunctionValue value = functionrow(program, row.values, memory);
        if (value.fault) {
            failures.add(value.fault, row.values.row);
            continue;
        }
        GridPoint point;
        point.cell.x = row.x;
        if (row.place < present.size() && present[row.place]) point = *present[row.place];
        auto text = textofresult(point, sngguard(value.value));
        if (text)
            results.push_back({row.place, std::move(*text)});
        else
            failures.add(outsideRange, row.values.row);
    }
    run.without.tell(set);
    return results;
}

void writeresults(std::vector<Result>& results, int target) {
    if (results.empty()) return;
    const auto column = static_cast<std::size_t>(target - 1);
    if (session.gridCells.size() <= column) session.gridCells.resize(column + 1);
    auto& cells = session.gridCells[column];
    for (Result& result : results) {
        if (cells.size() <= result.place) cells.resize(result.place + 1);
        cells[result.place] = std::move(result.text);
    }
}

/// The program of the session's function; told when it cannot run.
FunctionProgram programofsession() {
    FunctionProgram program = functionprogram(session.fcode, functionliterals(), session.modSetting);
    if (program.fault != FunctionFault::none) tellfunctionfault(program);
    return program;
}

/// A target that has both coordinates, or a function that asks for no second one.
bool dimensionsfit(const FunctionProgram& program, int target) {
    const bool needsY = !givesx(session.functionMode) || (program.usesY && !oftwosets(session.functionMode));
    if (session.plotMode != 1 || !needsY) return true;
    telltwodimensional(target);
    return false;
}

bool runtarget(int target) {
    const FunctionProgram program = programofsession();
    if (program.fault != FunctionFault::none || !dimensionsfit(program, target)) return false;
    RowFailures failures;
    std::vector<Result> results = resultsofrun(program, target, failures);
    writeresults(results, target);
    failures.tell(target);
    return !results.empty();
}

bool inwindow(const FunctionPoint& point, const FunctionWindow& window) {
    const auto between = [](double low, double high, double value) {
        return !(low < high) || (value >= low && value <= high);
    };
    return between(window.xlow, window.xhigh, point.x) && between(window.ylow, window.yhigh, point.y);
}

/// The last x and y of the current set, for a curve drawn through it.
void lastofset(FunctionRow& row) {
    const auto points = gridpoints(session.functionSet);
    for (const auto& point : points) {
        if (!point) continue;
        row.lastX = valueofx(point->cell.x);
        if (point->hasY) row.lastY = point->cell.y;
    }
}

std::vector<FunctionPoint> tracecurve(int points, const FunctionWindow& window, bool& any) {
    const FunctionProgram program = programofsession();
    if (program.fault != FunctionFault::none) return {};
    Columns columns(program.columns, session.functionSet);
    std::vector<FunctionMemory> memory(static_cast<std::size_t>(program.memories));
    RowFailures failures;
    std::vector<FunctionPoint> curve;
    FunctionRow row;
    lastofset(row);
    row.y = session.fk;
    row.rows = points;
    const double low = session.fxlow;
    const double span = session.fxhigh - low;
    for (int i = 0; i < points; ++i) {
        FunctionPoint point;
        point.x =
            i + 1 == points && i > 0 ? session.fxhigh : sngguard(low + span * i / std::max(points - 1, 1));
        row.x = point.x;
        row.row = i + 1;
        if (program.columns) row.columns = columns.row(static_cast<std::size_t>(i));
        const FunctionValue value = functionrow(program, row, memory);
        if (value.fault) {
            failures.add(value.fault, row.row);
            continue;
        }
        any = true;
        point.y = sngguard(value.value);
        if (inwindow(point, window)) curve.push_back(point);
    }
    failures.tell(session.functionSet);
    return curve;
}

} // namespace

bool functionrun(int target) {
    if (session.functionRunning) return false;
    const Keep keep{session.functionRunning};
    session.functionRunning = true;
    const bool exists = target >= 1 && static_cast<float>(target) <= session.maxSets;
    if (exists && runtarget(target)) return true;
    if (!exists) tellnotarget();
    functionundo();
    return false;
}

std::vector<FunctionPoint> functioncurve(int points, const FunctionWindow& window) {
    if (session.functionRunning) return {};
    const Keep keep{session.functionRunning};
    session.functionRunning = true;
    bool any = false;
    auto curve = tracecurve(points, window, any);
    if (!any) functionundo();
    return curve;
}

std::span<const double> functionliterals() {
    const auto held = static_cast<float>(session.flits.size());
    const float count = std::clamp(session.flitcount, 0.0f, std::max(held - 1, 0.0f));
    return std::span(session.flits)
        .last(session.flits.empty() ? 0 : session.flits.size() - 1)
        .first(static_cast<std::size_t>(count));
}

void functionclose() {
    const int open = functionprogram(session.fcode, functionliterals(), session.modSetting).openBrackets;
    for (int i = 0; i < open; ++i) session.fcode += "89";
}

void functionkeep() {
    functionclose();
    session.fcodeSaved = session.fcode;
    session.flitsSaved = session.flits;
}

void functionundo() {
    if (session.fcodeSaved.empty()) return;
    session.fcode = session.fcodeSaved;
    session.flits = session.flitsSaved;
    session.flitcount = static_cast<float>(session.flits.size()) - 1;
}
