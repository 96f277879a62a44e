#include "data/cell.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <new>

#include "data/numbertext.h"
#include "numeric/sngguard.h"
#include "session/session.h"

namespace {

constexpr float readAborted = -8e32f; ///< left in u by a reader that gave up; never the value of a point
constexpr float censored = 3e33f;     ///< a Z beyond it, to either side, is a sentinel
constexpr float uncensored = 2e29f;   ///< up to it a Z is a value; from there to `censored` an exact point

struct Field {
    float value = 0;
    bool given = false;
};

Field readfield(std::string_view text) {
    if (text.empty()) return {};
    const NumberText number = readentry(text);
    const float value = sngguard(number.value);
    if (!number.readable || value == static_cast<float>(noAnswer) || value == readAborted) return {};
    return {value, true};
}

/// The texts of a cell, not read yet.
struct Parts {
    std::array<std::string_view, 4> fields; ///< X, Y, Q, Z
    std::string_view label;
};

/// One walk over the cell: it is the innermost step of reading a grid.
Parts partsof(std::string_view text) {
    Parts parts;
    std::size_t count = 0;
    std::size_t start = 0;
    const auto endfield = [&](std::size_t at) {
        if (count < parts.fields.size()) parts.fields[count++] = text.substr(start, at - start);
        start = at + 1;
    };
    std::size_t at = 0;
    for (; at < text.size(); ++at) {
        const char c = text[at];
        if (c == 'x' || c == 'X' || c == '*') endfield(at);
        if (c == '\r' || c == '\n' || c == '\t') break;
        if (c == '_') {
            const std::string_view label = text.substr(at + 1);
            parts.label = label.substr(0, label.find_first_of("\r\n\t"));
            break;
        }
    }
    endfield(at);
    return parts;
}

/// The X field with marks: `lower` stands behind ">", `upper` behind "<".
void readmarked(std::string_view text, Cell& cell) {
    const auto behind = [text](char mark) {
        const auto at = text.find(mark);
        return at == std::string_view::npos ? Field{} : readfield(text.substr(at + 1));
    };
    const Field lower = behind('>');
    const Field upper = behind('<');
    cell.hasValue = lower.given || upper.given;
    cell.x = lower.given ? lower.value : upper.value;
    if (lower.given && upper.given)
        cell.z = upper.value;
    else if (cell.hasValue)
        cell.z = lower.given ? suspendedZ : discoveredZ;
}

void readx(std::string_view text, Cell& cell) {
    const auto start = text.find_first_not_of(' ');
    if (start != std::string_view::npos && (text[start] == '<' || text[start] == '>')) {
        readmarked(text, cell);
        return;
    }
    const Field field = readfield(text);
    cell.x = field.value;
    cell.hasValue = field.given;
}

bool ispoint(int j) { return j >= 1 && static_cast<float>(j) <= session.maxPoints; }

bool haslabels(int k) { return k >= 1 && k <= Points::labelledSets; }

int datarow(int k) { return static_cast<int>(rowofset(static_cast<float>(k))); }

/// Interval form: the Z decides, and a minus sign on X means suspension here too.
int classifyinterval(bool asStored) {
    const bool positive = session.negativeXAllowed == 0;
    double& x = session.xyz;
    float& z = session.xyz2;
    if (z == 0 && positive) z = exactZFilled;
    if (!asStored && positive && x < 0 && -x < censored) z = suspendedZ;
    if (z > censored) return Susp;
    const bool discovered = z < -censored;
    if (!discovered && std::fabs(z) > uncensored) return Occr;
    if (positive) x = std::fabs(x);
    if (discovered) return Disc;
    return x == z ? Occr : Intv;
}

} // namespace

Cell cellsplit(std::string_view text) {
    Cell cell;
    const Parts parts = partsof(text);
    cell.label = parts.label;
    readx(parts.fields[0], cell);
    const Field ordinate = readfield(parts.fields[1]);
    cell.y = ordinate.value;
    cell.hasY = ordinate.given;
    if (const Field quantity = readfield(parts.fields[2]); quantity.given) cell.quantity = quantity.value;
    if (const Field z = readfield(parts.fields[3]); z.value != 0) cell.z = z.value;
    return cell;
}

bool hasordinate(int k, int j) {
    return session.progSide != visualSide || session.pointTypes(k, j) != noOrdinate;
}

bool cellstore(const Cell& cell, int k, int j) {
    if (!cell.hasValue || !ispoint(j) || k < 1 || static_cast<float>(k) > session.maxSets) return false;
    const int row = datarow(k);
    session.X(row, j) = session.entryX(row, j) = cell.x;
    session.Y(row, j) = session.entryY(row, j) = cell.y;
    session.v1(k, j) = cell.quantity;
    session.v2(k, j) = cell.z;
    if (session.progSide == visualSide) session.pointTypes(k, j) = cell.hasY ? int16_t{Occr} : noOrdinate;
    pointlabelput(k, j, cell.label);
    return true;
}

void celltext(std::string& text, int k, int j) {
    const int row = datarow(k);
    appendtrimmed(text, session.entryX(row, j));
    text += 'x';
    if (hasordinate(k, j)) appendtrimmed(text, session.entryY(row, j));
    for (const float field : {session.v1(k, j), session.v2(k, j)}) {
        text += 'x';
        appendtrimmed(text, field);
    }
    if (!haslabels(k) || !ispoint(j) || session.pointLabels[k].empty()) return;
    const std::string& label = session.pointLabels[k][j];
    if (label.find_first_not_of(' ') != std::string::npos) (text += '_') += label;
}

int pointclassify(bool asStored, int k) {
    if (session.inputType == intv5) {
        const int type = classifyinterval(asStored);
        session.xyz2 -= session.t0(k);
        return type;
    }
    if (session.xyz2 > censored) return Susp;
    return !asStored && !negativedata() && !(session.xyz > 0) ? Susp : Occr;
}

bool negativedata() {
    const bool wholeLine = session.dist == normal || session.dist == gumbel;
    return session.negativeXAllowed == 1 && (session.inputType == intv5 || wholeLine);
}

double pointvalue(int k, int j) {
    const double x = session.X(datarow(k), j);
    return negativedata() ? x : std::fabs(x);
}

double pointquantity(int k, int j) {
    return std::max(1.0, std::floor(static_cast<double>(session.v1(k, j))));
}

void pointlabelget(int k, int j) {
    if (!haslabels(k)) return;
    const auto& labels = session.pointLabels[k];
    if (ispoint(j) && static_cast<std::size_t>(j) < labels.size())
        session.msg = labels[j];
    else
        session.msg.clear();
}

void pointlabelput(int k, int j, std::string_view label) {
    if (!haslabels(k) || !ispoint(j)) return;
    auto& labels = session.pointLabels[k];
    try {
        if (labels.empty() && label.empty()) return;
        if (labels.empty()) labels.resize(static_cast<std::size_t>(session.maxPoints) + 1);
        labels[j] = label;
    } catch (const std::bad_alloc&) {
        // The point stands without its label: memory for text is no reason to lose a value.
    }
}

double failurecount(int k) { return session.countOccr(k) + session.countIntv(k) + session.countDisc(k); }
