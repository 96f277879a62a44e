#include "analysis/plotterms.h"

#include <cmath>

#include "analysis/order.h"
#include "session/session.h"

namespace {

void take(std::vector<LifeTerm>& terms, LifeTerm term, const StandardLine& line) {
    if (term.weight == 0) return;
    term.low = line.plotvalue(term.low);
    if (term.known == Known::between || term.known == Known::outside) term.high = line.plotvalue(term.high);
    if (std::isinf(term.low)) {
        if (term.known == Known::above) return; // alive when nothing could fail: no knowledge
        if (term.known == Known::between) term = {Known::below, term.weight, term.high, 0};
        if (term.known == Known::outside) term = {Known::above, term.weight, term.high, 0};
    }
    terms.push_back(term);
}

} // namespace

void appendplotterms(std::vector<LifeTerm>& terms, int k, const StandardLine& family) {
    if (!groupedinput()) {
        const int points = pointcount(k);
        terms.reserve(terms.size() + static_cast<std::size_t>(points));
        for (int j = 1; j <= points; ++j) take(terms, termofpoint(k, j), family);
        return;
    }
    GroupedRows rows(k);
    for (GroupedRow row; rows.next(row);) {
        take(terms, row.failures(), family);
        take(terms, row.survivors(), family);
    }
}

std::vector<LifeTerm> plotterms(int k, const StandardLine& family) {
    std::vector<LifeTerm> terms;
    appendplotterms(terms, k, family);
    return terms;
}

double fixedscale() {
    if (session.fixedSlope <= 0) return 0;
    return standardline({session.dist, session.gumbeltype, 1, session.fixedSlope}).scale;
}
