#include "plot/plotkind.h"

#include <initializer_list>

#include "session/session.h"

namespace {

bool isone(std::initializer_list<int16_t> kinds) {
    if (session.progSide == lifeSide || session.plotMode == 1) return false;
    for (const int16_t kind : kinds)
        if (session.plotKind == kind) return true;
    return false;
}

} // namespace

bool barsplotted() { return isone({barsStacked, barsSideBySide, bars3D}); }
bool pieplotted() { return isone({pie2D, pie3D}); }
bool spaceplotted() { return isone({spacePlot}); }

bool xyplotted() {
    return session.progSide != lifeSide && !barsplotted() && !pieplotted() && !spaceplotted();
}
