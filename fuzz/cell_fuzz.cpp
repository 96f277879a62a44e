// Any text as a cell: cut, stored, classified; the text form of what was stored reads back to the same
// record.

#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "data/cell.h"
#include "session/session.h"

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

bool blank(std::string_view label) { return label.find_first_not_of(' ') == std::string_view::npos; }

void requiresame(const Cell& a, const Cell& b) {
    require(a.x == b.x && a.y == b.y && a.quantity == b.quantity && a.z == b.z);
    require(a.label == b.label || (blank(a.label) && b.label.empty()));
}

void classify(const Cell& cell, bool asStored) {
    for (int16_t form = standard0; form <= intv5; ++form) {
        session.inputType = form;
        session.xyz = cell.x;
        session.xyz2 = cell.z;
        const int type = pointclassify(asStored, 1);
        require(type >= Occr && type <= Intv);
        require(std::isfinite(session.xyz) && std::isfinite(session.xyz2));
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    chooseside(lifeSide);
    allocatearrays();
    tellfault = [](int) { std::abort(); };
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    session.negativeXAllowed = data[0] & 1;
    session.dist = static_cast<int16_t>(1 + (data[0] >> 1) % 4);
    session.decimalSeparator = data[0] & 8 ? "," : ".";
    const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);

    session.msg = text;
    require(!cellformcheck()); // nobody answers
    require(session.msg == text);

    const Cell cell = cellsplit(text);
    require(std::isfinite(cell.x) && std::isfinite(cell.y) && std::isfinite(cell.quantity)
            && std::isfinite(cell.z));
    classify(cell, false);
    classify(cell, true);
    require(cellstore(cell, 1, 1) == cell.hasValue);
    if (!cell.hasValue) return 0;

    static std::string written;
    written.clear();
    celltext(written, 1, 1);
    const Cell again = cellsplit(written);
    require(again.hasValue);
    requiresame(cell, again);
    return 0;
}
