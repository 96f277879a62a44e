// Any text as typed settings of a curve fit, as a list of equations, and as cells that are fitted and filled.

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "curvefit/curvesmain.h"
#include "curvefit/curvevalue.h"
#include "curvefit/curvewords.h"
#include "curvefit/equationlist.h"
#include "curvefit/models.h"
#include "data/textpieces.h"
#include "expression/program.h"
#include "session/session.h"
#include "shell/calcplot.h"
#include "shell/grid.h"

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

void checkwords(std::string_view text) {
    while (!text.empty()) curveword(takeline(text));
    require(session.fitKindList[0] == 0 || session.fitKindList[0] == noCurveWanted
            || modelofcode(static_cast<int>(session.fitKindList[0])));
    require(std::isfinite(session.curveFrom));
}

/// A list that was taken holds functions, and reads back as it was written.
void checklist(std::string_view text) {
    const auto list = equationlistof(text);
    if (!list) return;
    require(list->equations.size() <= mostEquations);
    for (const FunctionTokens& equation : list->equations)
        require(functionprogram(equation.fcode, equation.literals, 0).fault == FunctionFault::none);
    const auto again = equationlistof(equationlisttext(*list));
    require(again && again->equations == list->equations);
}

/// The cells of the text, a line each, as one set of every model.
void checkfits(std::string_view text, int code) {
    gridclear();
    for (int j = 1; !text.empty() && j <= 100; ++j) gridset(1, j, takeline(text));
    session.fitKindList[0] = 0;
    session.FITKIND(1) = static_cast<int16_t>(code); // 14 and 15 are no model
    session.fillMissing = 1;
    calcplot();
    const SetCurve& curve = session.curves(1);
    if (!hascurve(1)) return;
    for (const double coefficient : curve.coefficients) require(std::isfinite(coefficient));
    require(functionprogram(curve.code, curve.literals, 0).fault == FunctionFault::none);
    require(!(curve.dataLow > curve.dataHigh));
    require(curve.standardError >= 0 && std::fabs(curve.r) <= 1);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    chooseside(visualSide);
    allocatearrays();
    tellfault = [](int) { std::abort(); };
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 2 || size > 20000) return 0;
    session.noPrompt = 1;
    session.plotMode = data[0] & 1 ? 1 : 2;
    const std::string_view text(reinterpret_cast<const char*>(data) + 2, size - 2);
    checkwords(text);
    checklist(text);
    checkfits(text, data[1] % 16);
    return 0;
}
