#include "analysis/plotterms.h"

#include <cmath>

#include "analysis/order.h"
#include "session/session.h"

namespace {

struct PlotTerms {
    std::vector<LifeTerm> terms;
    StandardLine line;

    void take(LifeTerm term) {
        if (term.weight == 0) return;
        term.low = line.plotvalue(term.low);
        if (term.known == Known::between || term.known == Known::outside)
            term.high = line.plotvalue(term.high);
        if (std::isinf(term.low)) {
            if (term.known == Known::above) return; // alive when nothing could fail: no knowledge
            if (term.known == Known::between) term = {Known::below, term.weight, term.high, 0};
            if (term.known == Known::outside) term = {Known::above, term.weight, term.high, 0};
        }
        terms.push_back(term);
    }
};

} // namespace

std::vector<LifeTerm> plotterms(int k, const StandardLine& family) {
    PlotTerms data{{}, family};
    if (!groupedinput()) {
        const int points = pointcount(k);
        data.terms.reserve(static_cast<std::size_t>(points));
        for (int j = 1; j <= points; ++j) data.take(termofpoint(k, j));
        return data.terms;
    }
    GroupedRows rows(k);
    for (GroupedRow row; rows.next(row);) {
        data.take(row.failures());
        data.take(row.survivors());
    }
    return data.terms;
}
