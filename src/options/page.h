#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "options/pages.h"
#include "session/session.h"
#include "session/settingstable.h"
#include "shell/prompts.h"
#include "shell/words.h"

/// An option page is a table of items; one engine shows it, reads the choice and changes the setting.

/// One piece of a label: a word of the table, or a text that is the same in every language.
struct LabelPart {
    Word word = Word::None_;
    const char* text = nullptr;
    constexpr LabelPart() = default;
    constexpr LabelPart(Word slot) : word(slot) {}
    constexpr LabelPart(const char* fixed) : text(fixed) {}
};

/// The pieces of a label in order, a blank between them unless a hyphen or a bracket ties them.
struct Label {
    static constexpr std::size_t most = 14;
    LabelPart parts[most];
    std::size_t count = 0;
    constexpr Label() = default;
    constexpr Label(Word only) : parts{LabelPart(only)}, count(1) {}
    constexpr Label(const char* only) : parts{LabelPart(only)}, count(1) {}
    template <class... Parts>
    constexpr Label(LabelPart first, Parts... others)
        : parts{first, LabelPart(others)...},
          count(1 + sizeof...(others)) {
        static_assert(1 + sizeof...(others) <= most);
    }
};
void append(std::string& text, const Label& label);

/// Where a setting lives.
using PlaceOf = Place (*)(Session&);

/// What the choice of an item does.
enum class ItemKind : uint8_t {
    accept, ///< leaves and keeps
    exit,   ///< leaves; on a page with an accepting item without what was changed on it
    flip,   ///< changes between two values
    number, ///< asks for a number within limits
    text,   ///< asks for a text
    pick,   ///< takes one value out of the several that the page offers
    page,   ///< opens another page
    action  ///< calls a routine
};

struct Item {
    char letter = 0;
    ItemKind kind = ItemKind::exit;
    Label label = {};
    PlaceOf at = nullptr;
    double low = 0, high = 0;    ///< limits of a number; the two values of a flip; low that of a pick
    bool whole = false;          ///< a number without decimals
    bool filled = false;         ///< a text that may not be empty
    double scale = 1;            ///< the page shows the session's value times this
    Label off = {}, on = {};     ///< names of the two values of a flip
    OptionPage opens = {};       ///< of a page
    bool (*act)() = nullptr;     ///< of an action, of a pick without a place, and what an accepting item
                                 ///< calls: true when it changed a setting
    bool (*present)() = nullptr; ///< of such a pick: true when it is the one in force
    void (*value)(std::string&) = nullptr; ///< appends the present value where it is not that of the place
    bool (*offered)() = nullptr;           ///< null: always
    bool leaves = false;                   ///< an action that leads away from the page
    bool calculated = false;               ///< an action that writes into the report of the last calculation

    constexpr Item when(bool (*condition)()) const {
        Item item = *this;
        item.offered = condition;
        return item;
    }
    constexpr Item shows(void (*present_)(std::string&)) const {
        Item item = *this;
        item.value = present_;
        return item;
    }
    /// What was changed on the page is calculated before the action, whose report stays by that.
    constexpr Item oncalculated() const {
        Item item = *this;
        item.calculated = true;
        return item;
    }
    /// The page is left when the action has been called.
    constexpr Item leaving() const {
        Item item = *this;
        item.leaves = true;
        return item;
    }
    constexpr Item times(double factor) const {
        Item item = *this;
        item.scale = factor;
        return item;
    }
};

constexpr Item acceptitem(char letter, Label label) { return {letter, ItemKind::accept, label}; }
/// One that calls a routine with what it accepts.
constexpr Item acceptitem(char letter, Label label, bool (*act)()) {
    return {.letter = letter, .kind = ItemKind::accept, .label = label, .act = act};
}
constexpr Item exititem(char letter, Label label) { return {letter, ItemKind::exit, label}; }

