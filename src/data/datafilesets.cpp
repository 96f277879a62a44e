#include "data/datafilesets.h"

#include <algorithm>
#include <cmath>
#include <new>

#include "data/cell.h"
#include "data/datafilesections.h"
#include "data/filelines.h"
#include "data/filevalue.h"
#include "data/numbertext.h"
#include "data/rangeline.h"
#include "numeric/sngguard.h"
#include "session/session.h"

namespace {

constexpr std::string_view dimensionsTag = "DIMENSIONS";
constexpr std::string_view setTag = "SET";
constexpr std::string_view labelMark = "IX-";
constexpr int dimensionCount = 8;
constexpr double mostStride = 48;
constexpr float aborted = -8e32f; ///< a number that stands for a read given up; never the value of a point
constexpr float discovered = -3e33f;

int rowof(int k) { return static_cast<int>(rowofset(static_cast<float>(k))); }

// ---- the check value ----

/// One step of the check value: what is left of the sum when whole twenty-nines are taken off.
double checkstep(double check, float x, float y) {
    constexpr double most = 9e300, divisor = 29;
    const double sum = std::clamp(check + static_cast<double>(x) + static_cast<double>(y), -most, most);
    const double quotient = sum / divisor;
    // Beyond this size a double has no fraction; below it the whole part is an integer, got without a call.
    constexpr double wholeOnly = 9007199254740992.0;
    if (!(std::fabs(quotient) < wholeOnly)) return 0;
    const double fraction = quotient - static_cast<double>(static_cast<int64_t>(quotient));
    return static_cast<double>(static_cast<int64_t>(fraction * divisor));
}

// ---- dimensions ----

bool whole(double value) { return value == std::floor(value); }

/// The eight dimensions. Room for rows, points and lines is the session's own.
bool dimensionsread(int16_t& confidence) {
    if (nextline() != dimensionsTag) return false;
    const double count = readentry(nextline()).value;
    if (!(count >= dimensionCount)) return false;
    double values[dimensionCount + 1] = {};
    for (int i = 1; i <= dimensionCount; ++i) values[i] = readentry(nextline()).value;
    if (session.eofFlag == 1) return false;
    const double stride = values[2], mark = values[3], rows = values[8];
    const bool serves = values[1] == 2 && stride > 0 && stride <= mostStride && whole(stride)
                        && (mark == 0 || mark == 9) && stride - 2 * mark / 9 > 0 && rows >= 0 && whole(rows)
                        && rows < 1e7;
    if (!serves) return false;
    session.fileStride = static_cast<float>(stride);
    session.fileSetLimit = sngguard(values[7]);
    session.fileRows = static_cast<float>(rows);
    confidence = static_cast<int16_t>(mark);
    for (double i = dimensionCount; i < count; ++i) {
        const std::size_t place = inputplace();
        const std::string_view line = nextline();
        if (session.eofFlag == 1) break;
        if (line.starts_with(setTag) || sectionat(line, 0) >= 0) {
            inputseek(place);
            break;
        }
    }
    return true;
}

// ---- a point line ----

std::string_view takefield(std::string_view& line) {
    const auto end = std::min(line.find(' '), line.size());
    const std::string_view field = line.substr(0, end);
    line.remove_prefix(std::min(line.find_first_not_of(' ', end), line.size()));
    return field;
}

/// The reserved numbers of prompts and readers are no values.
bool isvalue(float value) { return value != static_cast<float>(noAnswer) && value != aborted; }

/// Reads a field; one that is missing or no value leaves the default. False when it is no value.
bool takenumber(std::string_view& line, float& value) {
    if (line.empty() || line.starts_with(labelMark)) return true;
    const std::string_view field = takefield(line);
    // Most fields are one digit: no quantity but one, no Y, no Z.
    if (field.size() == 1 && field[0] >= '0' && field[0] <= '9') {
        value = static_cast<float>(field[0] - '0');
        return true;
    }
    const float number = sngguard(readentry(field).value);
    if (!isvalue(number)) return false;
    value = number;
    return true;
}

/// Cuts a point line; what is left of it, behind its mark, is the label. False for a point without a value.
bool takepoint(std::string_view line, FilePoint& point, std::string_view& label) {
    line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    const bool valued = takenumber(line, point.x);
    point.hasY = takenumber(line, point.y);
    for (float* field : {&point.v1, &point.v2}) takenumber(line, *field);
    label = line.starts_with(labelMark) ? line.substr(labelMark.size()) : std::string_view();
    return valued;
}

/// A label holds no tab: it would end the cell that it stands in.
std::string cleanlabel(std::string_view label) {
    std::string clean(label);
    std::replace(clean.begin(), clean.end(), '\t', ' ');
    return clean;
}

// ---- a set block ----

/// Where the points of a row go: a row of the file, its place in the session, and whether its labels count.
struct Target {
    FileRow* row = nullptr; ///< null: passed over
    bool labelled = false;
    bool checked = false;
};

/// Room for the points that a count promises, as far as the rest of the file can hold them: a line has a
/// digit and an end at least.
void makeroom(FileRow& row, double count) {
    const double lines = static_cast<double>(inputrest().size()) / 2;
    const double points = std::min({count, lines, static_cast<double>(session.maxPoints)});
    row.points.reserve(static_cast<std::size_t>(std::max(points, 0.0)));
}

bool pointsread(FileData& data, const Target& target, double count) {
    if (target.row) makeroom(*target.row, count);
    for (double j = 1; j <= count; ++j) {
        const std::string_view line = nextline();
        if (session.eofFlag == 1) return false;
        FilePoint point;
        std::string_view label;
        const bool valued = takepoint(line, point, label);
        if (target.checked && valued) data.check = checkstep(data.check, point.x, point.y);
        if (!target.row
            || static_cast<double>(session.maxPoints) <= static_cast<double>(target.row->points.size()))
            continue;
        if (!valued) {
            ++data.unread;
            continue;
        }
        target.row->points.push_back(point);
        if (label.empty() || !target.labelled) continue;
        target.row->labels.resize(target.row->points.size());
        target.row->labels.back() = cleanlabel(label);
    }
    return true;
}

/// The set that a row of the file belongs to, taken on when it is new; null when the session has no room.
FileSet* fileset(FileData& data, int k) {
    if (static_cast<float>(k) > session.maxSets) return nullptr;
    if (data.sets.size() < static_cast<std::size_t>(k)) data.sets.resize(static_cast<std::size_t>(k));
    return &data.sets[static_cast<std::size_t>(k - 1)];
}

/// Confidence rows are kept where the session has rows for them: on the stride that both share.
Target targetof(FileSet* set, int behind, int k) {
    if (behind == 0) return {set ? &set->data : nullptr, k <= Points::labelledSets, true};
    const bool shared = session.fileStride == session.sg && session.sg == 3;
    if (!set || !shared) return {};
    return {behind == 2 ? &set->low : &set->high};
}

/// A title that is the number of its row is the default: the set has no name.
void titleread(FileSet& set, std::string_view line, int row) {
    line.remove_prefix(std::min(setTag.size() + 1, line.size()));
    set.title = takelabel(line, set.range);
    if (set.title == std::to_string(row)) set.title.clear();
}

bool blockread(FileData& data, int row) {
    const int stride = static_cast<int>(session.fileStride);
    const int k = (row + stride - 1) / stride;
    const int behind = k * stride - row;
    const std::string_view line = nextline();
    if (session.eofFlag == 1 || !line.starts_with(setTag)) return false;
    if (line.size() > setTag.size() && line[setTag.size()] != '_') return false;
    FileSet* set = fileset(data, k);
    if (behind == 0 && set) titleread(*set, line, row);
    if (behind == 0 && !set) ++data.dropped;
    const NumberText count = readentry(nextline());
    if (session.eofFlag == 1 || !count.readable || !(count.value >= 0) || !whole(count.value)) return false;
    return pointsread(data, targetof(set, behind, k), count.value);
}

/// Behind the last block a section begins or the file ends. A number there is a point that no count covers.
bool blocksend() {
    const std::size_t place = inputplace();
    const std::string_view line = nextline();
    const bool ended = session.eofFlag == 1;
    inputseek(place);
    const auto first = line.find_first_not_of(' ');
    return ended || first == std::string_view::npos
           || (!readentry(line).readable && !line.starts_with(std::string(setTag) + "_"));
}

// ---- into the session ----

/// The shortest cell that says the same: what a user would have typed.
void appendcell(std::string& cell, const FilePoint& point, std::string_view label) {
    appendtrimmed(cell, point.x);
    const float fields[] = {point.y, point.v1, point.v2};
    const bool written = point.y != 0 || (point.hasY && session.progSide != lifeSide);
    const int last = point.v2 != 0 ? 3 : point.v1 != 1 ? 2 : written ? 1 : 0;
    for (int i = 0; i < last; ++i) {
        cell += 'x';
        if (i > 0 || point.hasY) appendtrimmed(cell, fields[i]);
    }
    if (!label.empty()) (cell += '_') += label;
}

std::string_view labelat(const FileRow& row, std::size_t j) {
    return j < row.labels.size() ? std::string_view(row.labels[j]) : std::string_view();
}

std::vector<std::string> cellsof(const FileRow& row) {
    std::vector<std::string> cells;
    cells.reserve(row.points.size());
    std::string cell;
    for (std::size_t j = 0; j < row.points.size(); ++j) {
        cell.clear();
        appendcell(cell, row.points[j], labelat(row, j));
        cells.push_back(cell);
    }
    return cells;
}

/// The points of an X-Y set as grouped rows of a life set: the percentage that failed, of so many.
void converttogrouped(FileRow& row) {
    const auto quantity = static_cast<float>(row.points.size());
    for (FilePoint& point : row.points) {
        point.v1 = sngguard(static_cast<double>(point.y) * 100);
        point.v2 = quantity;
    }
}

void putrow(const FileRow& from, int row) {
    session.n(row) = static_cast<float>(from.points.size());
    for (std::size_t j = 0; j < from.points.size(); ++j) {
        session.X(row, static_cast<int>(j) + 1) = from.points[j].x;
        session.Y(row, static_cast<int>(j) + 1) = from.points[j].y;
    }
}

void putset(FileSet& set, int k) {
    const int row = rowof(k);
    putrow(set.data, row);
    if (session.ifylcnf == 9) putrow(set.low, row - 2), putrow(set.high, row - 1);
    for (std::size_t i = 0; i < set.data.points.size(); ++i) {
        const FilePoint& point = set.data.points[i];
        const int j = static_cast<int>(i) + 1;
        session.entryX(row, j) = point.x;
        session.entryY(row, j) = point.y;
        if (session.progSide == visualSide)
            session.pointTypes(k, j) = point.hasY ? int16_t{Occr} : noOrdinate;
        session.v1(k, j) = point.v1;
        session.v2(k, j) = point.v2;
        if (i < set.data.labels.size()) pointlabelput(k, j, set.data.labels[i]);
    }
    if (!set.title.empty()) session.rowTitle(row) = set.title;
    session.setRange(k) = set.range;
    set = {};
}

// ---- writing ----

/// The title as typed; the number of its row, which stands for none, where there is none.
std::string titleof(int k) {
    const auto column = static_cast<std::size_t>(k - 1);
    const bool titled = column < session.gridTitles.size() && !session.gridTitles[column].empty();
    return titled ? session.gridTitles[column] : std::to_string(rowof(k));
}

void dimensionswrite() {
    const float lines =
        session.htmlMode == plainLines ? std::max(session.maxLines, session.maxSets + 3) : session.maxLines;
    linewrite(dimensionsTag);
    const float values[] = {dimensionCount,  2,
                            session.sg,      static_cast<float>(session.ifylcnf),
                            session.maxRows, session.maxPoints,
                            lines,           session.maxSets,
                            session.lastRow};
    for (const float value : values) numwrite(value);
}

void blockwrite(int row, const std::string& title, const RangePairs& range) {
    std::string line(setTag);
    line += '_';
    appendlabel(line, title, range);
    linewrite(line);
    numwrite(session.n(row));
}

void appendfield(std::string& line, float value) {
    if (value == 0)
        line += " 0";
    else if (value == 1)
        line += " 1";
    else
        appendvalue(line += ' ', value);
}

void setwrite(int k) {
    const int row = rowof(k);
    blockwrite(row, titleof(k), session.setRange(k));
    const bool labelled = k <= Points::labelledSets;
    std::string line;
    for (int j = 1; j <= static_cast<int>(session.n(row)); ++j) {
        line.clear();
        appendvalue(line, session.entryX(row, j));
        appendfield(line, hasordinate(k, j) ? session.entryY(row, j) : static_cast<float>(noAnswer));
        appendfield(line, session.v1(k, j));
        appendfield(line, session.v2(k, j));
        const auto place = static_cast<std::size_t>(j);
        if (labelled && place < session.pointLabels[k].size() && !session.pointLabels[k][place].empty()) {
            (line += ' ') += labelMark;
            appendvalue(line, session.pointLabels[k][place]);
        }
        linewrite(line);
    }
}

void confidencewrite(int row) {
    blockwrite(row, std::to_string(row), {});
    std::string line;
    for (int j = 1; j <= static_cast<int>(session.n(row)); ++j) {
        line.clear();
        appendvalue(line, session.X(row, j));
        appendfield(line, session.Y(row, j));
        linewrite(line += " 0 0");
    }
}

} // namespace

