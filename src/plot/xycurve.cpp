#include "plot/xycurve.h"

#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <span>
#include <vector>

#include "curvefit/models.h"
#include "data/numbertext.h"
#include "expression/functionrun.h"
#include "expression/functiontext.h"
#include "expression/program.h"
#include "plot/drawing.h"
#include "plot/numbermask.h"
#include "plot/plotkind.h"
#include "plot/segment.h"
#include "plot/shown.h"
#include "plot/strokes.h"
#include "plot/transforms.h"
#include "shell/words.h"

namespace {

constexpr int firstSteps = 160; ///< of a curve across the window, halved where it bends
constexpr int halvings = 5;     ///< at most
constexpr double flat = 4;     ///< how far a curve may lie from its chord, canvas units: a quarter of a pixel
constexpr int rowSteps = 1000; ///< of a function that remembers: its steps are equal, and part of its value

struct Range {
    double low, high;
};

/// Where a fitted curve has a value. Outside the function machine would make numbers up: a logarithm of
/// -9e14, a power of e that is 0 on both sides.
class Domain {
public:
    Domain() = default; ///< everywhere
    explicit Domain(const SetCurve& curve) : model(modelofcode(static_cast<int>(curve.fitmodel))) {
        if (model && !model->ispolynomial() && curve.coefficients.size() == 2) {
            const double first = curve.coefficients[0];
            constant = curve.noLogarithm ? first : std::log(first);
            slope = curve.coefficients[1];
        } else {
            model.reset();
        }
    }
    bool holds(double x) const {
        if (!model) return true;
        if (model->swapped) return std::fabs(coordinateof(model->up, x) - constant) > 0;
        return std::fabs(constant + slope * coordinateof(model->across, x)) <= mostExponent;
    }

private:
    static constexpr double mostExponent = 70; ///< that the machine takes
    std::optional<CurveModel> model;           ///< of a curve that has bounds
    double constant = 0, slope = 0;
};

/// A function of x that a plot can draw.
class Traceable {
public:
    Traceable(std::string_view code, std::span<const double> literals, int16_t modSetting,
              const Domain& where = {})
        : program(functionprogram(code, literals, modSetting)),
          memory(static_cast<std::size_t>(program.memories)),
          domain(where) {}

    bool drawable() const { return program.fault == FunctionFault::none && program.columns == 0; }
    /// True when a value depends on the step it is taken at, or on those before it.
    bool stepwise() const {
        return program.memories > 0
               || std::any_of(program.steps.begin(), program.steps.end(),
                              [](const Step& step) { return step.kind == StepKind::row; });
    }

    /// Not a number where the function has no value.
    double at(double x, int step = 1) {
        if (!domain.holds(x)) return std::nan("");
        row.x = x;
        row.row = step;
        const FunctionValue result = functionrow(program, row, memory);
        return result.fault ? std::nan("") : result.value;
    }

    FunctionRow row{.rows = rowSteps}; ///< what x does not change

private:
    FunctionProgram program;
    std::vector<FunctionMemory> memory;
    Domain domain;
};

Traceable fittedfunction(int k) {
    const SetCurve& curve = session.curves(k);
    return {curve.code, curve.literals, modRemainder, Domain(curve)};
}

Traceable typedfunction() {
    Traceable function{session.fcode, functionliterals(), session.modSetting};
    function.row.y = session.fk;
    const int set = session.functionSet;
    if (set < 1 || set > setcount() || pointcount(set) == 0) return function;
    const ShownPoint last = shownpoint(set, pointcount(set));
    function.row.lastX = last.x;
    function.row.lastY = last.y;
    return function;
}

double dataxof(double plotx) {
    const Keep keep{session.ud};
    session.ud = plotx;
    txtxx2xd();
    return session.ud;
}

/// A place of the curve.
struct Node {
    double plotx = 0;
    CanvasPoint place;
    bool there = false;
};

/// Draws a function as a line without corners: equal steps on the plot scale, halved where the line bends.
class Tracer {
public:
    explicit Tracer(Traceable& traced) : function(traced) {}

    /// Over a part of the plot scale.
    void trace(Range plotx) {
        Node last = nodeat(plotx.low);
        emit(last);
        for (int i = 1; i <= firstSteps && plotting(); ++i) {
            const Node next = nodeat(plotx.low + (plotx.high - plotx.low) * i / firstSteps);
            advance(last, next, halvings);
            last = next;
        }
        emit({});
    }

