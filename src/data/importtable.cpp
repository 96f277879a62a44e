#include "data/importtable.h"

#include <algorithm>

#include "session/capacities.h"
#include "session/options.h"
#include "shell/phrases.h"
#include "shell/words.h"

namespace {

using enum Item;
using Text = std::string;

// ---- words that several lines share ----

void xvalue(Text& t) { extend(t, "X-", Word::Value); }
void xyvalues(Text& t) { extend(t, "X-", Word::Value, "  Y-", Word::Value); }
void pointlabel(Text& t) { extend(t, "  ", Word::Point, "-", Word::Label); }
void fs(Text& t) { extend(t, "  F/S"); }
void plussuspension(Text& t) { extend(t, "'+' = ", Word::Suspension); }
void samplesize(Text& t) { extend(t, "  ", Word::Sample, "-", Word::Size, "-"); }

/// A word cut to three letters, for the narrow lines; letters of more than one byte are kept whole.
void cut(Text& t, Word which) {
    const Text& whole = word(which);
    std::size_t end = 0;
    for (int letters = 0; letters < 3 && end < whole.size(); ++letters)
        for (++end; end < whole.size() && (static_cast<unsigned char>(whole[end]) & 0xC0) == 0x80;) ++end;
    extend(t, std::string_view(whole).substr(0, end), ".");
}

// ---- life mode ----

constexpr ImportForm lifeA[] = {
    {{cell},
     1,
     Rows::cells,
     NewSet::column,
     keepInput,
     [](Text& t) {
         xvalue(t);
         extend(t, "  [", Word::New, " ", Word::Column, " = ", Word::New, " ", Word::Set, "]");
     }},
    {{x, quantity},
     1,
     Rows::points,
     NewSet::column,
     keepInput,
     [](Text& t) {
         xvalue(t);
         extend(t, "  ", Word::Quantity, "  [", Word::New, " ", Word::Set, " ...]");
     }},
};
constexpr ImportForm lifeB[] = {
    {{x, quantity},
     1,
     Rows::points,
     NewSet::blankLine,
     standard0,
     [](Text& t) {
         xvalue(t);
         extend(t, "  ", Word::Quantity);
     }},
    {{x, quantity, third},
     3,
     Rows::points,
     NewSet::blankLine,
     prbt2,
     [](Text& t) {
         xvalue(t);
         extend(t, "  ", Word::Quantity);
         samplesize(t);
         extend(t, Word::Probit, " prbt2");
     }},
    {{x, quantity, third},
     3,
     Rows::points,
     NewSet::blankLine,
     prbt3,
     [](Text& t) {
         xvalue(t);
         extend(t, "  %");
         samplesize(t);
         extend(t, Word::Probit, " prbt3");
     }},
    {{x, quantity, third},
     3,
     Rows::points,
     NewSet::blankLine,
     km4,
     [](Text& t) {
         xvalue(t);
         extend(t, "  ", Word::Quantity);
         samplesize(t);
         extend(t, "km4");
     }},
    {{x, quantity, upper},
     2,
     Rows::points,
     NewSet::blankLine,
     intv5,
     [](Text& t) {
         xvalue(t);
         extend(t, "  ", Word::Quantity, "  ", Word::Interval, " mle intv5");
     }},
};
constexpr ImportForm lifeC[] = {
    {{x, occurrences, suspensions}, 2, Rows::points, NewSet::blankLine, standard0, nullptr}};
constexpr ImportForm lifeD[] = {
    {{x, quantity, mark}, 3, Rows::points, NewSet::blankLine, standard0, nullptr}};
constexpr ImportForm lifeE[] = {{{x, mark}, 2, Rows::points, NewSet::blankLine, standard0, nullptr}};
constexpr ImportForm lifeF[] = {{{x, upper, Item::set}, 1, Rows::points, NewSet::changedSet, intv5, nullptr}};
constexpr ImportForm lifeJ[] = {
    {{x, quantity, mark, label},
     3,
     Rows::points,
     NewSet::column,
     standard0,
     [](Text& t) { extend(t, Word::New, " ", Word::Column, " = ", Word::New, " ", Word::Set); }},
    {{x, quantity, mark, label},
     3,
     Rows::points,
     NewSet::blankLine,
     standard0,
     [](Text& t) {
         extend(t, Word::Stacked, " (", Word::Blank, " ", Word::Row, " = ", Word::New, " ", Word::Set, ")");
     }},
};
constexpr ImportForm lifeK[] = {
    {{x, label},
     1,
     Rows::points,
     NewSet::blankLine,
     standard0,
     [](Text& t) {
         xvalue(t);
         pointlabel(t);
     }},
    {{x, quantity, third, label},
     3,
     Rows::points,
     NewSet::blankLine,
     km4,
     [](Text& t) {
         extend(t, "Kaplan-Meier km4: X  ", Word::Quantity);
         samplesize(t);
         extend(t, "km  ", Word::Label);
     }},
    {{x, quantity, label},
     2,
     Rows::points,
     NewSet::blankLine,
     insp1,
     [](Text& t) { extend(t, Word::Inspect, " insp1: X  ", Word::Quantity, "  ", Word::Label); }},
};
constexpr ImportForm lifeM[] = {
    {{}, 2, Rows::nevada, NewSet::blankLine, standard0, [](Text& t) { extend(t, Word::Standard); }},
    {{}, 2, Rows::nevada, NewSet::blankLine, insp1, [](Text& t) { extend(t, Word::Inspect, " insp1"); }},
    {{}, 2, Rows::nevada, NewSet::blankLine, intv5, [](Text& t) { extend(t, Word::Interval, " intv5"); }},
};
constexpr ImportForm warranty[] = {{{}, 2, Rows::nevada, NewSet::blankLine, standard0, nullptr}};

void warrantytable(Text& t) {
    extend(t, Word::Occurrence, " + ", Word::Production, " ... ", Word::Warranty, " ", Word::Table);
}

constexpr ImportLetter lifeLetters[] = {
    {lifeSide, 'A',
     [](Text& t) {
         xvalue(t);
         extend(t, "  ", Word::Quantity, "  [", Word::New, " ", Word::Set, " ...]");
     },
     lifeA},
    {lifeSide, 'B',
     [](Text& t) {
         xvalue(t);
         samplesize(t);
         extend(t, Word::Probit, "/km-", Word::Interval);
     },
     lifeB},
    {lifeSide, 'C',
     [](Text& t) {
         xvalue(t);
         extend(t, "  ", Word::Occurrence, "-", Word::Quantity, "  ", Word::Suspension, "-", Word::Quantity);
     },
     lifeC},
    {lifeSide, 'D',
     [](Text& t) {
         xvalue(t);
         extend(t, "  ", Word::Occurrence, "-", Word::Quantity);
         fs(t);
     },
     lifeD},
    {lifeSide, 'E',
     [](Text& t) {
         xvalue(t);
         fs(t);
     },
     lifeE},
    {lifeSide, 'F', [](Text& t) { extend(t, "Intv5  X  Y  ", Word::Set); }, lifeF},
    {lifeSide, 'J',
     [](Text& t) {
         xvalue(t);
         extend(t, "  ", Word::Point, "-", Word::Quantity, "  ", Word::Suspension, "-", Word::Type);
         pointlabel(t);
         extend(t, "  [", Word::Stacked, "]");
     },
     lifeJ},
    {lifeSide, 'K',
     [](Text& t) {
         xvalue(t);
         pointlabel(t);
         extend(t, " (Kaplan-Meier km4 / ", Word::Inspect, " insp1)");
     },
     lifeK},
    {lifeSide, 'M',
     [](Text& t) { extend(t, Word::Import, " ", Word::Warranty, " ", Word::For, " ", Word::Method); }, lifeM},
    {lifeSide, 'W', warrantytable, warranty},
};

// ---- XY mode ----

constexpr ImportForm xyA[] = {
    {{x, y},
     2,
     Rows::points,
     NewSet::column,
     keepInput,
     [](Text& t) {
         extend(t, "[");
         xyvalues(t);
         extend(t, " ", Word::Only, "]");
     }},
    {{x, y, quantity},
     2,
     Rows::points,
     NewSet::column,
     keepInput,
     [](Text& t) {
         xyvalues(t);
         extend(t, "  ", Word::Quantity);
     }},
    {{cell},
     1,
     Rows::cells,
     NewSet::column,
     keepInput,
     [](Text& t) {
         extend(t, "XxYxQxZ  [", Word::New, " ", Word::Column, " = ", Word::New, " ", Word::Set, "]");
     }},
};
constexpr ImportForm xyB[] = {{{x, y, quantity}, 2, Rows::points, NewSet::blankLine, keepInput, nullptr}};
constexpr ImportForm xyC[] = {
    {{x, Item::count},
     1,
     Rows::points,
     NewSet::blankLine,
     keepInput,
     [](Text& t) { extend(t, "'C-A' = Crow-AMSAA: ", Word::Time, "  ", Word::Event, "-", Word::Quantity); }},
    {{x},
     1,
     Rows::events,
     NewSet::blankLine,
     keepInput,
     [](Text& t) { extend(t, "     'FT' = ", Word::Failure, " ", Word::Truncated, ": ", Word::Time); }},
    {{x, total},
     2,
     Rows::points,
     NewSet::blankLine,
     keepInput,
     [](Text& t) {
         extend(t, "     'CE' = ");
         cut(t, Word::Cumulative);
         extend(t, " ", Word::Event, ": ", Word::Time, "  ");
         cut(t, Word::Cumulative);
     }},
    {{},
     1,
     Rows::itemTimes,
     NewSet::blankLine,
     keepInput,
     [](Text& t) { extend(t, "     'MI' = ", Word::Item, ": ", Word::Age, "1  ", Word::Age, "2 ..."); }},
    {{x, event, label},
     2,
     Rows::points,
     NewSet::blankLine,
     keepInput,
     [](Text& t) {
         extend(t, "     'RE' = ", Word::Recurrent, ": ", Word::Age, "  ", Word::Event, " (0-1)  ID");
     }},
};
constexpr ImportForm xyD[] = {{{x}, 1, Rows::events, NewSet::column, keepInput, nullptr}};
constexpr ImportForm xyF[] = {
    {{x, y, third}, 3, Rows::points, NewSet::blankLine, keepInput, [](Text& t) { extend(t, "[X  Y  Z]"); }},
    {{quantity, x, y, third},
     4,
     Rows::points,
     NewSet::blankLine,
     keepInput,
     [](Text& t) { extend(t, Word::Quantity, " [X  Y  Z]"); }},
};
constexpr ImportForm xyK[] = {{{x, y, label}, 2, Rows::points, NewSet::blankLine, keepInput, nullptr}};
constexpr ImportForm xyP[] = {{{x}, 1, Rows::units, NewSet::column, keepInput, nullptr}};
constexpr ImportForm xyN[] = {{{x, label}, 2, Rows::units, NewSet::blankLine, keepInput, nullptr}};
constexpr ImportForm xyO[] = {{{x, event}, 2, Rows::units, NewSet::column, keepInput, nullptr}};
constexpr ImportForm xyQ[] = {{{label, x}, 2, Rows::unitRows, NewSet::blankLine, keepInput, nullptr}};

constexpr ImportLetter xyLetters[] = {
    {visualSide, 'A',
     [](Text& t) {
         extend(t, "[");
         xyvalues(t);
         extend(t, " ", Word::Only, "]");
     },
     xyA},
    {visualSide, 'B',
     [](Text& t) {
         xyvalues(t);
         extend(t, "  ", Word::Quantity);
     },
     xyB},
    {visualSide, 'C', [](Text& t) { extend(t, Word::Time, "-", Word::Cumulative, "  'C-A' = Crow-AMSAA"); },
     xyC},
    {visualSide, 'D',
     [](Text& t) {
         extend(t, Word::Event, "  [", Word::New, " ", Word::Column, " = ", Word::New, " ", Word::Set,
                "]  Crow-AMSAA");
     },
     xyD},
    {visualSide, 'F', [](Text& t) { extend(t, Word::Quantity, " [X  Y  Z]"); }, xyF},
    {visualSide, 'K',
     [](Text& t) {
         xyvalues(t);
         pointlabel(t);
     },
     xyK},
    {visualSide, 'P',
     [](Text& t) {
         extend(t, Word::Age, "  (... ");
         plussuspension(t);
         extend(t, ") [Nelson RE]");
     },
     xyP},
    {visualSide, 'N',
     [](Text& t) {
         extend(t, Word::Age, "  (");
         plussuspension(t);
         extend(t, ") ID-", Word::Label);
     },
     xyN},
    {visualSide, 'O',
     [](Text& t) {
         extend(t, Word::Age, "  ", Word::Event, "-", Word::Value, " (0 = ", Word::Suspension, ")");
     },
     xyO},
    {visualSide, 'Q',
     [](Text& t) { extend(t, "ID-", Word::Label, "  ", Word::Age, "1  ", Word::Age, "2 ... "); }, xyQ},
    {visualSide, 'W', warrantytable, warranty},
};

} // namespace

std::span<const ImportLetter> importletters(std::int16_t side) {
    if (side == lifeSide) return lifeLetters;
    return xyLetters;
}

ImportChoice importchoice(std::int16_t side, std::string_view code) {
    if (code.empty() || code.size() > 2) return {};
    const char letter = code[0] >= 'a' && code[0] <= 'z' ? static_cast<char>(code[0] - 'a' + 'A') : code[0];
    const std::size_t variant = code.size() == 2 ? static_cast<std::size_t>(code[1] - '1') : 0;
    for (const ImportLetter& line : importletters(side))
        if (line.letter == letter && variant < line.forms.size()) return {&line, &line.forms[variant]};
    return {};
}

std::string importcode(const ImportChoice& choice) {
    if (!choice.letter) return {};
    std::string code(1, choice.letter->letter);
    if (choice.letter->forms.size() > 1)
        code += static_cast<char>('1' + (choice.form - choice.letter->forms.data()));
    return code;
}

std::size_t itemcount(const ImportForm& form) {
    return static_cast<std::size_t>(std::find(form.items.begin(), form.items.end(), Item::none)
                                    - form.items.begin());
}