bool setsread(FileData& data) {
    if (!dimensionsread(data.confidence)) return false;
    const int stride = static_cast<int>(session.fileStride);
    const int step = stride - 2 * data.confidence / 9;
    for (int row = step; row <= static_cast<int>(session.fileRows); row += step)
        if (!blockread(data, row)) return false;
    return blocksend();
}

bool setsput(FileData& data) try {
    if (session.fileConvert == 1)
        for (FileSet& set : data.sets) converttogrouped(set.data);
    std::vector<std::vector<std::string>> cells;
    std::vector<std::string> titles;
    for (const FileSet& set : data.sets) {
        cells.push_back(cellsof(set.data));
        titles.push_back(set.title);
    }
    while (!titles.empty() && titles.back().empty()) titles.pop_back();
    {
        const Keep keep{session.mixFlag, session.mixKind};
        sessionclear();
    }
    const auto bounded = [](const FileSet& set) {
        return !set.low.points.empty() || !set.high.points.empty();
    };
    const bool bounds = std::any_of(data.sets.begin(), data.sets.end(), bounded);
    session.ifylcnf = bounds ? data.confidence : int16_t{0};
    session.lastRow = rowofset(static_cast<float>(data.sets.size()));
    session.gridCells = std::move(cells);
    session.gridTitles = std::move(titles);
    int k = 0;
    for (FileSet& set : data.sets) putset(set, ++k);
    return true;
} catch (const std::bad_alloc&) {
    return false;
}

void setswrite() {
    dimensionswrite();
    const int sets = setcount();
    for (int k = 1; k <= sets; ++k) {
        if (session.ifylcnf == 9) confidencewrite(rowof(k) - 2), confidencewrite(rowof(k) - 1);
        setwrite(k);
    }
}

double checkvalue() {
    double check = 0;
    for (int k = 1; k <= setcount(); ++k)
        for (int j = 1; j <= pointcount(k); ++j)
            check = checkstep(check, sngguard(static_cast<double>(session.entryX(rowof(k), j))),
                              sngguard(static_cast<double>(session.entryY(rowof(k), j))));
    return check;
}

void noticepoints(const FileData& data) {
    session.fileHasData = session.fileDiscovery = 0;
    for (const FileSet& set : data.sets)
        for (const FilePoint& point : set.data.points) {
            session.fileHasData = 1;
            if (point.v2 < discovered) session.fileDiscovery = 1;
        }
}

void noticepoints() {
    session.fileHasData = session.fileDiscovery = 0;
    for (int k = 1; k <= setcount(); ++k)
        for (int j = 1; j <= pointcount(k); ++j) {
            session.fileHasData = 1;
            if (session.v2(k, j) < discovered) session.fileDiscovery = 1;
        }
}