    /// In equal steps of x, from the first to the last, whatever the window shows of them.
    void tracesteps(double low, double high) {
        for (int i = 0; i < rowSteps && plotting(); ++i) {
            const double x = low + (high - low) * i / (rowSteps - 1);
            const double y = function.at(x, i + 1);
            emit(hasplotx(x) ? nodeof(plotxof(x), y) : Node{});
        }
        emit({});
    }

private:
    Node nodeat(double plotx) { return nodeof(plotx, function.at(dataxof(plotx))); }

    static Node nodeof(double plotx, double y) {
        Node node{plotx, {canvasx(plotx), 0}, hasploty(y)};
        if (node.there) node.place.y = canvasy(plotyof(y));
        node.there = node.there && std::isfinite(node.place.y);
        return node;
    }

    void emit(const Node& node) {
        if (!node.there) {
            if (penDown) traceend();
        } else if (penDown) {
            traceto(node.place.x, node.place.y);
        } else {
            tracestart(node.place.x, node.place.y);
        }
        penDown = node.there;
    }

    static int sideof(double y) { return y < session.window.top ? -1 : y > session.window.bottom ? 1 : 0; }

    /// True when the parabola through two ends and their middle, all beyond one edge of the window, comes
    /// back into it.
    static bool returns(double from, double middle, double to) {
        const double bend = 2 * (from + to - 2 * middle), slope = 4 * middle - 3 * from - to;
        const double at = -slope / (2 * bend);
        return at > 0 && at < 1 && sideof(from + slope * at / 2) != sideof(from);
    }

    /// Goes on from a to b.
    void advance(const Node& a, const Node& b, int halvingsLeft) {
        if (!a.there && !b.there) {
            emit(b);
            return;
        }
        const Node middle = nodeat((a.plotx + b.plotx) / 2);
        const bool whole = a.there && b.there && middle.there;
        const int sides = a.there && b.there ? sideof(a.place.y) * sideof(b.place.y) : 0;
        const double bend = std::fabs(middle.place.y - (a.place.y + b.place.y) / 2);
        const bool outside = whole && sides > 0 && !returns(a.place.y, middle.place.y, b.place.y);
        if (halvingsLeft == 0 || outside || (whole && sides == 0 && bend <= flat)) {
            // From beyond one edge of the window to beyond the other within the least step: a steep line, or
            // a pole, where what lies between is farther away still.
            const auto [low, high] = std::minmax(a.place.y, b.place.y);
            const bool steep = whole && middle.place.y >= low && middle.place.y <= high;
            if (sides < 0 && !steep) emit({});
            emit(b);
            return;
        }
        advance(a, middle, halvingsLeft - 1);
        advance(middle, b, halvingsLeft - 1);
    }

    Traceable& function;
    bool penDown = false;
};

/// Part of the plot's X scale from `low` to `high` on the data scale that the window shows.
Range shownrange(double low, double high) {
    const PlotWindow& w = session.window;
    return {hasplotx(low) ? std::max(plotxof(low), w.xlow) : w.xlow,
            hasplotx(high) ? std::min(plotxof(high), w.xhigh) : w.xhigh};
}

/// Loads the pen of a curve, and puts the line registers back.
class CurvePen {
public:
    explicit CurvePen(int colour) {
        session.plotpen = static_cast<float>(colour);
        session.linewidth = static_cast<int16_t>(2 * std::clamp(std::abs(int{session.linewidth}), 1, 100));
    }

private:
    Keep<double, double, double, double, float, int16_t> keep{
        session.plotx1, session.ploty1, session.plotx2, session.ploty2, session.plotpen, session.linewidth};
};

/// A number at so many significant digits.
double rounded(double value, int digits) {
    if (value == 0 || !std::isfinite(value)) return value;
    std::array<char, 40> text;
    const auto written = std::to_chars(text.data(), text.data() + text.size(), value,
                                       std::chars_format::scientific, std::clamp(digits, 1, 17) - 1);
    double result = value;
    std::from_chars(text.data(), written.ptr, result);
    return result;
}

/// The text of a function with fewer digits, in the decimal symbol of the display.
std::string shorttext(const char* start, std::string_view code, std::span<const double> literals) {
    std::vector<double> numbers(literals.begin(), literals.end());
    for (double& number : numbers) number = rounded(number, session.maskDigits[fitUse]);
    std::string text = start + functiontext(code, numbers, functionCurve);
    wordnumber(text);
    return text;
}

/// A coefficient of a fit with its sign; a plus in front of none.
void appendcoefficient(std::string& text, double value, bool withPlus) {
    if (withPlus && !(value < 0)) text += '+';
    appendsignificant(text, value, session.maskDigits[fitUse]);
}

std::string polynomialtext(const SetCurve& curve) {
    std::string text = "y=";
    for (std::size_t i = 0; i < curve.coefficients.size(); ++i) {
        appendcoefficient(text, curve.coefficients[i], i > 0);
        if (i > 0) text += "*x";
        if (i > 1) text += "^" + std::to_string(i);
    }
    return text;
}

/// Of a model that is a straight line in coordinates of its own: a, or its logarithm within the exponent
/// where a itself is no number to be shown, and the slope.
std::string straighttext(const SetCurve& curve, const CurveModel& model) {
    const char* const of = model.swapped ? "y" : "x";
    std::string text = model.swapped ? "x=" : "y=";
    const bool power = model.across == Coordinate::logarithm;
    if (!curve.noLogarithm) {
        appendcoefficient(text, curve.coefficients[0], false);
        text += '*';
    }
    if (power && !curve.noLogarithm) {
        (text += of) += "^(";
        appendcoefficient(text, curve.coefficients[1], false);
        return text + ")";
    }
    text += "exp(";
    if (curve.noLogarithm) appendcoefficient(text, curve.coefficients[0], false);
    appendcoefficient(text, curve.coefficients[1], curve.noLogarithm);
    text += power ? "*ln(" : model.across == Coordinate::reciprocal ? "/" : "*";
    text += of;
    return text + (power ? "))" : ")");
}

} // namespace

