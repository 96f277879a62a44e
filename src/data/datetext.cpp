#include "data/datetext.h"

#include "platform/platform.h"
#include "session/session.h"

std::string dateshown(const std::string& iso) {
    constexpr std::size_t length = 10;
    if (iso.size() != length || iso[4] != '-' || iso[7] != '-') return iso;
    std::string text;
    for (const std::string& piece : session.dateFormat) {
        if (!text.empty()) text += static_cast<char>(session.dateSymbol);
        if (piece == "Y")
            text += iso.substr(0, 4);
        else
            text += iso.substr(piece == "M" ? 5 : 8, 2);
    }
    return text;
}

std::string datetext() {
    if (!platform) return {};
    std::string text = dateshown(platform->clock().date());
    if (session.clockShown == 1) text += " " + platform->clock().time();
    return text;
}
