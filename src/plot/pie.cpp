#include "plot/pie.h"

#include <cmath>
#include <numbers>
#include <utility>

#include "data/cell.h"
#include "data/settitle.h"
#include "plot/block.h"
#include "plot/drawing.h"
#include "plot/numbermask.h"
#include "plot/polygon.h"
#include "plot/segment.h"
#include "plot/shown.h"
#include "plot/strokes.h"
#include "plot/textroom.h"
#include "shell/prompts.h"

namespace {

constexpr std::size_t mostSlices = 24;              ///< there are as many colours
constexpr double squash = 0.55;                     ///< of a pie with a depth: its height to its width
constexpr double depthPart = 0.22;                  ///< of its radius
constexpr double labelSize = 0.85;                  ///< of the character size
constexpr double leastPart = 0.45, mostPart = 0.75; ///< of the room to each side: the radius

std::vector<int> shownsets() {
    std::vector<int> sets;
    for (int k = 1; k <= setcount(); ++k)
        if (setshown(k)) sets.push_back(k);
    return sets;
}

std::string nameofset(int k) {
    std::string name(titleofset(k));
    if (name.empty()) wordclean(compose(name, Word::Set, " ", k));
    return name;
}

std::string nameofpoint(int k, int j) {
    const auto& labels = session.pointLabels[static_cast<std::size_t>(k)];
    if (static_cast<std::size_t>(j) < labels.size() && !labels[static_cast<std::size_t>(j)].empty())
        return labels[static_cast<std::size_t>(j)];
    std::string name =
        "X = "
        + axislabel(static_cast<double>(session.X(static_cast<int>(rowofset(static_cast<float>(k))), j)),
                    session.maskDigits[axisUse]);
    wordnumber(name);
    return name;
}

/// Everything that has a slice, without names, for few of them may be shown; and what has none.
struct Shares {
    std::vector<PieSlice> slices;
    int pointsRefused = 0;
    int setsRefused = 0; ///< sets of several that are left without a point
};

Shares sharesofsession() {
    Shares shares;
    const std::vector<int> sets = shownsets();
    for (const int k : sets) {
        PieSlice whole{{}, 0, 0, colourofset(k), k};
        for (int j = 1; j <= pointcount(k); ++j) {
            const double y = shownpoint(k, j).y;
            if (!(y > 0) || !std::isfinite(y)) {
                ++shares.pointsRefused;
                continue;
            }
            const double value = y * pointquantity(k, j);
            whole.value += value;
            if (sets.size() == 1) shares.slices.push_back({{}, value, 0, 0, k, j});
        }
        if (sets.size() == 1) continue;
        if (whole.value > 0)
            shares.slices.push_back(std::move(whole));
        else
            ++shares.setsRefused;
    }
    return shares;
}

/// The smallest ones beyond the room become one; the others keep their order.
void mergesmall(std::vector<PieSlice>& slices) {
    if (slices.size() <= mostSlices) return;
    std::vector<double> values;
    for (const PieSlice& slice : slices) values.push_back(slice.value);
    const auto limit = values.begin() + (mostSlices - 2);
    std::nth_element(values.begin(), limit, values.end(), std::greater<>());
    std::vector<PieSlice> kept;
    PieSlice rest;
    int merged = 0;
    const double least = *limit;
    // Of several with the least value the first ones stay.
    auto ties = static_cast<std::ptrdiff_t>(mostSlices - 1)
                - std::count_if(slices.begin(), slices.end(),
                                [least](const PieSlice& slice) { return slice.value > least; });
    for (PieSlice& slice : slices) {
        if (slice.value > least || (slice.value == least && ties-- > 0)) {
            kept.push_back(std::move(slice));
            continue;
        }
        rest.value += slice.value;
        ++merged;
    }
    compose(rest.name, Word::Remaining, " (", merged, ")");
    wordclean(rest.name);
    kept.push_back(std::move(rest));
    slices = std::move(kept);
}

/// A share in percent, with as many digits as it takes not to pass for the whole pie.
std::string sharetext(double share) {
    constexpr int fewestDigits = 3, mostDigits = 6;
    constexpr const char* whole = "100";
    int digits = fewestDigits;
    std::string text = axislabel(100 * share, digits);
    while (share < 1 && text == whole && digits < mostDigits) text = axislabel(100 * share, ++digits);
    if (share < 1 && text == whole) text = ">99.9999";
    wordnumber(text);
    return text + "%";
}

std::string labelof(const PieSlice& slice) { return slice.name + " " + sharetext(slice.share); }

struct Pie {
    CanvasPoint centre;
    double across, down, depth;
    /// A place on the rim, part of the way round from the top.
    CanvasPoint rim(double part, double factor = 1) const {
        const double angle = 2 * std::numbers::pi * part;
        return {centre.x + factor * across * std::sin(angle), centre.y - factor * down * std::cos(angle)};
    }
};

Pie discof(const Layout& layout, double labelWidth) {
    const PlotWindow& w = session.window;
    const bool deep = session.plotKind == pie3D;
    const double roomX = (w.right - w.left) / 2, roomY = (w.bottom - w.top) / 2 - 2.2 * layout.size;
    Pie disc{{(w.left + w.right) / 2, (w.top + w.bottom) / 2}, 0, 0, 0};
    // The labels have their room first, as far as that leaves a pie.
    disc.across = std::clamp((roomX - labelWidth - layout.size) / 1.08, leastPart * roomX, mostPart * roomX);
    const double tall = deep ? squash + depthPart / 2 : 1;
    disc.across = std::max(std::min(disc.across, roomY / tall), 0.0);
    disc.down = deep ? squash * disc.across : disc.across;
    disc.depth = deep ? depthPart * disc.across : 0;
    disc.centre.y -= disc.depth / 2;
    return disc;
}

/// Points of the rim from one part of the way round to another, fine enough for a round edge.
std::vector<CanvasPoint> arc(const Pie& disc, double from, double to, double lower = 0) {
    const double pixels = disc.across / 15;
    const double wholeSteps = std::clamp(2.5 * std::sqrt(pixels) * 4, 60.0, 400.0);
    const int steps = std::max(1, static_cast<int>(std::ceil(wholeSteps * (to - from))));
    std::vector<CanvasPoint> points;
    for (int i = 0; i <= steps; ++i) {
        points.push_back(disc.rim(from + (to - from) * i / steps));
        points.back().y += lower;
    }
    return points;
}

void filled(const std::vector<CanvasPoint>& corners, int colour, Fill fill) {
    fillpolygon(corners, colour, fill);
    outlinepolygon(corners, frameColour);
}

/// The side of a slice below the front rim, which runs from a quarter to three quarters of the way round.
void wall(const Pie& disc, double from, double to, int colour) {
    from = std::max(from, 0.25);
    to = std::min(to, 0.75);
    if (!(to > from)) return;
    std::vector<CanvasPoint> corners = arc(disc, from, to);
    const std::vector<CanvasPoint> foot = arc(disc, from, to, disc.depth);
    corners.insert(corners.end(), foot.rbegin(), foot.rend());
    filled(corners, colour, Fill::light);
}

void top(const Pie& disc, double from, double to, int colour) {
    std::vector<CanvasPoint> corners = arc(disc, from, to);
    if (to - from < 1) corners.push_back(disc.centre);
    filled(corners, colour, Fill::full);
}

/// Where the label of a slice stands: beside the rim, tied to it by a line.
struct SliceLabel {
    const PieSlice* slice;
    CanvasPoint rim;
    double y;
    bool right;
};

/// The labels of one side of the pie from its top down, as far apart as their lines; the smallest slices give
/// way where there is no room.
void spread(std::vector<SliceLabel>& labels, double topY, double bottomY, double line) {
    const auto room = static_cast<std::size_t>(std::max(0.0, (bottomY - topY) / line + 1));
    while (labels.size() > room)
        labels.erase(std::min_element(labels.begin(), labels.end(), [](const auto& a, const auto& b) {
            return a.slice->share < b.slice->share;
        }));
    std::sort(labels.begin(), labels.end(), [](const auto& a, const auto& b) { return a.y < b.y; });
    double least = topY;
    for (SliceLabel& label : labels) {
        label.y = std::max(label.y, least);
        least = label.y + line;
    }
    double most = bottomY;
    for (auto label = labels.rbegin(); label != labels.rend(); ++label) {
        label->y = std::min(label->y, most);
        most = label->y - line;
    }
}

void drawlabels(const Pie& disc, std::vector<SliceLabel>& labels, double size, TextRoom& room) {
    const PlotWindow& w = session.window;
    const double line = 1.4 * size;
    spread(labels, w.top + line, w.bottom - line, line);
    for (const SliceLabel& label : labels) {
        const double sign = label.right ? 1 : -1;
        const double elbow = disc.centre.x + sign * 1.08 * disc.across;
        const double edge = elbow + sign * 0.6 * size;
        const double space = label.right ? w.right - edge : edge - w.left;
        // A name may be cut, a number never.
        const std::string share = " " + sharetext(label.slice->share);
        const std::string text =
            fittedtext(label.slice->name, size, space - plottextwidth(share, size)) + share;
        const double left = label.right ? edge : edge - plottextwidth(text, size);
        session.plotpen = frameColour;
        if (!room.place(text, left, label.y + 0.35 * size, size)) continue;
        session.plotpen = decadeColour;
        tracestart(label.rim.x, label.rim.y);
        traceto(elbow, label.y);
        traceto(edge - sign * 0.2 * size, label.y);
        traceend();
    }
}

} // namespace

