#include <algorithm>
#include <charconv>
#include <cmath>

#include "data/numbertext.h"
#include "numeric/sngguard.h"
#include "options/page.h"
#include "shell/calcplot.h"
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

/// The settings that a page changes itself, as they were.
struct Standing {
    std::vector<Kept> places;
    Held held; ///< of the page's hooks
};

Standing settingsof(const Page& page) {
    Standing all;
    for (const Item& item : page.items)
        if (item.at) all.places.push_back(keptof(item.at(session)));
    for (const PlaceOf at : page.also) all.places.push_back(keptof(at(session)));
    if (page.keep) all.held = page.keep();
    return all;
}

bool standsasbefore(const Page& page, const Standing& before) {
    return std::all_of(before.places.begin(), before.places.end(),
                       [](const Kept& kept) { return standsasbefore(kept); })
           && (!page.keep || page.keep() == before.held);
}

void putback(const Page& page, const Standing& before) {
    for (const Kept& kept : before.places) putback(kept);
    if (page.restore && page.keep() != before.held) page.restore(before.held);
}

/// What another page changed was accepted there: it is no more this page's to put back.
void takeover(const Page& page, const Standing& former, Standing& before) {
    const Standing now = settingsof(page);
    for (std::size_t i = 0; i < before.places.size(); ++i)
        if (!standsasbefore(former.places[i])) before.places[i] = now.places[i];
    if (now.held != former.held) before.held = now.held;
}

bool isoffered(const Item& item) { return !item.offered || item.offered(); }

bool flipped(const Item& item) { return numberat(item.at(session)) == item.high; }

bool inforce(const Item& item) {
    return item.present ? item.present() : numberat(item.at(session)) == item.low;
}

/// Significant digits that a place holds for certain.
int digitsof(const Place& place) { return std::holds_alternative<float*>(place) ? 7 : 15; }

void appendplace(std::string& text, const Item& item) {
    const Place place = item.at(session);
    if (const auto* const held = std::get_if<std::string*>(&place))
        extend(text, "'", AsTyped{**held}, "'");
    else
        appendshown(text, numberat(place) * item.scale, digitsof(place));
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
    const double preset = asshown(numberat(place) * item.scale, digitsof(place));
    double value = preset;
    if (!asknumberwithin(item.label, value, item.low, item.high, item.whole)) return false;
    // The digits beyond those shown are not lost by an answer that repeats what was shown.
    if (value == preset) return false;
    return putnumber(place, value / item.scale);
}

bool taketext(const Item& item) {
    std::string& held = *std::get<std::string*>(item.at(session));
    compose(session.msg, item.label);
    textprompt(held);
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

/// A page that is opened is left with its own acceptance; a list only picks a value for the page behind it.
bool acceptsitself(const Item& item) {
    if (item.kind != ItemKind::page) return false;
    const Page* const table = tableof(item.opens);
    return !table || !table->list;
}

/// Letter of the n-th entry of a list, from 0: A to W, X being the exit, and then the digits; 0 beyond.
char letterofentry(std::size_t n) {
    constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVW123456789";
    return n < letters.size() ? letters[n] : '\0';
}

/// " (low ... high)", an end without a limit left open.
void appendlimits(std::string& text, double low, double high) {
    text += " (";
    if (low > noLowLimit) appendshown(text, low, 7);
    text += " ... ";
    if (high < static_cast<double>(noHighLimit)) appendshown(text, high, 7);
    text += ')';
}

} // namespace

void append(std::string& text, const Label& label) {
    for (std::size_t i = 0; i < label.count; ++i) {
        const LabelPart& part = label.parts[i];
        const std::string_view fixed = part.text ? part.text : "";
        if (i > 0 && blankbetween(text, fixed)) text += ' ';
        // The sign of a product is no mark of a text that the language leaves alone.
        if (part.text && fixed.find('*') != std::string_view::npos)
            append(text, AsTyped{fixed});
        else if (part.text)
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
    Standing before = settingsof(page);
    bool acted = false; // a change that no place of this page tells, and that stays: another page, an action
    for (const Item* item = chosen(page); item; item = chosen(page)) {
        if (item->kind == ItemKind::accept) {
            if (item->act) acted = item->act() || acted;
            break;
        }
        if (item->kind == ItemKind::exit) {
            if (hasaccept(page)) putback(page, before);
            break;
        }
        if (item->calculated && (acted || !standsasbefore(page, before))) {
            calcplot();
            before = settingsof(page);
            acted = false;
        }
        const Standing former = settingsof(page);
        const bool changed = take(*item);
        acted = acted || (changed && (acceptsitself(*item) || standsasbefore(page, former)));
        if (changed && acceptsitself(*item)) takeover(page, former, before);
        if (item->leaves || (page.list && item->kind == ItemKind::pick)) break;
    }
    if (session.activeMode == identityof(page.page)) session.activeMode = modeBefore;
    return acted || !standsasbefore(page, before);
}

int choosefrom(const Label& title, std::span<const std::string> entries, int present) {
    if (scriptmode()) return -1;
    menuclear();
    std::size_t count = 0;
    for (; count < entries.size() && letterofentry(count) != 0; ++count)
        compose(session.menuItem[count + 1], letterofentry(count), "...", AsTyped{entries[count]});
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
    for (bool refused = false;; refused = true) {
        compose(session.msg, lead);
        if (refused) appendlimits(session.msg, low, high);
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

double asshown(double value, int digits) {
    if (!std::isfinite(value)) return value;
    std::string text;
    appendsignificant(text, value, digits);
    double rounded = value;
    std::from_chars(text.data(), text.data() + text.size(), rounded);
    return rounded;
}
