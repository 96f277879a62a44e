#include <algorithm>

#include "curvefit/curvesmain.h"
#include "platform/platform.h"
#include "plot/markerline.h"
#include "session/session.h"
#include "shell/calcplot.h"
#include "shell/commandactions.h"
#include "shell/commands.h"
#include "shell/prompts.h"
#include "shell/words.h"

namespace {

bool oneof(int mode, std::initializer_list<int> modes) {
    return std::find(modes.begin(), modes.end(), mode) != modes.end();
}

void replot() {
    session.replotNeeded = 1;
    calcplot();
}

/// A pending fit becomes the line of the set.
void commitfit() {
    session.activeMode = 0;
    replot();
}

/// The curves are fitted as they are asked for, and their coefficients become the list in force; where there
/// is nothing to commit the user is told so.
void commitcurves() {
    commitfit();
    for (int k = 1; k <= setcount(); ++k)
        if (hascurve(k) || session.FITKIND(k) != 0) return; // a curve that failed has been told
    compose(session.msg, Word::No, " ", Word::Curve, " ", Word::Fit);
    tellok();
}

/// Asks for each marker line in use whether it goes.
void walkmarkers() {
    for (const MarkerLine& marker : markerlines()) {
        session.menuTitle = "Weibayes";
        compose(session.msg, Word::Marker, " ", Word::Line, " ", Word::Delete, " ", AsTyped{marker.label});
        askyesno();
        if (session.u == 1) markerdelete(marker.line);
    }
    session.activeMode = 0;
    calcplot();
}

void visualmode(int mode) {
    if (oneof(mode, {9, 17}))
        opens<OptionPage::zoom>();
    else if (mode == 18)
        commitcurves();
    else if (oneof(mode, {30, 31, 36, 38})) {
        session.activeMode = 0;
        session.pressed.clear();
        replot();
    } else
        calcplot();
}

void lifemode(int mode) {
    if (oneof(mode, {12, 21, 29}))
        opens<OptionPage::mainOptions>();
    else if (mode == 13) {
        session.activeMode = 0;
        if (platform) platform->window().repaintgrid();
        calcplot();
    } else if (mode == 30)
        commitfit();
    else if (oneof(mode, {50, 51}))
        walkmarkers();
    else
        calcplot();
}

} // namespace

void checkmark() {
    const int mode = session.activeMode;
    if (mode == 0)
        calcplot();
    else if (session.progSide == lifeSide)
        lifemode(mode);
    else
        visualmode(mode);
}
