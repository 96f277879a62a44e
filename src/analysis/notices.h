#pragma once

#include "session/session.h"
#include "shell/words.h"

/// Shows session.msg as a notice of set k (0: of the run) and keeps it with the set's results. Quiet runs
/// within a run keep it without showing it.
void keepnotice(int k);

/// Tells the user something about set k: "Set 2: Not Enough Data".
template <class... Parts>
void tellset(int k, const Parts&... parts) {
    compose(session.msg, Word::Set, " ", k, ": ", parts...);
    keepnotice(k);
}

/// Tells the user something about the run as a whole.
template <class... Parts>
void tellrun(const Parts&... parts) {
    compose(session.msg, parts...);
    keepnotice(0);
}

/// Lets pending window events run. True once the user has pressed Escape in this run.
bool escaped();
bool escapedat(double done); ///< the same, and shows what part of the run is done, 0 to 1

/// A grouped row whose position is not within 0 and 100 percent.
void tellbadrow(int k, int j);

/// Too few occurrences for a line with a free slope at rr: what is possible instead.
void tellnotenough(int k, bool likelihoodPossible);

/// A set of `count` rows or points of inspection or grouped input, too small for any line.
void telltoosmall(int k, int count);
