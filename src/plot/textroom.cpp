#include "plot/textroom.h"

#include <algorithm>

#include "plot/drawing.h"
#include "session/session.h"

bool TextRoom::place(std::string_view text, double x, double y, double size) {
    constexpr double up = 0.8, down = 0.25; ///< of the character size, with a little air
    const ClipWindow box{x, y - up * size, x + plottextwidth(text, size), y + down * size};
    const auto covers = [&box](const ClipWindow& other) {
        return box.left < other.right && other.left < box.right && box.top < other.bottom
               && other.top < box.bottom;
    };
    if (!(box.left >= canvas.left && box.right <= canvas.right && box.top >= canvas.top
          && box.bottom <= canvas.bottom)
        || std::any_of(taken.begin(), taken.end(), covers))
        return false;
    taken.push_back(box);
    const Keep keep{session.plotx2, session.ploty2, session.textSize};
    session.plotx2 = x;
    session.ploty2 = y;
    session.textSize = static_cast<float>(size);
    plottext(text);
    return true;
}
