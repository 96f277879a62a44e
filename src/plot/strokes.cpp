#include "plot/strokes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

#include "plot/drawing.h"
#include "session/session.h"

namespace {

constexpr int longestString = 240;
constexpr int setColourPen = 99;
constexpr float firstHardCopy = plotterDevice;
constexpr double stepsAcross = 700, stepsDown = 450; ///< steps to the width and the height of the canvas
constexpr double fixedStep = 20;                     ///< canvas units, on any canvas

/// Steps along x and y of each letter from 'd' to 'u'; y grows downwards.
struct Direction {
    int x = 0, y = 0;
};
constexpr std::array<Direction, 'u' - 'd' + 1> directions = [] {
    std::array<Direction, 'u' - 'd' + 1> table{};
    table['u' - 'd'] = {0, -1};
    table['d' - 'd'] = {0, 1};
    table['l' - 'd'] = {-1, 0};
    table['r' - 'd'] = {1, 0};
    table['e' - 'd'] = {1, -1};
    table['f' - 'd'] = {1, 1};
    table['g' - 'd'] = {-1, 1};
    table['h' - 'd'] = {-1, -1};
    return table;
}();

bool isdigit(char c) { return c >= '0' && c <= '9'; }

/// Number of one or two digits at the start of a text, and how many it has.
struct Count {
    int value = 0;
    int digits = 0;
};
Count countat(std::string_view text) {
    Count count;
    while (count.digits < 2 && static_cast<std::size_t>(count.digits) < text.size()
           && isdigit(text[static_cast<std::size_t>(count.digits)]))
        count.value = 10 * count.value + (text[static_cast<std::size_t>(count.digits++)] - '0');
    return count;
}

/// A step count as it is drawn: multiplied by marksteps, and as long as the larger number is in digits.
Count multiplied(Count count) {
    if (session.marksteps <= 1) return count;
    count.value *= session.marksteps;
    count.digits = 1;
    for (int rest = count.value; rest >= 10; rest /= 10) ++count.digits;
    return count;
}

/// Palette colour of a pen command; 0 with the pen up.
int penof(int number) {
    if (session.colormode == 1) return number == 0 ? 0 : int{drawingColour};
    int colour =
        number == setColourPen ? colourofset(static_cast<int>(setofrow(session.setCounter))) : number;
    if (session.outdev >= firstHardCopy) colour = std::abs(colour);
    return std::clamp(colour, 0, int{frameColour});
}

int widthclass() {
    if (session.marksize == 3) return 2;
    return session.marksize == 4 ? 3 : 1;
}

/// A way along one axis, in whole pixels of the canvas.
double way(int steps, double extent, double stepsOfExtent) {
    return snapped(session.markFixed != 0 ? steps * fixedStep : steps * extent / stepsOfExtent);
}

/// Takes the step of a letter from where it stands; `step` then ends at the new place.
void advance(MarkStep& step, char letter, int steps) {
    const Direction direction =
        letter >= 'd' && letter <= 'u' ? directions[static_cast<std::size_t>(letter - 'd')] : Direction{};
    step.fromX = snapped(step.x);
    step.fromY = snapped(step.y);
    step.x = step.fromX + direction.x * way(steps, session.plotw, stepsAcross);
    step.y = step.fromY + direction.y * way(steps, session.ploth, stepsDown);
}

bool oncanvas(const MarkStep& step) {
    return step.x >= 0 && step.x <= session.plotw && step.y >= 0 && step.y <= session.ploth;
}

} // namespace

int colourofset(int k) {
    const bool known = k > 0 && k < static_cast<int>(session.groupColour.size());
    const int group =
        session.groupDisplay != 0 && known ? session.groupColour[static_cast<std::size_t>(k)] : 0;
    return group != 0 ? group : k;
}

void strokemark(float code) { strokedraw(strokestring(code, session.marksize)); }

// The mark keeps a position of its own, so the line registers stay as they are. `index` counts characters as
// if each multiplied count stood in the string: the limit is that of the string with the larger numbers.
void strokedraw(std::string_view strokes) {
    Device* device = plotdevice();
    if (!device) return;
    MarkStep step{0, 0, session.plotx2, session.ploty2, 0, widthclass()};
    device->markbegin();
    for (int index = 1; !strokes.empty() && strokes[0] != ';' && index <= longestString;) {
        const char letter = strokes[0];
        strokes.remove_prefix(1);
        ++index;
        if (isdigit(letter)) continue;
        const Count written = countat(strokes);
        strokes.remove_prefix(static_cast<std::size_t>(written.digits));
        if (letter == 'c') {
            step.colour = penof(written.value);
            index += written.digits;
            continue;
        }
        const Count count = multiplied(written);
        index += count.digits;
        advance(step, letter, count.value);
        if (oncanvas(step)) device->markstep(step);
    }
    device->markend();
}
