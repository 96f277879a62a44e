#include "platform/headless/headless.h"

#include <ctime>

int HeadlessPlatform::menu(const MenuPage& page) {
    const int count = static_cast<int>(page.items.size());
    if (page.preset >= 1 && page.preset <= count) return page.preset;
    return count > 0 ? 1 : 0;
}

void HeadlessPlatform::message(std::string_view, std::string_view text) { messages.emplace_back(text); }

std::string HeadlessPlatform::date() {
    const std::time_t now = std::time(nullptr);
    char text[16];
    const std::size_t length = std::strftime(text, sizeof text, "%Y-%m-%d", std::localtime(&now));
    return {text, length};
}