/// A two-way choice: shown as "NO (/ Yes)" by the names of its values.
constexpr Item flipitem(char letter, Label label, PlaceOf at, Label off = Word::No, Label on = Word::Yes,
                        double offValue = 0, double onValue = 1) {
    return {.letter = letter,
            .kind = ItemKind::flip,
            .label = label,
            .at = at,
            .low = offValue,
            .high = onValue,
            .off = off,
            .on = on};
}
constexpr Item numberitem(char letter, Label label, PlaceOf at, double low, double high) {
    return {.letter = letter, .kind = ItemKind::number, .label = label, .at = at, .low = low, .high = high};
}
constexpr Item wholeitem(char letter, Label label, PlaceOf at, double low, double high) {
    Item item = numberitem(letter, label, at, low, high);
    item.whole = true;
    return item;
}
/// A name, which may not be empty.
constexpr Item nameitem(char letter, Label label, PlaceOf at) {
    return {.letter = letter, .kind = ItemKind::text, .label = label, .at = at, .filled = true};
}
constexpr Item textitem(char letter, Label label, PlaceOf at) {
    return {.letter = letter, .kind = ItemKind::text, .label = label, .at = at};
}
constexpr Item pickitem(char letter, Label label, PlaceOf at, double value) {
    return {.letter = letter, .kind = ItemKind::pick, .label = label, .at = at, .low = value};
}
/// One of several ways that take more than one setting.
constexpr Item pickitem(char letter, Label label, bool (*present)(), bool (*take)()) {
    return {.letter = letter, .kind = ItemKind::pick, .label = label, .act = take, .present = present};
}
constexpr Item pageitem(char letter, Label label, OptionPage opens) {
    return {.letter = letter, .kind = ItemKind::page, .label = label, .opens = opens};
}
constexpr Item actionitem(char letter, Label label, bool (*act)()) {
    return {.letter = letter, .kind = ItemKind::action, .label = label, .act = act};
}

/// What no place of a page tells: a list, or a setting that more must follow when it is put back.
struct Held {
    std::vector<double> numbers;
    std::string text;
    bool operator==(const Held&) const = default;
};

/// One page.
struct Page {
    OptionPage page;
    Label title;
    std::span<const Item> items;
    void (*lead)(std::string&) = nullptr;   ///< appends the lead text; null: none
    bool list = false;                      ///< a pick leaves the page
    std::span<const PlaceOf> also = {};     ///< places that an exit without the change puts back as well
    Held (*keep)() = nullptr;               ///< what it puts back besides; null: nothing
    void (*restore)(const Held&) = nullptr; ///< puts that back; called only when it changed
};

/// The identity of a page in menuPage: below 0; the language page is -40.
int16_t identityof(OptionPage page);

/// The table of a page; null for one that is made of what there is: samples, former results, languages.
const Page* tableof(OptionPage page);

/// Pages by subject, for the registry.
std::span<const Page> setuppages();
std::span<const Page> outputpages();
std::span<const Page> plotpages();
std::span<const Page> lifepages();
std::span<const Page> confidencepages();
std::span<const Page> testpages();
std::span<const Page> calculatorpages();
std::span<const Page> librarypages();
std::span<const Page> functionpages();
std::span<const Page> markerpages();
std::span<const Page> curvepages();
std::span<const Page> visualpages();
std::span<const Page> transformpages();

/// Pages that are no tables.
bool samplepage();

/// Asks for the former usage of an item, and tells the life that the line of the set in hand leaves it.
bool lifeleft();

/// Shows a page until it is left. True when a setting was changed. In a script run nothing is shown.
bool showoptions(const Page& page);

/// The text of an item as the page shows it, "B...Baud (Com) = 9600".
std::string itemtext(const Item& item);

/// Shows a list, a letter or behind W a digit each, and "X...Exit"; the number of the entry chosen from 0,
/// or -1. At most 32 entries. `present`: the entry in force, -1 none.
int choosefrom(const Label& title, std::span<const std::string> entries, int present = -1);

/// Asks for a number until it lies within the limits, which a refused one is told. False on a cancel; `value`
/// then stays.
bool asknumberwithin(const Label& lead, double& value, double low, double high, bool whole = false);

/// A number as a page shows it, rounded to so many significant digits: 2.7 in single precision, which holds
/// 7, is no 2.70000005.
double asshown(double value, int digits);

/// Appends a number in the decimal form of the display.
void appendshown(std::string& text, double value, int digits = 15);

/// Tells a sentence, or a result, made of parts.
template <class... Parts>
void tell(const Parts&... parts) {
    const Keep keep{session.msg, session.menuTitle};
    compose(session.msg, parts...);
    session.menuTitle.clear();
    tellok();
}

inline bool onlifeside() { return session.progSide == lifeSide; }
