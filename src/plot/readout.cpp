#include "plot/readout.h"

#include <array>
#include <cmath>

#include "data/cell.h"
#include "data/numbertext.h"
#include "plot/bars.h"
#include "plot/functionplot.h"
#include "plot/plotkind.h"
#include "plot/shown.h"
#include "plot/transforms.h"
#include "session/session.h"
#include "shell/words.h"

namespace {

constexpr int digits = 4; ///< more than a pixel can tell

double through(void (*back)(), double place) {
    const Keep keep{session.ud};
    session.ud = place;
    back();
    return session.ud;
}

/// How the probability axis shows a probability, by YScaleKind.
struct YSpelling {
    double unit;
    bool reliability;
    const char* sign;
};
constexpr std::array<YSpelling, 6> ySpellings = {{{100, false, "%"},
                                                  {100, true, "%"},
                                                  {1, false, ""},
                                                  {1, true, ""},
                                                  {1000, false, "/1000"},
                                                  {1000, true, "/1000"}}};

std::string shownnumber(double value) {
    std::string text;
    appendsignificant(text, value, digits);
    wordnumber(text);
    return text;
}

std::string shownordinate(double y) {
    if (session.plotMode != 1 || functionplotted()) return shownnumber(y);
    const auto kind = static_cast<std::size_t>(session.yScaleKind);
    const YSpelling& spelling = ySpellings[kind < ySpellings.size() ? kind : 0];
    return shownnumber(spelling.unit * (spelling.reliability ? 1 - y : y)) + spelling.sign;
}

/// Points of one set, behind those of the sets before it.
void placeset(std::vector<PlacedPoint>& placed, const PlotWindow& w, int k) {
    for (int j = 1; j <= pointcount(k); j += pointstep()) {
        const ShownPoint point = shownpoint(k, j);
        if (!point.placed || !hasplotx(point.x) || (!point.suspended && !hasploty(point.y))) continue;
        const double x = w.left + (plotxof(point.x) - w.xlow) * w.xfactor;
        const double y = point.suspended ? w.bottom : w.bottom - (plotyof(point.y) - w.ylow) * w.yfactor;
        if (x < w.left || x > w.right || y < w.top || y > w.bottom) continue;
        PlacedPoint& one = placed.emplace_back();
        one.x = static_cast<float>(x);
        one.y = static_cast<float>(y);
        one.set = k;
        one.point = j;
        one.suspended = point.suspended;
    }
}

/// The ends of the bars.
std::vector<PlacedPoint> placedbars(const PlotWindow& w) {
    std::vector<PlacedPoint> placed;
    for (const PlotBar& bar : plotbars()) {
        const double x = w.left + ((bar.low + bar.high) / 2 - w.xlow) * w.xfactor;
        const double y = w.bottom - (bar.to - w.ylow) * w.yfactor;
        if (x < w.left || x > w.right || y < w.top || y > w.bottom) continue;
        placed.push_back({static_cast<float>(x), static_cast<float>(y), bar.set, bar.point, false, bar.count,
                          bar.x, bar.value});
    }
    return placed;
}

/// The marks of suspensions stand a little above the foot of the plot, by the size of the marks: all of that
/// height belongs to them.
constexpr double footHeight = 400;

double distance(const PlacedPoint& point, double x, double y) {
    double down = std::fabs(y - static_cast<double>(point.y));
    if (point.suspended) down = y < static_cast<double>(point.y) ? std::fmax(0.0, down - footHeight) : down;
    return std::hypot(x - static_cast<double>(point.x), down);
}

std::string labelof(const PlacedPoint& one) {
    const Keep keep{session.msg};
    session.msg.clear();
    pointlabelget(one.set, one.point);
    return session.msg.empty() ? std::string() : " _" + session.msg;
}

/// The point as it was entered: its value with the mark of a suspension, the ordinate of an X-Y plot, the
/// label.
std::string entered(const PlacedPoint& one) {
    const int row = static_cast<int>(rowofset(static_cast<float>(one.set)));
    std::string text = one.suspended ? ">" : "";
    text += shownnumber(pointvalue(one.set, one.point));
    if (session.plotMode != 1) text += "x" + shownnumber(static_cast<double>(session.Y(row, one.point)));
    return text + labelof(one);
}

void appendbar(std::string& text, const PlacedPoint& bar) {
    extend(text, "   ", Word::Set, " ", bar.set);
    if (bar.barCount == 1) extend(text, " ", Word::Point, " ", bar.point);
    extend(text, ": X = ", AsTyped{shownnumber(bar.barX)}, "   Y = ", AsTyped{shownnumber(bar.barValue)});
    if (bar.barCount == 1)
        extend(text, AsTyped{labelof(bar)});
    else
        extend(text, " (", bar.barCount, " ", Word::Point, ")");
}

} // namespace

std::vector<PlacedPoint> placedpoints(const PlotWindow& window) {
    std::vector<PlacedPoint> placed;
    if (session.pointHide != 0 || functionplotted() || pieplotted() || spaceplotted()) return placed;
    if (barsplotted()) return placedbars(window);
    for (int k = 1; k <= setcount(); ++k)
        if (setshown(k)) placeset(placed, window, k);
    return placed;
}

std::optional<PlacedPoint> nearestpoint(std::span<const PlacedPoint> points, double canvasx, double canvasy,
                                        double reach) {
    std::optional<PlacedPoint> nearest;
    double least = reach;
    for (const PlacedPoint& point : points) {
        const double away = distance(point, canvasx, canvasy);
        if (away > least || (nearest && away == least)) continue;
        nearest = point;
        least = away;
    }
    return nearest;
}

std::optional<PlotPlace> plotplace(const PlotWindow& w, double canvasx, double canvasy) {
    if (!(w.right > w.left) || !(w.bottom > w.top) || w.xfactor == 0 || w.yfactor == 0) return std::nullopt;
    if (canvasx < w.left || canvasx > w.right || canvasy < w.top || canvasy > w.bottom) return std::nullopt;
    const FunctionAxes axes;
    return PlotPlace{through(txtxx2xd, w.xlow + (canvasx - w.left) / w.xfactor),
                     through(txtxy2yd, w.ylow + (w.bottom - canvasy) / w.yfactor)};
}

std::string readouttext(const PlotPlace& place, const std::optional<PlacedPoint>& nearest) {
    std::string text;
    compose(text, "X = ", AsTyped{shownnumber(place.x)}, "   Y = ", AsTyped{shownordinate(place.y)});
    if (nearest && nearest->barCount > 0)
        appendbar(text, *nearest);
    else if (nearest)
        extend(text, "   ", Word::Set, " ", nearest->set, " ", Word::Point, " ", nearest->point, ": ",
               AsTyped{entered(*nearest)});
    wordclean(text);
    return text;
}
