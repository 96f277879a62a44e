#include "shell/prompts.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>

#include "numeric/matherror.h"
#include "platform/platform.h"
#include "session/session.h"
#include "shell/prompttext.h"

namespace {

int itemcount() {
    return static_cast<int>(
        std::clamp(session.menuCount, 0.0f, static_cast<float>(PromptRegisters::menuItems)));
}

/// Bytes of the character that a text begins with.
std::size_t characterlength(std::string_view text) {
    std::size_t length = 1;
    while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80) ++length;
    return length;
}

/// The default item, or 0 when the register holds no item's number.
int presetitem(int count) {
    const float choice = session.menuChoice;
    return choice >= 1 && choice <= static_cast<float>(count) ? static_cast<int>(choice) : 0;
}

int askplatform(int count, int* scroll) {
    if (!platform) return 0;
    std::array<std::string, PromptRegisters::menuItems> items;
    for (int i = 0; i < count; ++i) items[i] = cleaned(session.menuItem[i + 1]);
    const std::string header = headertext();
    const std::string lead = cleaned(session.msg);
    const std::string accept = cleaned(word(Word::OK));
    const std::string cancel = count > 1 ? cleaned(word(Word::Back)) : std::string();
    const MenuPage page{.header = header,
                        .lead = lead,
                        .items = std::span(items).first(static_cast<std::size_t>(count)),
                        .preset = presetitem(count),
                        .rows = session.menuStyle,
                        .accept = accept,
                        .cancel = cancel,
                        .scroll = scroll};
    const int choice = platform->prompts().menu(page);
    return choice >= 1 && choice <= count ? choice : 0;
}

/// The first item that is no heading; the first of all on a page of headings, 0 on one of nothing.
int firstitem(int count) {
    for (int i = 1; i <= count; ++i)
        if (itempickable(session.menuItem[i])) return i;
    return std::min(count, 1);
}

void showpage(int* scroll) {
    const int count = itemcount();
    if (session.menuPage != 0) session.activeMode = session.menuPage;
    const bool answersitself = scriptmode() || (count == 1 && session.msg.empty());
    const int preset = presetitem(count);
    const int choice = !answersitself ? askplatform(count, scroll) : preset > 0 ? preset : firstitem(count);
    session.msg.clear();
    if (choice > 0) session.msg = session.menuItem[choice];
    wordrestore(session.msg);
    session.menuTitle.clear();
    session.menuCount = 0;
    session.menuPage = 0;
    session.menuChoice = static_cast<float>(choice);
    session.u = session.menuChoice;
}

void showstyled(int16_t rows) {
    const Keep keep{session.menuStyle};
    session.menuStyle = rows;
    menushow();
}

/// "Y...Yes": the key of an answer is the same in every language, its word is not.
struct Answer {
    const char* key;
    Word word;
};

/// Asks msg with the answers as items; u = the number of the answer, that of the last one on cancel.
void ask(std::span<const Answer> answers) {
    Keep keep{session.msg,      session.menuTitle,   session.menuCount,   session.menuChoice,
              session.menuPage, session.menuItem[1], session.menuItem[2], session.menuItem[3]};
    session.menuPage = 0;
    for (std::size_t i = 0; i < answers.size(); ++i)
        compose(session.menuItem[i + 1], answers[i].key, "...", AsTyped{cleaned(word(answers[i].word))});
    session.menuCount = static_cast<float>(answers.size());
    session.menuChoice = 1;
    menushow();
    if (session.u == 0) session.u = static_cast<float>(answers.size());
}

constexpr Answer yes{"Y", Word::Yes};
constexpr Answer no{"N", Word::No};
constexpr Answer ok{"O", Word::OK};
constexpr Answer cancel{"C", Word::Cancel};

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
    compose(session.msg, AsTyped{text}); // in its own words, whatever letter they quote
    tellok();
}

} // namespace

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

bool itempickable(std::string_view item) {
    if (item.empty() || item.front() == '.') return false;
    return item.substr(characterlength(item), 3) == "...";
}

int itemofkey(std::span<const std::string> items, char key) {
    const auto upper = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; };
    for (std::size_t i = 0; i < items.size(); ++i)
        if (itempickable(items[i]) && upper(items[i].front()) == upper(key)) return static_cast<int>(i) + 1;
    return 0;
}

void menuclear() {
    for (int i = 1; i <= itemcount(); ++i) session.menuItem[i].clear();
    session.menuCount = 0;
}

void menushow() { showpage(nullptr); }

void menushowgo() {
    int top = 0;
    showpage(session.menuPage != 0 ? &session.menuScroll[session.menuPage] : &top);
}

void menushowsmall() { showstyled(3); }

void menushowlarge() { showstyled(4); }

void tellok() {
    if (scriptmode() || !platform) return;
    Keep keep{session.msg, session.menuTitle, session.menuCount, session.menuChoice, session.u, session.ud};
    platform->prompts().message(headertext(), cleaned(session.msg));
}

void tellerror() {
    if (scriptmode()) return;
    Keep keep{session.msg};
    std::string text;
    extend(text, AsTyped{headertext()}, doubleLineBreak, session.msg);
    session.msg = text;
    tellok();
}

void askyesno() {
    const Keep keep{session.msg};
    session.msg += '?';
    ask(std::array{yes, no});
}

void askyesnocancel() {
    const Keep keep{session.msg};
    session.msg += '?';
    ask(std::array{yes, no, cancel});
}

void askokcancel() { ask(std::array{ok, cancel}); }

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
