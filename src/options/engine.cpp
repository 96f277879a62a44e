#include <algorithm>
#include <cmath>

#include "data/numbertext.h"
#include "numeric/sngguard.h"
#include "options/page.h"
#include "shell/prompts.h"
#include "shell/prompttext.h"

namespace {

template <class... Ts>
struct Cases : Ts... {
    using Ts::operator()...;
};
template <class... Ts>
Cases(Ts...) -> Cases<Ts...>;

constexpr int32_t colourCeiling = 0xFFFFFF;

/// The number at a place; 0 for a text.
double numberat(const Place& place) {
    return std::visit(
        Cases{[](std::string*) { return 0.0; }, [](auto* held) { return static_cast<double>(*held); }},
        place);
}

/// Puts a number, which lies within the limits of its item, at a place. True when that changed it.
bool putnumber(const Place& place, double value) {
    const double before = numberat(place);
    std::visit(Cases{[](std::string*) {}, [&](float* held) { *held = sngguard(value); },
                     [&](double* held) { *held = value; },
                     [&](auto* held) {
                         using T = std::remove_pointer_t<decltype(held)>;
                         *held = static_cast<T>(std::clamp(value, -32768.0, double{colourCeiling}));
                     }},
               place);
    return numberat(place) != before;
}

/// A setting as it was.
struct Kept {
    Place place;
    double number = 0;
    std::string text;
};

Kept keptof(const Place& place) {
    Kept kept{place, numberat(place), {}};
    if (const auto* const text = std::get_if<std::string*>(&place)) kept.text = **text;
    return kept;
}

void putback(const Kept& kept) {
    if (const auto* const text = std::get_if<std::string*>(&kept.place))
        **text = kept.text;
    else
        putnumber(kept.place, kept.number);
}

bool standsasbefore(const Kept& kept) {
    const Kept now = keptof(kept.place);
    return now.number == kept.number && now.text == kept.text;
}

/// The settings that a page changes itself.
std::vector<Kept> settingsof(const Page& page) {
    std::vector<Kept> all;
    for (const Item& item : page.items)
        if (item.at) all.push_back(keptof(item.at(session)));
    for (const PlaceOf at : page.also) all.push_back(keptof(at(session)));
    return all;
}

bool isoffered(const Item& item) { return !item.offered || item.offered(); }

bool flipped(const Item& item) { return numberat(item.at(session)) == item.high; }

bool inforce(const Item& item) {
    return item.present ? item.present() : numberat(item.at(session)) == item.low;
}

void appendplace(std::string& text, const Item& item) {
    const Place place = item.at(session);
    if (const auto* const held = std::get_if<std::string*>(&place))
        extend(text, "'", AsTyped{**held}, "'");
    else
        appendshown(text, numberat(place) * item.scale, std::get_if<float*>(&place) ? 7 : 15);
}

void appendvalue(std::string& text, const Item& item) {
    if (item.value) {
        text += " = ";
        item.value(text);
        return;
    }
    switch (item.kind) {
    case ItemKind::flip:
        extend(text, " = ", flipped(item) ? item.on : item.off, " (/ ", flipped(item) ? item.off : item.on,
               ")");
        break;
    case ItemKind::number:
    case ItemKind::text:
        text += " = ";
        appendplace(text, item);
        break;
    case ItemKind::pick:
        if (inforce(item)) extend(text, " [", Word::Active, "]");
        break;
    default: break;
    }
}

// ---- taking a choice ----

bool takenumber(const Item& item) {
    const Place place = item.at(session);
    double value = numberat(place) * item.scale;
    if (!asknumberwithin(item.label, value, item.low, item.high, item.whole)) return false;
    return putnumber(place, value / item.scale);
}

bool taketext(const Item& item) {
    std::string& held = *std::get<std::string*>(item.at(session));
    compose(session.msg, item.label);
    textprompt();
    if (session.msg == noAnswerText || session.msg == held || (item.filled && session.msg.empty()))
        return false;
    held = session.msg;
    return true;
}

bool takepick(const Item& item) { return item.act ? item.act() : putnumber(item.at(session), item.low); }

bool take(const Item& item) {
    switch (item.kind) {
    case ItemKind::flip: return putnumber(item.at(session), flipped(item) ? item.low : item.high);
    case ItemKind::number: return takenumber(item);
    case ItemKind::text: return taketext(item);
    case ItemKind::pick: return takepick(item);
    case ItemKind::page: {
        const Page* const table = tableof(item.opens);
        return table ? showoptions(*table) : optionpage(item.opens);
    }
    case ItemKind::action: return item.act();
    default: return false;
    }
}

// ---- showing ----

/// Fills the prompt with the items that are offered.
void fill(const Page& page) {
    menuclear();
    int leaving = 0;
    int active = 0;
    for (const Item& item : page.items) {
        if (!isoffered(item) || session.menuCount >= PromptRegisters::menuItems) continue;
        const int place = static_cast<int>(++session.menuCount);
        session.menuItem[static_cast<std::size_t>(place)] = itemtext(item);
        const bool leaves = item.kind == ItemKind::accept || item.kind == ItemKind::exit;
        if (leaves && leaving == 0) leaving = place;
        if (item.kind == ItemKind::pick && inforce(item)) active = place;
    }
    session.menuChoice = static_cast<float>(page.list && active > 0 ? active : leaving);
    session.menuPage = identityof(page.page);
    compose(session.menuTitle, page.title);
    session.msg.clear();
    if (page.lead) page.lead(session.msg);
}

/// The item that the user chose, by its first letter; null on a cancel.
const Item* chosen(const Page& page) {
    fill(page);
    menushowgo();
    const auto place = static_cast<std::size_t>(std::max(session.menuChoice, 0.0f));
    if (place == 0 || session.menuItem[place].empty()) return nullptr;
    const char letter = session.menuItem[place].front();
    for (const Item& item : page.items)
        if (item.letter == letter && isoffered(item)) return &item;
    return nullptr;
}

/// Parts of a label stand a blank apart, unless a bracket or a hyphen ties them or one brings its own.
bool blankbetween(std::string_view before, std::string_view part) {
    if (before.ends_with(' ') || before.ends_with('[') || before.ends_with('(')) return false;
    if (before.ends_with('-') && !before.ends_with(" -")) return false;
    return part.empty() || std::string_view(" -)],?").find(part.front()) == std::string_view::npos;
}

bool hasaccept(const Page& page) {
    return std::any_of(page.items.begin(), page.items.end(),
                       [](const Item& item) { return item.kind == ItemKind::accept; });
}

} // namespace

