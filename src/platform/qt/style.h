#pragma once

#include <QColor>
#include <QFont>

/// Colours that the palette of the widgets has no role for.
struct Tones {
    QColor accent;   ///< the one colour that stands out
    QColor onAccent; ///< text on it
    QColor quiet;    ///< text of less weight: present values, notes
    QColor hover;    ///< ground under the pointer
    QColor edge;     ///< lines between parts
    QColor panel;    ///< ground of a part set off from the window
};

/// Puts the surroundings of the session (session.surroundings: 0 as the system says, 1 light, 2 dark) into
/// force for all windows. The plot's paper stays white.
void applysurroundings();

bool darksurroundings();
const Tones& tones();

QFont fixedfont(); ///< equal widths: reports
QFont helpfont();  ///< "Calibri", or what stands in for it
