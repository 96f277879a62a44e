#include "data/reportranks.h"

#include "data/cell.h"
#include "data/report.h"
#include "plot/shown.h"

namespace {

constexpr int valueColumn = 8;
constexpr int kindColumn = 24;
constexpr int quantityColumn = 34;
constexpr int rankColumn = 44;
constexpr int positionColumn = 58;

bool suspended(int type) { return type == Susp || type == intvComplement; }

void appendkind(std::string& text, int type) {
    if (suspended(type))
        append(text, Word::Suspension);
    else if (type == Disc)
        append(text, Word::Discovery);
    else if (type == Intv)
        append(text, Word::Interval);
    else if (session.occurMark.empty())
        append(text, Word::Occurrence);
    else
        append(text, AsTyped{session.occurMark});
}

void rankrow(int k, int number, int j) {
    const int row = static_cast<int>(rowofset(static_cast<float>(k)));
    const int type = session.pointTypes(k, j);
    const ShownPoint point = shownpoint(k, j);
    std::string kind;
    appendkind(kind, type);
    reportcell(3, number);
    reportcell(valueColumn, ReportedColumn{pointvalue(k, j)});
    reportcell(kindColumn, kind);
    reportcell(quantityColumn, ReportedColumn{pointquantity(k, j)});
    if (!suspended(type) && point.placed) {
        if (session.plotRank(row, j) > 0) reportcell(rankColumn, ReportedColumn{session.plotRank(row, j)});
        reportcell(positionColumn, ReportedColumn{100 * point.y});
    }
    report();
}

} // namespace

void reportranks(int k) {
    if (session.setPlaced(k) != 1) return;
    report();
    reportcell(3, "#");
    reportcell(valueColumn + 1, "X-", Word::Value);
    reportcell(kindColumn, Word::Type);
    reportcell(quantityColumn + 1, Word::Quantity);
    reportcell(rankColumn + 1, Word::Rank);
    reportend(positionColumn + 1, Word::Occurrence, " %");
    for (int m = 1; m <= pointcount(k); ++m) rankrow(k, m, session.pointOrder(k, m));
}