void append(std::string& text, const Label& label) {
    for (std::size_t i = 0; i < label.count; ++i) {
        const LabelPart& part = label.parts[i];
        const std::string_view fixed = part.text ? part.text : "";
        if (i > 0 && blankbetween(text, fixed)) text += ' ';
        if (part.text)
            append(text, fixed);
        else
            append(text, part.word);
    }
}

std::string itemtext(const Item& item) {
    std::string text;
    compose(text, item.letter, "...", item.label);
    appendvalue(text, item);
    return text;
}

bool showoptions(const Page& page) {
    if (scriptmode()) return false;
    const int16_t modeBefore = session.activeMode;
    const std::vector<Kept> before = settingsof(page);
    bool acted = false; // a change that no place of this page tells, and that stays: another page, an action
    for (const Item* item = chosen(page); item; item = chosen(page)) {
        if (item->kind == ItemKind::accept) break;
        if (item->kind == ItemKind::exit) {
            if (hasaccept(page)) std::for_each(before.begin(), before.end(), putback);
            break;
        }
        const std::vector<Kept> places = settingsof(page);
        const bool changed = take(*item);
        acted = acted || (changed && std::all_of(places.begin(), places.end(), standsasbefore));
        if (page.list && item->kind == ItemKind::pick) break;
    }
    if (session.activeMode == identityof(page.page)) session.activeMode = modeBefore;
    return acted || !std::all_of(before.begin(), before.end(), standsasbefore);
}

int choosefrom(const Label& title, std::span<const std::string> entries, int present) {
    constexpr std::size_t letters = 'W' - 'A';
    if (scriptmode()) return -1;
    menuclear();
    const std::size_t count = std::min(entries.size(), letters);
    for (std::size_t i = 0; i < count; ++i)
        compose(session.menuItem[i + 1], static_cast<char>('A' + i), "...", AsTyped{entries[i]});
    compose(session.menuItem[count + 1], "X...", Word::Exit);
    session.menuCount = static_cast<float>(count + 1);
    session.menuChoice = present >= 0 && static_cast<std::size_t>(present) < count
                             ? static_cast<float>(present + 1)
                             : static_cast<float>(count + 1);
    compose(session.menuTitle, title);
    session.msg.clear();
    session.menuPage = 0;
    menushow();
    const int place = static_cast<int>(session.menuChoice);
    return place >= 1 && static_cast<std::size_t>(place) <= count ? place - 1 : -1;
}

bool asknumberwithin(const Label& lead, double& value, double low, double high, bool whole) {
    const Keep keep{session.promptKind, session.promptMin, session.promptMax, session.u, session.ud};
    session.promptKind = 1;
    session.promptMin = sngguard(low);
    session.promptMax = sngguard(high);
    const double preset = std::clamp(value, low, high);
    for (;;) {
        compose(session.msg, lead);
        session.ud = preset;
        numberprompt();
        if (session.ud == noAnswer) return false;
        const double answer = session.ud;
        if (!(answer >= low && answer <= high) || (whole && answer != std::floor(answer))) continue;
        value = answer;
        return true;
    }
}

void appendshown(std::string& text, double value, int digits) {
    std::string number;
    appendsignificant(number, value, digits);
    wordnumber(number);
    extend(text, AsTyped{number});
}