bool curveshown(int k) {
    if (!xyplotted() || session.fitLinesHidden == 1 || k > session.curves.bound()) return false;
    const SetCurve& curve = session.curves(k);
    return curve.fitmodel != 0 && !curve.code.empty() && fittedfunction(k).drawable();
}

bool functiontyped() {
    return xyplotted() && session.functionShown == 1 && !session.fcode.empty() && typedfunction().drawable()
           && session.fxhigh > session.fxlow;
}

int functioncolour() {
    constexpr int setColours = 24;
    return setcount() % setColours + 1;
}

std::string curvetext(int k) {
    const SetCurve& curve = session.curves(k);
    const auto model = modelofcode(static_cast<int>(curve.fitmodel));
    if (!model || curve.coefficients.empty()) return {};
    std::string text = model->ispolynomial() ? polynomialtext(curve) : straighttext(curve, *model);
    wordnumber(text);
    return text;
}
std::string typedtext() { return shorttext("f(x)=", session.fcode, functionliterals()); }

void addfunction(DrawnRange& x, DrawnRange& y) {
    constexpr double tame = 10;
    const double low = session.fxlow, high = session.fxhigh;
    Traceable function = typedfunction();
    const int samples = function.stepwise() ? rowSteps - 1 : firstSteps;
    std::vector<double> values;
    for (int i = 0; i <= samples; ++i) {
        const double at = low + (high - low) * i / samples;
        const double value = function.at(at, i + 1);
        if (!hasplotx(at) || !hasploty(value)) continue;
        x.add(at);
        values.push_back(value);
    }
    if (values.empty()) return;
    std::sort(values.begin(), values.end());
    const auto at = [&](double part) {
        return values[static_cast<std::size_t>(part * static_cast<double>(values.size() - 1))];
    };
    const double bottom = at(0.05), top = at(0.95);
    y.add(values.front() < bottom - tame * (top - bottom) && top > bottom ? bottom : values.front());
    y.add(values.back() > top + tame * (top - bottom) && top > bottom ? top : values.back());
}

void plotcurve(int k) {
    const SetCurve& curve = session.curves(k);
    Traceable function = fittedfunction(k);
    Range plotx{session.window.xlow, session.window.xhigh};
    if (session.curveExtrapolated == 0) plotx = shownrange(curve.dataLow, curve.dataHigh);
    if (session.curveFrom != 0 && hasplotx(session.curveFrom))
        plotx.low = std::max(plotx.low, plotxof(session.curveFrom));
    if (!(plotx.high > plotx.low)) return;
    const CurvePen pen(colourofset(k));
    Tracer(function).trace(plotx);
}

void plottyped() {
    Traceable function = typedfunction();
    const double low = session.fxlow, high = session.fxhigh;
    const CurvePen pen(functioncolour());
    const Range plotx = shownrange(low, high);
    if (function.stepwise())
        Tracer(function).tracesteps(low, high);
    else if (plotx.high > plotx.low)
        Tracer(function).trace(plotx);
}
