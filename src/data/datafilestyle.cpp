// The style list of a data file.

#include <algorithm>
#include <cmath>

#include "data/datafileoptions.h"
#include "data/datafilesections.h"
#include "data/filelines.h"
#include "data/filevalue.h"
#include "data/numbertext.h"
#include "numeric/sngguard.h"

namespace {

constexpr int styleCount = 10;

bool lifesession() { return session.progSide == lifeSide; }

/// An axis of style 1 or 2 runs over the whole line; on any other a limit stands above zero.
bool serveslimit(double value) {
    const double axis = readentry(session.styleKept[1]).value;
    return std::isfinite(value) && (!lifesession() || value > 0 || axis == 1 || axis == 2);
}
void takelimit(std::string_view line, double& limit) {
    const double value = readentry(line).value;
    if (serveslimit(value)) limit = value;
}
std::string limitline(double limit) { return serveslimit(limit) ? valueline(limit) : "0"; }

std::string styleline(int position) {
    switch (position) {
    case 3: return lifesession() ? "0" : valueline(session.xyscale);
    case 5: return limitline(session.xlowd);
    case 6: return limitline(session.xhighd);
    case 7: return valueline(sngguard(session.ylowd));
    case 8: return valueline(sngguard(session.yhighd));
    case 10: return "0";
    default: break;
    }
    const std::string& kept = session.styleKept[static_cast<std::size_t>(position)];
    return kept.empty() ? "0" : kept;
}

void takestyle(int position, std::string_view line) {
    switch (position) {
    case 2:
        if (session.keepScale == 0) session.styleKept[2] = line;
        return;
    case 3:
        if (!lifesession()) session.xyscale = std::clamp(sngguard(readentry(line).value), 0.0f, 5.0f);
        return;
    case 5: return takelimit(line, session.xlowd);
    case 6: return takelimit(line, session.xhighd);
    case 7: session.ylowd = static_cast<double>(sngguard(readentry(line).value)); return;
    case 8: session.yhighd = static_cast<double>(sngguard(readentry(line).value)); return;
    case 10: return;
    default: session.styleKept[static_cast<std::size_t>(position)] = line; return;
    }
}

} // namespace

void stylewrite() {
    linewrite(valueline(styleCount));
    for (int position = 1; position <= styleCount; ++position) {
        std::string line;
        appendvalue(line, styleline(position));
        linewrite(line);
    }
}

bool styleread() {
    const int number = sectionat("STYLE1", 0);
    std::string_view line;
    const double count = sectionline(number, line) ? readentry(line).value : 0;
    for (int position = 1; position <= count && sectionline(number, line); ++position)
        if (position <= styleCount) takestyle(position, line);
    return true;
}
