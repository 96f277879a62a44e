// The curves in the report.

#include "curvefit/curvesmain.h"
#include "curvefit/models.h"
#include "data/lineequation.h"
#include "data/report.h"
#include "data/reportanalysis.h"

namespace {

void reportcurve(int k) {
    const SetCurve& curve = session.curves(k);
    // By a column, behind which an asterisk is the sign of a product and no note.
    reportend(1, AsTyped{curve.text});
    reportend(4, AsTyped{lineequation(k)});
    reportend(4, "X = ", curve.dataLow, " ... ", curve.dataHigh);
}

} // namespace

void reportcurves() {
    bool headed = false;
    for (int k = 1; k <= setcount(); ++k) {
        const auto& messages = session.setMessages[static_cast<std::size_t>(k)];
        if (!hascurve(k) && messages.empty()) continue;
        if (!headed) report();
        if (!headed) report(Word::Curve, " ", Word::Fit, ":");
        headed = true;
        if (hascurve(k)) reportcurve(k);
        for (const std::string& message : messages) reportnotice(message);
    }
}
