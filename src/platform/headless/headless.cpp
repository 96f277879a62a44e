#include "platform/headless/headless.h"

#include <algorithm>
#include <ctime>

#include "platform/files.h"
#include "shell/prompts.h"

int HeadlessPlatform::menu(const MenuPage& page) {
    const int count = static_cast<int>(page.items.size());
    if (page.preset >= 1 && page.preset <= count) return page.preset;
    for (int i = 1; i <= count; ++i)
        if (itempickable(page.items[static_cast<std::size_t>(i - 1)])) return i;
    return std::min(count, 1);
}

void HeadlessPlatform::message(std::string_view, std::string_view text) { messages.emplace_back(text); }

namespace {

std::string now(const char* form) {
    const std::time_t moment = std::time(nullptr);
    char text[16];
    const std::size_t length = std::strftime(text, sizeof text, form, std::localtime(&moment));
    return {text, length};
}

} // namespace

std::string HeadlessPlatform::date() { return now("%Y-%m-%d"); }

std::string HeadlessPlatform::time() { return now("%H:%M"); }

std::optional<std::string> HeadlessPlatform::text() { return readfile("-"); }

bool HeadlessPlatform::settext(std::string_view text) { return writefile("-", text); }
