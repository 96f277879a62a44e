#include "shell/commandtable.h"

#include <algorithm>

#include "session/session.h"
#include "shell/calcplot.h"
#include "shell/commandactions.h"
#include "shell/commands.h"
#include "shell/words.h"

namespace {

template <int Action>
void edit() {
    editaction(Action);
}

void save() { savefile(); }

using W = Word;
constexpr Offered both = Offered::both, life = Offered::life, visual = Offered::visual;

#define LABEL(...) [](std::string& t) { extend(t, __VA_ARGS__); }

/// Where a number stands twice, each side has its own command.
constexpr Command table[] = {
    {0, both, "new", LABEL(W::New, " ... ", W::Clear, " ", W::Data), LABEL("Ctrl+N"), newdata},
    {1, both, "setup", LABEL(W::Setup, " / ", W::Dimension, " / ", W::Equations, " / ", W::Language), nullptr,
     opens<OptionPage::setup>},
    {2, both, "open", LABEL(W::Open, " / ", W::Get, " / ", W::Import), LABEL("Ctrl+O"), opendialog},
    {3, both, "save", LABEL(W::Save, " ", W::Active, " ", W::Data, " + ", W::Results), LABEL("Ctrl+S"), save},
    {4, both, "report", LABEL(W::Plot, " / ", W::Report), nullptr, opens<OptionPage::plotOrReport>},
    {5, both, "calculator", LABEL(W::Calculator, " / ", W::Comparison), nullptr,
     opens<OptionPage::calculator>},
    {6, both, "print",
     LABEL(W::Print, " / ", W::Firm, " ", W::Copy, " / ", W::Soft, " ", W::Copy, " / ", W::Export),
     LABEL("Ctrl+P"), outputcommand},
    {7, both, "sample", LABEL(W::Demonstrate, " / ", W::Sample), nullptr, opens<OptionPage::sample>},
    {8, visual, "function", LABEL(W::Function), nullptr, opens<OptionPage::function>},
    {8, life, "distribution", LABEL(W::Distribution), nullptr, opens<OptionPage::distribution>},
    {9, visual, "growth", LABEL("Crow-AMSAA ", W::Reliability, " ", W::Growth), nullptr, notthere},
    {9, life, "replacement", LABEL(W::Optimum, " ", W::Replacement), nullptr, notthere},
    {10, both, "reading", LABEL(W::Precise, " ", W::Reading), nullptr, precisereading},
    {11, visual, "risk", LABEL(W::Quantity, " ", W::Expected, " ", W::For, " Crow-AMSAA"), nullptr, notthere},
    {11, life, "risk", LABEL(W::Risk, " - ", W::Quantity, " ", W::Expected), nullptr, notthere},
    {12, visual, "", LABEL(AsTyped{session.productName}), nullptr, helpcommand},
    {12, life, "test", LABEL(W::Test, " / ", W::Usage, " ", W::Requirement), nullptr,
     opens<OptionPage::testPlanning>},
    {13, visual, "plottype", LABEL(W::Plot, " ", W::Type), nullptr, opens<OptionPage::curveAndScale>},
    {13, life, "confidence", LABEL(W::Confidence, " / ", W::Comparison), nullptr,
     opens<OptionPage::confidence>},
    {14, both, "label", LABEL(W::Label, " / ", W::Style, " ", W::Select), nullptr, opens<OptionPage::style>},
    {15, life, "method", LABEL(W::Method, " / ", W::Input), nullptr, methodinput},
    {16, visual, "curve", LABEL(W::Curve, " ", W::Fit), nullptr, opens<OptionPage::curveFit>},
    {16, life, "marker", LABEL(W::Marker, " ", W::Line), nullptr, opens<OptionPage::markerLine>},
    {17, visual, "transform", LABEL(W::Transform), nullptr, opens<OptionPage::transform>},
    {17, life, "threshold", LABEL(W::T0, " (3-", W::Parameter, ")"), nullptr, opens<OptionPage::threshold>},
    {18, life, "weibayes", LABEL("Weibayes"), nullptr, opens<OptionPage::weibayes>},
    {19, both, "zoom", LABEL(W::Zoom), LABEL(W::Plot, " ", W::Options), opens<OptionPage::zoom>},
    {20, life, "bounds", LABEL(W::Confidence, " ", W::Limit, " + ", W::Output, " ", W::Options), nullptr,
     opens<OptionPage::bounds>},
    {21, both, "help", LABEL(W::Help), LABEL("F1"), helpcommand},
    {23, both, "check", LABEL("OK ... ", W::Calculation), LABEL("Enter"), checkmark},
    {44, both, "", LABEL(W::Setup, ": ", W::Dimension), nullptr, opens<OptionPage::dimension>},
    {48, both, "", LABEL(W::Additional, " ", W::Information), nullptr, additionalinformation},
    {50, both, "options", LABEL(W::Main, " ", W::Options), nullptr, opens<OptionPage::mainOptions>},
    {51, both, "", LABEL(W::Main, " ", W::Options, " / ", W::Side), nullptr, sidemark},
    {52, life, "", LABEL("PFEV ", W::Accelerated, " ", W::Test, " / ", W::Degradation), nullptr, notthere},
    {53, both, "swap", LABEL(W::Swap, " ", W::Side), LABEL(W::Copy, " ", W::Data), switchsides},
    {54, both, "picture", LABEL(W::Copy, " ", W::Plot), LABEL(W::Clipboard), copyplotcommand},
    {56, both, "language", LABEL(W::Language, " - ", W::Currency, " - ", W::Decimal), nullptr,
     opens<OptionPage::language>},
    {60, life, "", LABEL(W::Mixture, " / ", W::Partial, " % ", W::Affected), nullptr,
     opens<OptionPage::extendedOptions>},
    {61, both, "single", LABEL(W::Single, " ", W::Set), nullptr, singleset},
    {63, life, "", LABEL(W::Confidence, " ", W::Method), nullptr, opens<OptionPage::confidence>},
    {64, both, "library", LABEL(W::Library), nullptr, librarycommand},
    {66, both, "color", LABEL(W::Plot, " ", W::Color, " ", W::Select), nullptr, opens<OptionPage::color>},
    {67, both, "font", LABEL(W::Plot, " ", W::Font, " ", W::Select), nullptr, opens<OptionPage::font>},
    {68, both, "", LABEL(W::Information, " ", W::Display), nullptr, opens<OptionPage::informationDisplay>},
    {69, both, "", LABEL(W::File, " ", W::Format, " + ", W::File, " ", W::Copy), nullptr,
     opens<OptionPage::fileFormat>},
    {71, both, "", LABEL(W::Equations, " + ", W::Special, " ", W::Input), nullptr,
     opens<OptionPage::analysisEquations>},
    {73, life, "", LABEL(W::Process, " ", W::Reliability, " BPR"), nullptr, notthere},
    {76, both, "", LABEL(W::Precise, " ", W::Reading), nullptr, precisereading},
    {77, both, "", LABEL(W::Data, " ", W::File), nullptr, formerlist},
    {79, both, "cut", LABEL(W::Cut), LABEL("Ctrl+X"), edit<editCut>},
    {80, both, "delete", LABEL(W::Delete), LABEL("Del"), edit<editDelete>},
    {81, both, "undo", LABEL(W::Undo), LABEL("Ctrl+Z"), edit<editUndo>},
    {82, both, "copy", LABEL(W::Copy), LABEL("Ctrl+C"), edit<editCopy>},
    {83, both, "paste", LABEL(W::Paste), LABEL("Ctrl+V"), edit<editPaste>},
    {85, both, "",
     LABEL(W::No, " ", W::Modified, " ", W::Options, " (", W::Reset, " ", W::To, " ", W::Standard, ")"),
     nullptr, resetstandard},
    {88, both, "", LABEL("X-", W::Range, " + Y-", W::Range, " ", W::Change), nullptr, rangechange},
    {89, both, "range", LABEL("X-", W::Range, " + Y-", W::Range, " ", W::Change), nullptr, rangechange},
    {90, both, "", LABEL(W::Print), LABEL("Ctrl+P"), printcommand},
    {91, both, "about", LABEL(W::About), LABEL("F2"), aboutcommand},
};

#undef LABEL

constexpr int lifeStrip[] = {0,       2,  3,  6,  54, iconGap, 79,      82, 83, 81, iconGap, 15,
                             8,       13, 16, 17, 18, 12,      iconGap, 14, 19, 89, 66,      61,
                             iconGap, 7,  5,  10, 4,  iconGap, 1,       56, 53, 21, iconGap, 23};
constexpr int visualStrip[] = {0,  2,  3,  6,       54,      iconGap, 79, 82, 83,      81, iconGap, 16,
                               13, 8,  17, 9,       iconGap, 14,      19, 89, 66,      61, iconGap, 7,
                               5,  10, 4,  iconGap, 1,       56,      53, 21, iconGap, 23};

std::string shown(Phrase label) {
    std::string text;
    label(text);
    wordclean(text);
    return text;
}

} // namespace

bool offered(Offered where) {
    const bool onLife = session.progSide == lifeSide;
    return where == Offered::both || (where == Offered::life) == onLife;
}

std::span<const Command> commands() { return table; }

const Command* commandof(int number) {
    const auto found = std::find_if(std::begin(table), std::end(table), [number](const Command& command) {
        return command.number == number && offered(command.where);
    });
    return found == std::end(table) ? nullptr : &*found;
}

std::span<const int> iconstrip() {
    if (session.progSide == lifeSide) return lifeStrip;
    return visualStrip;
}

std::string commandname(int number) {
    const Command* const command = commandof(number);
    return command ? shown(command->name) : std::string();
}

std::string commandtip(int number) {
    const Command* const command = commandof(number);
    if (!command) return {};
    std::string text = shown(command->name);
    if (command->more) text += " (" + shown(command->more) + ")";
    return text;
}
