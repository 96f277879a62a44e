#include "data/settitle.h"

#include "session/session.h"

std::string_view titleofset(int k) {
    const int row = static_cast<int>(rowofset(static_cast<float>(k)));
    const std::string& title = session.rowTitle(row);
    return title == std::to_string(row) ? std::string_view() : title;
}
