#include "shell/prompts.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>

#include "numeric/matherror.h"
#include "platform/platform.h"
#include "session/session.h"

namespace {

bool scriptmode() { return !session.scriptRequest.empty(); }

int itemcount() {
    return static_cast<int>(
        std::clamp(session.menuCount, 0.0f, static_cast<float>(PromptRegisters::menuItems)));
}

/// The default item, or 0 when the register holds no item's number.
int presetitem(int count) {
    const float choice = session.menuChoice;
    return choice >= 1 && choice <= static_cast<float>(count) ? static_cast<int>(choice) : 0;
}

std::string cleaned(std::string_view text) {
    std::string shown(text);
    wordclean(shown);
    return shown;
}

/// The header as a window shows it.
std::string headertext() {
    constexpr std::string_view mark = "!KM!";
    std::string_view header = session.menuTitle;
    if (header.starts_with(mark)) {
        header.remove_prefix(mark.size());
        if (header.starts_with('_')) header.remove_prefix(1);
    }
    if (header.find_first_not_of(' ') == std::string_view::npos) header = session.productName;
    return cleaned(header);
}

int askplatform(int count) {
    if (!platform) return 0;
    std::array<std::string, PromptRegisters::menuItems> items;
    for (int i = 0; i < count; ++i) items[i] = cleaned(session.menuItem[i + 1]);
    const std::string header = headertext();
    const std::string lead = cleaned(session.msg);
    const int choice = platform->prompts().menu(
        {header, lead, std::span(items).first(static_cast<std::size_t>(count)), presetitem(count)});
    return choice >= 1 && choice <= count ? choice : 0;
}

/// "Y...Yes": the key that picks an item is the first letter of its word.
void answeritem(std::string& item, Word answer) { compose(item, word(answer).substr(0, 1), "...", answer); }

void appendcause(std::string& text, int number) {
    switch (number) {
    case 5: extend(text, Word::Negative, " ", Word::Log, " / ", Word::Power); break;
    case 6: extend(text, Word::Results, " ", Word::Too, " ", Word::Big); break;
    case 9: extend(text, Word::Array, " ", Word::Too, " ", Word::Big); break;
    default: break;
    }
}

/// Shows the text of a failed number routine.
void tellmathtext(std::string_view text) {
    Keep keep{session.msg, session.menuTitle};
    session.menuTitle.clear();
    session.msg = text;
    tellok();
}

} // namespace

void menuclear() {
    for (int i = 1; i <= itemcount(); ++i) session.menuItem[i].clear();
    session.menuCount = 0;
}

void menushow() {
    const int count = itemcount();
    const bool answersitself = scriptmode() || (count == 1 && session.msg.empty());
    const int choice = answersitself ? std::min(count, std::max(presetitem(count), 1)) : askplatform(count);
    if (choice > 0)
        session.msg = session.menuItem[choice];
    else
        session.msg.clear();
    session.menuTitle.clear();
    session.menuCount = 0;
    session.menuChoice = static_cast<float>(choice);
    session.u = session.menuChoice;
}

void tellok() {
    if (scriptmode() || !platform) return;
    Keep keep{session.msg, session.menuTitle, session.menuCount, session.menuChoice, session.u, session.ud};
    platform->prompts().message(headertext(), cleaned(session.msg));
}

void tellerror() {
    if (scriptmode()) return;
    Keep keep{session.msg};
    session.msg.insert(0, doubleLineBreak).insert(0, headertext());
    tellok();
}

void askyesno() {
    Keep keep{session.msg,        session.menuTitle,   session.menuCount,
              session.menuChoice, session.menuItem[1], session.menuItem[2]};
    session.msg += '?';
    answeritem(session.menuItem[1], Word::Yes);
    answeritem(session.menuItem[2], Word::No);
    session.menuCount = 2;
    session.menuChoice = 1;
    menushow();
    session.u = session.menuChoice == 1 ? 1.0f : 2.0f;
}

void statusline() {
    wordclean(session.msg);
    if (platform) platform->window().caption(session.msg);
}

void reportfault(int number) {
    Keep keep{session.msg};
    extend(session.msg, "(2)!!!...", Word::Calculation, " ", Word::Error, " #", number, " ... ");
    appendcause(session.msg, number);
    tellok();
}

void installreporters() {
    tellfault = reportfault;
    tellmatherror = tellmathtext;
}
