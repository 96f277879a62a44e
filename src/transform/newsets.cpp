#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>
#include <utility>

#include "data/gridpoints.h"
#include "expression/program.h"
#include "numeric/sngguard.h"
#include "plot/plotprob.h"
#include "session/session.h"
#include "shell/calcplot.h"
#include "transform/kernels.h"
#include "transform/sets.h"
#include "transform/transforms.h"

/// Transforms that make a new set: totals, histograms, and the data of one set beside the curve of another.

namespace {

/// The points that a record stands for.
double quantityof(const Cell& cell) { return std::max(1.0, std::floor(double{cell.quantity})); }

template <class... Parts>
std::string titleof(const Parts&... parts) {
    std::string title;
    wordclean(compose(title, parts...));
    return title;
}

// ---- totals ----

bool runningtotal(int set) {
    double sum = 0;
    const auto points = pointsmadeof(set, [&sum](std::size_t, Cell& cell) {
        sum += cell.y * quantityof(cell);
        return putresult(cell.y, sum);
    });
    return appendset(points, titleof(Word::Total, " Y ... ", Word::Set, " ", set));
}

std::vector<SetValue> valuesofall() {
    std::vector<SetValue> values;
    for (const int set : setswithpoints())
        for (const auto& point : gridpoints(set))
            if (point) values.push_back({point->x, set, point->y * quantityof(*point)});
    return values;
}

bool totalofall() {
    std::vector<Cell> points;
    int partial = 0, without = 0;
    for (const TotalAt& total : totalsbyx(valuesofall())) {
        Cell cell;
        cell.x = total.x;
        if (!putresult(cell.y, total.total)) {
            ++without;
            continue;
        }
        partial += total.ofall ? 0 : 1;
        points.push_back(cell);
    }
    if (without > 0) tell(Word::No, " ", Word::Results, " (", without, ")");
    if (!appendset(points, titleof(Word::Total, " Y"))) return false;
    if (partial > 0)
        tell(Word::Caution, ": ", Word::Not, " ", Word::All, " ", Word::Sets, " ", Word::Have, " ",
             Word::Same, " X (", partial, ")");
    return true;
}

// ---- data and curve ----

/// The fitted curve of a set as a function of x.
class Curve {
public:
    explicit Curve(int set) {
        const SetCurve& curve = session.curves(set);
        if (curve.fitmodel != 0) program = functionprogram(curve.code, curve.literals, modRemainder);
        memory.resize(static_cast<std::size_t>(program.memories));
    }
    /// A curve is a function of x alone.
    bool there() const { return program.fault == FunctionFault::none && program.columns == 0; }
    std::optional<double> at(double x) {
        FunctionRow row;
        row.x = x;
        const FunctionValue value = functionrow(program, row, memory);
        return value.fault ? std::nullopt : std::optional(value.value);
    }

private:
    FunctionProgram program;
    std::vector<FunctionMemory> memory;
};

/// Makes a set from the points of one set and what the curve of another gives at their X.
bool withcurve(const std::function<bool(Cell&, double)>& rule, std::string_view sign) {
    calcpending(); // the curves are those of the last cycle
    const int data = askset({Word::Set, "1", Word::Data}, 1);
    const int fit = data == 0 ? 0 : askset({Word::Set, "2", Word::Fit}, 2);
    if (fit == 0) return false;
    Curve curve(fit);
    if (!curve.there()) {
        tell(Word::Set, " ", fit, ": ", Word::No, " ", Word::Curve, " ", Word::Fit);
        return false;
    }
    return changegrid([&] {
        const auto points = pointsmadeof(data, [&](std::size_t, Cell& cell) {
            const auto fitted = curve.at(cell.x);
            return fitted && rule(cell, *fitted);
        });
        return appendset(points, titleof(Word::Set, " ", data, sign, Word::Set, " ", fit, " ", Word::Fit));
    });
}

// ---- histograms ----

struct WeightedPoint {
    double x = 0, y = 0, quantity = 1;
};

std::vector<WeightedPoint> pointsofset(int set) {
    std::vector<WeightedPoint> points;
    for (const auto& point : gridpoints(set))
        if (point) points.push_back({point->x, point->y, quantityof(*point)});
    return points;
}

/// Makes a histogram of weighted values a new set, and the plot one of bars. A value that counts several
/// times is as many values for the number of bars.
bool drawbars(const std::vector<WeightedValue>& values, double count, std::string_view title) {
    std::vector<Cell> points;
    for (const HistogramRow& row : histogramof(values, barnumber(count))) {
        Cell cell;
        if (putresult(cell.x, row.middle) && putresult(cell.y, row.total)) points.push_back(cell);
    }
    if (!appendset(points, title)) return false;
    session.barCount = sngguard(count);
    session.plotKind = barsStacked;
    return true;
}

/// What a point counts for in a histogram.
using ValueOf = WeightedValue (*)(const WeightedPoint&);

bool histogram(int set, ValueOf valueof, std::string_view title) {
    return changegrid([&] {
        std::vector<WeightedValue> values;
        double count = 0;
        for (const WeightedPoint& point : pointsofset(set)) {
            values.push_back(valueof(point));
            count += point.quantity;
        }
        return drawbars(values, count, title);
    });
}

} // namespace

bool totalofsets() {
    const int set = asksets({Word::Total, "Y-", Word::Value});
    if (set == 0) return false;
    return changegrid([set] { return set == allsets ? totalofall() : runningtotal(set); });
}

bool dataagainstfit() {
    return withcurve(
        [](Cell& cell, double fitted) {
            const float x = std::exchange(cell.x, cell.y);
            if (putresult(cell.y, fitted)) return true;
            cell.x = x;
            return false;
        },
        " vs. ");
}

bool datalessfit() {
    return withcurve([](Cell& cell, double fitted) { return putresult(cell.y, cell.y - fitted); }, " - ");
}

bool histogramofaxis() {
    const int set = askset({Word::Histogram, Word::Of, "1-", Word::Axis}, session.activeSet);
    if (set == 0) return false;
    const std::string axes[] = {titleof("X-", Word::Value), titleof("Y-", Word::Value)};
    switch (choosefrom({Word::Histogram, "...", Word::Axis}, axes, 0)) {
    case 0:
        return histogram(
            set,
            [](const WeightedPoint& p) {
                return WeightedValue{p.x, p.quantity};
            },
            titleof(Word::Histogram, " X ... ", Word::Set, " ", set));
    case 1:
        return histogram(
            set,
            [](const WeightedPoint& p) {
                return WeightedValue{p.y, p.quantity};
            },
            titleof(Word::Histogram, " Y ... ", Word::Set, " ", set));
    default: return false;
    }
}

bool histogramofboth() {
    const int set = askset({Word::Histogram, Word::From, "2-", Word::Axis}, session.activeSet);
    if (set == 0) return false;
    return histogram(
        set,
        [](const WeightedPoint& p) {
            return WeightedValue{p.x, p.y * p.quantity};
        },
        titleof(Word::Histogram, " X, Y ... ", Word::Set, " ", set));
}
