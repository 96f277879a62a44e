#pragma once

#include <tuple>

#include "session/capacities.h"
#include "session/commandfields.h"
#include "session/confidence.h"
#include "session/drawing.h"
#include "session/expressionstate.h"
#include "session/filestate.h"
#include "session/filetables.h"
#include "session/fits.h"
#include "session/folders.h"
#include "session/gridstate.h"
#include "session/history.h"
#include "session/importstate.h"
#include "session/librarystate.h"
#include "session/lines.h"
#include "session/options.h"
#include "session/pagestate.h"
#include "session/plotstate.h"
#include "session/points.h"
#include "session/registers.h"
#include "session/reportstate.h"
#include "session/run.h"
#include "session/setup.h"
#include "session/shellstate.h"
#include "session/visualstate.h"
#include "session/weibayes.h"

/// Reserved numbers.
inline constexpr double noAnswer = -9.123e+32; ///< a cancelled prompt, a setting that is absent
inline constexpr const char* noAnswerText = "-9.123E+32";
inline constexpr double noLowLimit = -9e+30;    ///< lower limit of a prompt: none
inline constexpr float noHighLimit = 9e+30f;    ///< upper limit of a prompt: none
inline constexpr float suspendedZ = 3.3e+33f;   ///< Z above 3E+33: suspension at X
inline constexpr float discoveredZ = -3.3e+33f; ///< Z below -3E+33: failed before X
inline constexpr float exactZ = 2.9e+29f;       ///< |Z| above 2E+29 otherwise: exact point, as typed
inline constexpr float exactZFilled = 2.2e+29f; ///< the same, put in for an empty Z
inline constexpr double searchCeiling = 1e+300; ///< ceiling of unbounded searches

/// The one session of a process. Every subsystem reads and writes it directly.
struct Session : Capacities,
                 Registers,
                 PromptRegisters,
                 Points,
                 Lines,
                 Fits,
                 Options,
                 Confidence,
                 Weibayes,
                 PlotState,
                 Drawing,
                 ReportState,
                 Run,
                 Folders,
                 Setup,
                 GridState,
                 FileState,
                 History,
                 LibraryState,
                 ImportState,
                 FileTables,
                 Expression,
                 ShellState,
                 GridView,
                 DesktopState,
                 PageState,
                 VisualState,
                 CommandFields {
    RegressionSums sums; ///< of the set being fitted
};
extern Session session;

/// Elements of X at the present side, size exponent and share.
float arraybudget();

/// Derives the capacities from progSide and sizeExponent and allocates every array by them. False when
/// memory does not suffice; the session then has no arrays, and maxPoints is 0. session/sizing.h tries again
/// with less.
bool allocatearrays();

/// Empties the session: no rows, no points, no results. Capacities and options stay.
void sessionclear();

/// Chooses the side and what follows from it: the row stride and the number of rows a set.
void chooseside(Side side);

inline float rowofset(float k) { return k * session.sg; }
inline float setofrow(float i) { return i / session.sg; }

/// First row, and step, of a walk over rows: every row when the confidence rows stand, else the data rows.
inline float rowstep() { return session.sg - 2 * static_cast<float>(session.ifylcnf) / 9; }

/// Number of sets in use.
inline int setcount() { return static_cast<int>(session.lastRow / session.sg); }

/// Points of set k.
inline int pointcount(int k) {
    return static_cast<int>(session.n(static_cast<int>(rowofset(static_cast<float>(k)))));
}

/// Names of the first and second parameter by distType: 0 exponential type, then the families.
const char* parametername(int distType, int which);

/// Puts values back as they were, on every way out of a scope.
template <class... T>
class Keep {
public:
    explicit Keep(T&... kept) : places(kept...), values(kept...) {}
    ~Keep() { places = values; }
    Keep(const Keep&) = delete;
    Keep& operator=(const Keep&) = delete;

private:
    std::tuple<T&...> places;
    std::tuple<T...> values;
};
