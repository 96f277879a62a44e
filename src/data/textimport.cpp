#include "data/textimport.h"

#include <algorithm>
#include <cmath>

#include "data/cell.h"
#include "data/importread.h"
#include "data/textnormalize.h"
#include "data/textrecognize.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "session/session.h"
#include "shell/prompts.h"

namespace {

constexpr std::size_t oneSetTooMany = 25; ///< so that what is too much is told

bool nobodyasked() { return session.noPrompt == 1 || !session.scriptRequest.empty(); }

// ---- commas ----

constexpr std::size_t shownLine = 60; ///< characters of a line that a question repeats

/// The marks with what is undecided read in one way: as decimal symbols, or as what they are where the point
/// is the decimal symbol. Commas that may all stand between thousands do so there.
TextMarks settled(const TextLook& look, bool decimal) {
    TextMarks marks = look.marks;
    const Comma point = look.thousands ? Comma::group : Comma::separator;
    if (marks.between == Comma::undecided) marks.between = decimal ? Comma::decimal : point;
    if (marks.within == Comma::undecided) marks.within = decimal ? Comma::decimal : Comma::group;
    return marks;
}

/// Every reading of what is undecided: one to three. There is only one where commas that separate stand in
/// some lines and what looks like a decimal comma in others.
std::vector<TextMarks> readingsof(const TextLook& look) {
    std::vector<TextMarks> readings;
    if (look.decimals || look.marks.within == Comma::undecided) readings.push_back(settled(look, true));
    readings.push_back(settled(look, false));
    if (!look.thousands) return readings;
    readings.push_back(readings.back());
    readings.back().between = Comma::separator;
    return readings;
}

/// A line as it would be read, fit to be shown.
std::string reading(std::string_view line, const TextMarks& marks) {
    std::string text = textnormalize(line.substr(0, shownLine), marks);
    if (!text.empty()) text.pop_back();
    for (std::size_t at = text.find(itemSeparator); at != std::string::npos;
         at = text.find(itemSeparator, at))
        text.replace(at, 1, " | ");
    return text;
}

/// Asks which reading of the first line is meant. False on cancel.
bool askdecimal(const TextLook& look, TextMarks& marks, bool preferDecimal) {
    const std::vector<TextMarks> readings = readingsof(look);
    const int count = static_cast<int>(readings.size());
    menuclear();
    for (int i = 0; i < count; ++i)
        compose(session.menuItem[i + 1], i + 1, "...", AsTyped{reading(look.firstLine, readings[i])});
    compose(session.menuItem[count + 1], "X...", Word::Exit);
    session.menuCount = static_cast<float>(count + 1);
    session.menuChoice = preferDecimal || !look.decimals ? 1 : 2;
    compose(session.msg, Word::Decimal, " ", Word::Symbol, " \",\"? ",
            AsTyped{look.firstLine.substr(0, shownLine)});
    menushow();
    const int choice = static_cast<int>(session.menuChoice);
    if (choice < 1 || choice > count) return false;
    marks = readings[choice - 1];
    return true;
}

/// A comma in one line of several, or in one of many, is no way of writing. It is left as it stands, and the
/// grid tells that number as unreadable.
bool isslip(const TextLook& look) {
    constexpr std::size_t several = 3, many = 20;
    return (look.undecidedLines == 1 && look.numberLines >= several)
           || look.undecidedLines * many <= look.numberLines;
}

/// Settles commas that can be read in two ways. False, with the reason in msg, when nobody says how.
bool settlecommas(const TextLook& look, TextMarks& marks) {
    marks = look.marks;
    if (!session.decimalWanted.empty()) {
        marks = settled(look, session.decimalWanted == ",");
        return true;
    }
    if (!look.undecided()) return true;
    const bool declared = session.decimalSeparator == "," || session.exportDecimal == ",";
    if (!nobodyasked()) return askdecimal(look, marks, declared);
    if (declared) {
        marks = settled(look, true);
        return true;
    }
    if (isslip(look)) return true;
    const std::string_view line = look.firstLine.substr(0, shownLine);
    const std::vector<TextMarks> readings = readingsof(look);
    compose(session.msg, Word::Decimal, " ", Word::Symbol, " ", Word::Unknown, ": ", AsTyped{line}, " = ",
            AsTyped{reading(line, readings[0])});
    if (readings.size() > 1) extend(session.msg, " ", Word::Or, " ", AsTyped{reading(line, readings[1])});
    extend(session.msg, "? ... --decimal comma / --decimal point");
    const std::string reason = session.msg;
    tellok();
    session.msg = reason;
    return false;
}

// ---- menus ----

/// Number of the line of a letter; 0 when the side has none.
std::size_t lineof(std::int16_t side, std::string_view code) {
    const auto letters = importletters(side);
    for (std::size_t i = 0; i < letters.size(); ++i)
        if (!code.empty() && letters[i].letter == code[0]) return i + 1;
    return 0;
}

/// Shows a page of lines with an exit behind them. The number of the chosen line; 0 for none.
std::size_t chosenline(std::size_t count, std::size_t preset) {
    compose(session.menuItem[count + 1], "X...", Word::Exit);
    session.menuCount = static_cast<float>(count + 1);
    session.menuChoice = static_cast<float>(preset);
    compose(session.msg, Word::Format, ":");
    menushow();
    const auto choice = static_cast<std::size_t>(session.menuChoice);
    return choice <= count ? choice : 0;
}

/// The form of a letter: its only one, or the one that the inner question brings.
bool chooseform(const ImportLetter& letter, std::string_view offered) {
    std::size_t choice = 1;
    if (letter.forms.size() > 1) {
        menuclear();
        for (std::size_t i = 0; i < letter.forms.size(); ++i) {
            compose(session.menuItem[i + 1], static_cast<int>(i + 1), "...");
            letter.forms[i].label(session.menuItem[i + 1]);
        }
        const ImportChoice preset = importchoice(letter.side, offered);
        const bool same = preset.letter == &letter;
        choice = chosenline(letter.forms.size(),
                            same ? static_cast<std::size_t>(preset.form - letter.forms.data()) + 1 : 1);
    }
    if (choice == 0) return false;
    session.importFormat = importcode({&letter, &letter.forms[choice - 1]});
    return true;
}

bool formatmenu(std::int16_t side, std::string_view offered) {
    const auto letters = importletters(side);
    menuclear();
    for (std::size_t i = 0; i < letters.size(); ++i) {
        compose(session.menuItem[i + 1], letters[i].letter, "...");
        letters[i].label(session.menuItem[i + 1]);
    }
    const std::size_t line = chosenline(letters.size(), lineof(side, offered));
    return line > 0 && chooseform(letters[line - 1], offered);
}

/// What the menu opens with: the form that the text shows, or where it shows nothing the last choice.
std::string_view presetof(const Recognition& found) {
    const bool plain = found.offered == "A1" || found.offered == "A3";
    const bool last = importchoice(session.progSide, session.importFormat).form != nullptr;
    return plain && last ? std::string_view(session.importFormat) : std::string_view(found.offered);
}

/// The form to read by. Nulls, with the reason in msg, when there is none.
ImportChoice chosenformat(const Recognition& found) {
    if (!session.formatWanted.empty()) {
        const ImportChoice wanted = importchoice(session.progSide, session.formatWanted);
        if (!wanted.form)
            compose(session.msg, Word::Unknown, " ", Word::Format, ": ", AsTyped{session.formatWanted});
        return wanted;
    }
    if (nobodyasked()) return importchoice(session.progSide, found.plain);
    const std::string preset(presetof(found));
    const bool chosen = session.progSide == lifeSide ? formatmenulife(preset) : formatmenuxy(preset);
    session.msg.clear();
    return chosen ? importchoice(session.progSide, session.importFormat) : ImportChoice{};
}

// ---- the session ----

/// Points a set that the largest arrays of this side hold.
std::size_t mostpoints() {
    const Keep keep{session.sizeExponent, session.budgetShare};
    constexpr int16_t largestExponent = 10;
    session.sizeExponent = largestExponent;
    session.budgetShare = 1;
    return static_cast<std::size_t>(std::floor(arraybudget() / session.maxRowsBase));
}

ImportOptions optionsof(const Recognition& found) {
    ImportOptions options;
    options.mostSets = oneSetTooMany;
    options.mostRows = mostpoints();
    options.titleRow = found.titleRow;
    options.dateOrder = session.dateFormat;
    const bool minus = session.progSide == lifeSide && session.negativeXAllowed == 0;
    options.suspendBy = minus ? SuspendBy::minus : SuspendBy::sentinel;
    return options;
}

/// The pre-check of cells whose form the user wrote: each kind of cell is asked about once.
void checkcells(const ImportedData& data) {
    constexpr std::string_view intervalMarks = "<>", fieldMarks = "xX*";
    const auto checkfirst = [&](auto&& iskind) {
        for (const auto& column : data.cells)
            for (const std::string& cell : column)
                if (!cell.starts_with('?') && iskind(std::string_view(cell).substr(0, cell.find('_')))) {
                    session.msg = cell;
                    cellformcheck();
                    return;
                }
    };
    checkfirst([&](std::string_view cell) {
        return cell.find_first_of(intervalMarks) != std::string_view::npos
               || cell.find("E+33") != std::string_view::npos || cell.find("E+29") != std::string_view::npos;
    });
    checkfirst(
        [&](std::string_view cell) { return cell.find_first_of(fieldMarks) != std::string_view::npos; });
}

/// The form decides the input method; intervals are a matter of likelihood.
void takeinputtype(const ImportForm& form) {
    if (form.inputType == keepInput || session.progSide != lifeSide) return;
    session.inputType = form.inputType;
    if (form.inputType != intv5 || session.fitMethod != rankRegression) return;
    session.fitMethod = session.fitMethodSaved = maximumLikelihood;
    session.mleVariant = 0;
}

void fillgrid(ImportedData& data, bool further) {
    if (!further) {
        session.gridCells = std::move(data.cells);
        session.gridTitles = std::move(data.titles);
        return;
    }
    session.gridTitles.resize(session.gridCells.size());
    std::move(data.cells.begin(), data.cells.end(), std::back_inserter(session.gridCells));
    std::move(data.titles.begin(), data.titles.end(), std::back_inserter(session.gridTitles));
}

void telldropped(std::size_t rows) {
    if (rows == 0) return;
    compose(session.msg, Word::Point, " ", Word::Quantity, " ", Word::Too, " ", Word::Big, " (+",
            static_cast<double>(rows), ")");
    tellok();
}

/// Where nobody is there to be told, an empty text is the caller's to tell.
TextRead tellnodata(const Recognition& found) {
    compose(session.msg, Word::No, " ", Word::Data);
    if (found.anyItem || !nobodyasked()) tellok();
    return TextRead::empty;
}

TextRead importtext(std::string text, bool further) {
    text = decodetext(std::move(text));
    TextMarks marks;
    if (!settlecommas(textlook(text), marks)) return TextRead::refused;
    text = textnormalize(text, marks);
    const Recognition found = textrecognize(text, session.progSide);
    if (!found.anyNumber) return tellnodata(found);
    const ImportChoice choice = chosenformat(found);
    if (!choice.form) return TextRead::refused;
    ImportedData data = importread(text, *choice.form, optionsof(found));
    if (data.cells.empty()) return tellnodata(found);
    takeinputtype(*choice.form);
    if (choice.form->inputType == keepInput) checkcells(data);
    const std::size_t beyond = data.beyond;
    fillgrid(data, further);
    telldropped(beyond);
    return TextRead::read;
}

} // namespace

bool formatmenulife(std::string_view offered) { return formatmenu(lifeSide, offered); }
bool formatmenuxy(std::string_view offered) { return formatmenu(visualSide, offered); }

TextRead textimport(TextFrom from, bool further) {
    if (from == TextFrom::text) return importtext(std::move(session.msg), further);
    const std::string name = session.msg;
    auto text = name != "CLIPBOARD" ? readfile(name) : platform ? platform->clipboard().text() : std::nullopt;
    if (text) return importtext(std::move(*text), further);
    compose(session.msg, Word::Cannot, " ", Word::Open, " ", Word::File, ": ", AsTyped{name});
    return TextRead::refused;
}
