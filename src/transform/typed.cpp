#include "expression/functionedit.h"
#include "expression/functionrun.h"
#include "expression/tokens.h"
#include "session/session.h"
#include "transform/sets.h"
#include "transform/transforms.h"

/// Transforms by the typed function.

namespace {

/// Takes the function in the names of a mode, and runs it over set a, with set b beside it in a mode of two.
bool runtyped(int16_t mode, int a, int b) {
    const Keep keep{session.functionMode, session.functionSet, session.functionSetB};
    session.functionMode = mode;
    session.functionSet = a;
    session.functionSetB = b;
    if (!functionedit()) return false;
    return changegrid([a] { return functionrun(a); });
}

bool ofoneset(int16_t mode) {
    const int set = askset({Word::Function, "...", Word::Set}, session.activeSet);
    return set != 0 && runtyped(mode, set, session.functionSetB);
}

bool oftwo(int16_t mode) {
    const int a = askset({Word::Set, "A"}, 1);
    const int b = a == 0 ? 0 : askset({Word::Set, "B"}, 2);
    return b != 0 && runtyped(mode, a, b);
}

} // namespace

bool functiontox() { return ofoneset(functionX); }
bool functiontoy() { return ofoneset(functionY); }
bool functionoftwox() { return oftwo(functionTwoSets); }
bool functionoftwoy() { return oftwo(functionTwoSetsY); }

bool functionwithk() {
    const int set = askset({Word::Function, "...", Word::Set}, session.activeSet);
    if (set == 0) return false;
    const Keep keep{session.functionMode, session.functionSet};
    session.functionMode = functionCurve;
    session.functionSet = set;
    return changegrid([set] { return functionrun(set); });
}
