#pragma once

#include <string_view>
#include <vector>

#include "plot/segment.h"

/// Keeps texts on a picture apart: a text is drawn where it covers nothing drawn before, or not at all.
class TextRoom {
public:
    /// Texts stay inside `area`, canvas units.
    explicit TextRoom(const ClipWindow& area) : canvas(area) {}

    /// Draws a level text from (x, y), the left end of its baseline, in session.plotpen. False where it has
    /// no room.
    bool place(std::string_view text, double x, double y, double size);

private:
    ClipWindow canvas;
    std::vector<ClipWindow> taken;
};
