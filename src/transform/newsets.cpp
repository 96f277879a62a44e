#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>
#include <utility>

#include "curvefit/curvesmain.h"
#include "curvefit/curvevalue.h"
#include "data/gridpoints.h"
#include "numeric/sngguard.h"
#include "plot/plotprob.h"
#include "session/session.h"
#include "shell/calcplot.h"
#include "transform/kernels.h"
#include "transform/sets.h"
#include "transform/transforms.h"

/// Transforms that make a new set: totals, histograms, and the data of one set beside the curve of another.

namespace {

// The points of a set that a new one can be made of.
bool hasy(std::size_t, GridPoint& point) { return point.hasY; }
bool anypoint(std::size_t, GridPoint&) { return true; }

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
    const auto points = pointsmadeof(set, [&sum](std::size_t, GridPoint& point) {
        if (!point.hasY) return false;
        sum += point.cell.y * quantityof(point.cell);
        return putresult(point.cell.y, sum);
    });
    return appendset(points, titleof(Word::Total, " Y ... ", Word::Set, " ", set));
}

std::vector<SetValue> valuesofall() {
    std::vector<SetValue> values;
    for (const int set : setswithpoints())
        for (const Cell& cell : pointsmadeof(set, hasy))
            values.push_back({cell.x, set, cell.y * quantityof(cell)});
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

/// Makes a set from the points of one set and what the curve of another gives at their X, where it has a
/// value there.
bool withcurve(const std::function<bool(Cell&, double)>& rule, std::string_view sign) {
    calcpending(); // the curves are those of the last cycle
    const int data = askset({Word::Set, "1", Word::Data}, 1);
    const int fit = data == 0 ? 0 : askset({Word::Set, "2", Word::Fit}, 2);
    if (fit == 0) return false;
    if (!hascurve(fit)) {
        tell(Word::Set, " ", fit, ": ", Word::No, " ", Word::Curve, " ", Word::Fit);
        return false;
    }
    return changegrid([&] {
        const auto points = pointsmadeof(data, [&](std::size_t, GridPoint& point) {
            const double fitted = fitusex2y(session.curves(fit), point.cell.x);
            return point.hasY && std::isfinite(fitted) && rule(point.cell, fitted);
        });
        return appendset(points, titleof(Word::Set, " ", data, sign, Word::Set, " ", fit, " ", Word::Fit));
    });
}

// ---- histograms ----

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
using ValueOf = WeightedValue (*)(const Cell&);

bool histogram(int set, const PointRule& counted, ValueOf valueof, std::string_view title) {
    return changegrid([&] {
        std::vector<WeightedValue> values;
        double count = 0;
        for (const Cell& cell : pointsmadeof(set, counted)) {
            values.push_back(valueof(cell));
            count += quantityof(cell);
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
            set, anypoint,
            [](const Cell& p) {
                return WeightedValue{p.x, quantityof(p)};
            },
            titleof(Word::Histogram, " X ... ", Word::Set, " ", set));
    case 1:
        return histogram(
            set, hasy,
            [](const Cell& p) {
                return WeightedValue{p.y, quantityof(p)};
            },
            titleof(Word::Histogram, " Y ... ", Word::Set, " ", set));
    default: return false;
    }
}

bool histogramofboth() {
    const int set = askset({Word::Histogram, Word::From, "2-", Word::Axis}, session.activeSet);
    if (set == 0) return false;
    return histogram(
        set, hasy,
        [](const Cell& p) {
            return WeightedValue{p.x, p.y * quantityof(p)};
        },
        titleof(Word::Histogram, " X, Y ... ", Word::Set, " ", set));
}
