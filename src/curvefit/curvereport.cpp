// The curves in the report.

#include "curvefit/curvesmain.h"
#include "curvefit/models.h"
#include "data/lineequation.h"
#include "data/report.h"
#include "data/reportanalysis.h"
#include "plot/shown.h"

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
    const auto head = [&headed] {
        if (headed) return;
        report();
        report(Word::Curve, " ", Word::Fit, ":");
        headed = true;
    };
    for (int k = 1; k <= setcount(); ++k) {
        if (session.FITKIND(k) != noFit && setshown(k)) head();
        if (hascurve(k)) reportcurve(k);
        for (const std::string& message : session.setMessages[static_cast<std::size_t>(k)])
            reportnotice(message);
    }
}