std::vector<PieSlice> pieslices() {
    std::vector<PieSlice> slices = sharesofsession().slices;
    const bool ofpoints = shownsets().size() == 1;
    mergesmall(slices);
    double total = 0;
    for (const PieSlice& slice : slices) total += slice.value;
    // A slice beside others is not the whole, however small they are.
    const double mostShare = slices.size() > 1 ? std::nextafter(1.0, 0.0) : 1.0;
    int colour = 0;
    for (PieSlice& slice : slices) {
        slice.share = std::min(slice.value / total, mostShare);
        if (slice.set > 0)
            slice.name = slice.point > 0 ? nameofpoint(slice.set, slice.point) : nameofset(slice.set);
        if (ofpoints) slice.colour = ++colour;
    }
    return slices;
}

void tellpierefused() {
    const Shares shares = sharesofsession();
    if (shares.pointsRefused == 0) return;
    compose(session.msg, "Y-", Word::Value, " <= 0 ... ", shares.pointsRefused, " ", Word::Point);
    if (shares.setsRefused > 0) extend(session.msg, ", ", shares.setsRefused, " ", Word::Set);
    extend(session.msg, " ", Word::Not, " ", Word::On, " ", Word::Plot);
    tellok();
}

std::vector<std::string> pieleftout() {
    const Shares shares = sharesofsession();
    std::vector<std::string> lines;
    const auto tellcount = [&lines](int count, Word unit) {
        if (count == 0) return;
        std::string& line = lines.emplace_back();
        wordclean(compose(line, "Y <= 0 = ", count, " ", unit));
    };
    tellcount(shares.pointsRefused, Word::Point);
    tellcount(shares.setsRefused, Word::Set);
    return lines;
}

void pielegend(std::vector<BlockLine>& lines) {
    const std::vector<PieSlice> slices = pieslices();
    if (slices.empty()) return;
    lines.push_back({"LEGEND", frameColour});
    std::size_t column = 6;
    for (const PieSlice& slice : slices) column = std::clamp<std::size_t>(slice.name.size() + 2, column, 24);
    for (const PieSlice& slice : slices) {
        BlockLine line{withoutcolumns(slice.name), frameColour, setmark(1), 0, slice.colour};
        extend(line.text, "[[TAB", column < 10 ? "0" : "", static_cast<int>(column), sharetext(slice.share));
        lines.push_back(std::move(line));
    }
}

void drawpie(const Layout& layout) {
    const Keep keep{session.plotx1, session.ploty1, session.plotx2, session.ploty2, session.plotpen};
    const std::vector<PieSlice> slices = pieslices();
    double labelWidth = 0;
    for (const PieSlice& slice : slices)
        labelWidth = std::max(labelWidth, plottextwidth(labelof(slice), labelSize * layout.size));
    const Pie disc = discof(layout, labelWidth);
    if (!(disc.across > 0)) return;
    std::vector<SliceLabel> left, right;
    double from = 0;
    for (const PieSlice& slice : slices) {
        const double to = &slice == &slices.back() ? 1 : from + slice.share;
        if (disc.depth > 0) wall(disc, from, to, slice.colour);
        const double middle = (from + to) / 2;
        CanvasPoint rim = disc.rim(middle);
        if (middle > 0.25 && middle < 0.75) rim.y += disc.depth;
        const bool onRight = middle <= 0.5;
        const double y = disc.rim(middle, 1.12).y + (rim.y - disc.rim(middle).y);
        (onRight ? right : left).push_back({&slice, rim, y, onRight});
        from = to;
    }
    from = 0;
    for (const PieSlice& slice : slices) {
        const double to = &slice == &slices.back() ? 1 : from + slice.share;
        top(disc, from, to, slice.colour);
        from = to;
    }
    const PlotWindow& w = session.window;
    TextRoom room({w.left, w.top, w.right, w.bottom});
    drawlabels(disc, left, labelSize * layout.size, room);
    drawlabels(disc, right, labelSize * layout.size, room);
}
