#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

#include "options/page.h"
#include "platform/paths.h"
#include "platform/platform.h"
#include "session/findfile.h"
#include "session/former.h"
#include "session/settings.h"
#include "session/sizing.h"
#include "session/snapshots.h"
#include "shell/commands.h"
#include "shell/languages.h"
#include "shell/prompts.h"

/// Set-up of the program: size, language, information, colours, font, file format.

namespace {

using S = Session;

// ---- dimension ----

/// "8 x 1500", sets by points, at a size exponent.
void appendsize(std::string& text, int exponent) {
    const Keep keep{session.sizeExponent};
    session.sizeExponent = static_cast<int16_t>(std::clamp(exponent, 1, 10));
    extend(text, Word::Set, " ", static_cast<int>(session.maxSets), " x ", Word::Point, " ",
           static_cast<int>(pointswanted()));
}

bool changesize(int by) {
    const auto wanted = static_cast<int16_t>(std::clamp(session.sizeExponent + by, 1, 10));
    return std::exchange(session.sizeExponent, wanted) != wanted;
}

/// What the session has now and what the next start will have.
void dimensionlead(std::string& text) {
    extend(text, Word::Setup, " = ", static_cast<int>(session.maxPoints), " x ",
           static_cast<int>(session.maxSets), lineBreak, Word::Next, " ", Word::Start, " = ");
    appendsize(text, session.sizeExponent);
}

constexpr Item dimensionItems[] = {
    actionitem('1', {"1 / 2"}, [] { return changesize(-1); }).shows([](std::string& text) {
        appendsize(text, session.sizeExponent - 1);
    }),
    actionitem('2', {Word::Double}, [] { return changesize(1); }).shows([](std::string& text) {
        appendsize(text, session.sizeExponent + 1);
    }),
    wholeitem('9', {Word::Fit, Word::Line, "...", Word::Point}, placeof<&S::linePoints>, 10, 1000),
    exititem('X', {Word::Exit}),
};

// ---- language and display ----

/// A language is installed when the search finds its file.
bool installed(const Language& language) {
    const Keep keep{session.msg};
    session.msg = language.file;
    return language.offered && findfilequietly();
}

/// Loads the words of a language file; empty for English. Every text on the screen changes.
bool takelanguage(std::string_view file) {
    if (session.languageFile == file) return false;
    session.languageFile = file;
    wordload();
    if (platform) platform->window().retitle();
    return true;
}

/// Without any language file the words stay English.
bool nolanguages() {
    menuclear();
    compose(session.menuItem[1], "0...", Word::No, " ", Word::Language, " ", Word::File, " ... ",
            Word::Default, " ", Word::Language);
    compose(session.menuItem[2], "X...", Word::Exit);
    session.menuCount = session.menuChoice = 2;
    compose(session.menuTitle, Word::Language);
    compose(session.msg, Word::Cannot, " ", Word::Find, " ", Word::Language, " ", Word::File);
    menushow();
    return session.menuChoice == 1 && takelanguage("");
}

bool languagelist() {
    std::vector<std::string> names;
    std::vector<const Language*> listed;
    int present = 0;
    for (const Language& language : languages()) {
        if (!installed(language)) continue;
        if (languageinforce() == &language) present = static_cast<int>(names.size());
        names.emplace_back(language.name);
        listed.push_back(&language);
    }
    if (listed.empty()) return nolanguages();
    const int k = choosefrom({Word::Language}, names, present);
    return k >= 0 && takelanguage(listed[static_cast<std::size_t>(k)]->file);
}

bool flipexportdecimal() {
    session.exportDecimal = session.exportDecimal == "," ? "." : ",";
    return true;
}

/// The three orders of a date that are in use.
constexpr std::array<std::array<const char*, 3>, 3> dateOrders = {
    {{"Y", "M", "D"}, {"D", "M", "Y"}, {"M", "D", "Y"}}};

std::size_t dateorder() {
    for (std::size_t i = 0; i < dateOrders.size(); ++i)
        if (session.dateFormat[0] == dateOrders[i][0] && session.dateFormat[1] == dateOrders[i][1]) return i;
    return 0;
}

bool nextdateorder() {
    const auto& order = dateOrders[(dateorder() + 1) % dateOrders.size()];
    for (std::size_t i = 0; i < order.size(); ++i) session.dateFormat[i] = order[i];
    return true;
}

void appenddateorder(std::string& text, std::size_t which) {
    for (std::size_t i = 0; i < 3; ++i) {
        const char part = dateOrders[which][i][0];
        extend(text, i > 0 ? " - " : "", part == 'Y' ? Word::Year : part == 'M' ? Word::Month : Word::Day);
    }
}

/// The names of a family's parameters stand in a table of their own.
std::size_t familyrow() { return static_cast<std::size_t>(std::clamp<int>(session.dist, 1, 4)); }
template <std::size_t Which>
Place parametertext(Session& s) {
    return &s.parameterNames[familyrow()][Which];
}

/// The next of the symbols that stand between the pieces of a date.
bool nextdatesymbol() {
    constexpr std::string_view symbols = "-/.";
    const auto at = symbols.find(static_cast<char>(session.dateSymbol));
    session.dateSymbol = symbols[at == std::string_view::npos ? 0 : (at + 1) % symbols.size()];
    return true;
}

bool clearclipboard() {
    if (platform) platform->clipboard().settext("");
    return false;
}

constexpr double mostDigits = 17;

constexpr Item languageItems[] = {
    acceptitem('A', {Word::Activate}),
    textitem('B', {"' '", Word::On, Word::Results, Word::Display, "(", Word::Occurrence, ")"},
             placeof<&S::occurMark>),
    actionitem('D', {Word::Decimal, Word::Symbol, "...", Word::Control, Word::Panel},
               [] {
                   tell(Word::Decimal, " ", Word::Symbol, ": ", Word::Change, " ", Word::In, " ",
                        Word::Control, " ", Word::Panel);
                   return false;
               })
        .shows([](std::string& text) { extend(text, "'", AsTyped{session.displayDecimal}, "'"); }),
    actionitem('E', {Word::Export, "/", Word::Import, Word::Decimal, Word::Symbol}, flipexportdecimal)
        .shows(
            [](std::string& text) { text += session.exportDecimal == "," ? "',' (/ '.')" : "'.' (/ ',')"; }),
    wholeitem('F', {Word::Decimal, Word::Significance, Word::Limit, Word::Default},
              placeof<&S::maskDigits, 0>, 1, mostDigits),
    wholeitem('G', {Word::Decimal, Word::Significance, Word::Limit, Word::For, "X-", Word::Value},
              placeof<&S::maskDigits, 3>, 1, mostDigits),
    wholeitem('H', {Word::Decimal, Word::Significance, Word::Limit, Word::For, Word::Slope},
              placeof<&S::maskDigits, 2>, 1, mostDigits),
    wholeitem('J', {Word::Decimal, Word::Significance, Word::Limit, Word::For, Word::Parameter},
              placeof<&S::maskDigits, 1>, 1, mostDigits),
    wholeitem('R', {Word::Decimal, Word::Significance, Word::Limit, Word::For, Word::Fit},
              placeof<&S::maskDigits, 4>, 1, mostDigits),
    pageitem('I', {Word::Information, Word::Display}, OptionPage::informationDisplay),
    flipitem('K', {Word::File, Word::Name, Word::On, Word::Results, Word::Display},
             placeof<&S::fileNameShown>),
    actionitem('L', {Word::Language}, languagelist).shows([](std::string& text) {
        extend(text, AsTyped{languageinforce() ? languageinforce()->name : std::string_view("English")});
    }),
    actionitem('M', {Word::Language, Word::Reset, Word::To, "English"}, [] { return takelanguage(""); })
        .when([] { return !session.languageFile.empty(); }),
    nameitem('N', {Word::Name, Word::For, Word::Parameter, "1"}, parametertext<0>),
    nameitem('O', {Word::Name, Word::For, Word::Parameter, "2"}, parametertext<1>),
    nameitem('P', {Word::Name, Word::For, "3-", Word::Parameter}, placeof<&S::thresholdName>),
    nameitem('S', {Word::Name, Word::For, "MTBF"}, placeof<&S::mtbfName>),
    flipitem('T', {Word::Time, "/", Word::Date}, placeof<&S::clockShown>, {Word::Date},
             {Word::Date, "+", Word::Time}),
    actionitem('U', {Word::Date, Word::Format}, nextdateorder).shows([](std::string& text) {
        appenddateorder(text, dateorder());
        text += " (/ ";
        appenddateorder(text, (dateorder() + 1) % dateOrders.size());
        text += ')';
    }),
    actionitem('V', {Word::Date, Word::Symbol}, nextdatesymbol).shows([](std::string& text) {
        extend(text, "'", AsTyped{std::string(1, static_cast<char>(session.dateSymbol))}, "'");
    }),
    actionitem('Z', {Word::Clipboard, Word::Clear, "...", Word::Delete, Word::All}, clearclipboard),
    exititem('X', {Word::Exit}),
};
constexpr PlaceOf languagePlaces[] = {placeof<&S::exportDecimal>, placeof<&S::dateFormat, 0>,
                                      placeof<&S::dateFormat, 1>, placeof<&S::dateFormat, 2>,
                                      placeof<&S::dateSymbol>};

Held languagestate() { return {{}, session.languageFile}; }

void putlanguage(const Held& held) { takelanguage(held.text); }

// ---- information display ----

constexpr Item informationItems[] = {
    flipitem('B', {Word::Big, Word::Information, Word::Display}, placeof<&S::informationBig>),
    pickitem('I', {Word::Information, Word::Display, Word::With, Word::Label},
             placeof<&S::informationDisplay>, labelledInformation),
    pickitem('U', {"Tooltips", Word::Only}, placeof<&S::informationDisplay>, tooltipInformation),
    pickitem('N', {Word::No, Word::Information, Word::Display}, placeof<&S::informationDisplay>,
             noInformation),
    exititem('X', {Word::Exit}),
};

// ---- colours and font ----

/// Gives a part of the plot one of the colours of the palette.
bool givecolour(std::size_t entry) {
    compose(session.msg, Word::Color, " ", Word::Select);
    session.u = static_cast<float>(entry);
    colorpick();
    if (session.ud == noAnswer) return false;
    const int32_t colour = session.palette[static_cast<std::size_t>(session.u)];
    const bool changed = std::exchange(session.palette[entry], colour) != colour;
    if (changed && platform) platform->window().retitle();
    return changed;
}

bool setcolour() {
    double set = session.activeSet;
    if (!asknumberwithin({Word::Set, Word::Color}, set, 1, 24, true)) return false;
    return givecolour(static_cast<std::size_t>(set));
}

bool resetcolours() {
    const bool changed = session.palette != standardPalette;
    session.palette = standardPalette;
    if (changed && platform) platform->window().retitle();
    return changed;
}

constexpr Item colorItems[] = {
    flipitem('C', {Word::Color, Word::Plot, Word::Output}, placeof<&S::colormode>, Word::No, Word::Yes, 1, 0),
    actionitem('S', {Word::Set, Word::Color}, setcolour),
    actionitem('F', {Word::Frame, Word::Color}, [] { return givecolour(frameColour); }),
    actionitem('G', {Word::Grid, Word::Color}, [] { return givecolour(gridColour); }),
    actionitem('L', {Word::Grid, Word::PlotScale, Word::Color}, [] { return givecolour(decadeColour); }),
    actionitem('R', {Word::Reset, Word::To, Word::Standard}, resetcolours),
    exititem('X', {Word::Exit}),
};

template <const auto& Name>
constexpr Item fontitem(char letter) {
    return pickitem(
        letter, {Name}, [] { return session.fontName == Name; },
        [] {
            if (session.fontName == Name) return false;
            session.fontName = Name;
            if (platform) platform->window().retitle();
            return true;
        });
}
constexpr char arial[] = "Arial", calibri[] = "Calibri", courier[] = "Courier New", dejavu[] = "DejaVu Sans",
               times[] = "Times New Roman", verdana[] = "Verdana";

bool typefont() {
    compose(session.msg, Word::Font, " ", Word::Name);
    textprompt(session.fontName);
    if (session.msg == noAnswerText || session.msg.empty() || session.msg == session.fontName) return false;
    session.fontName = session.msg;
    if (platform) platform->window().retitle();
    return true;
}

constexpr Item fontItems[] = {
    fontitem<arial>('A'),
    fontitem<calibri>('B'),
    fontitem<courier>('C'),
    fontitem<dejavu>('D'),
    fontitem<times>('T'),
    fontitem<verdana>('V'),
    actionitem('N', {Word::Font, Word::Name}, typefont).shows([](std::string& text) {
        extend(text, "'", AsTyped{session.fontName}, "'");
    }),
    exititem('X', {Word::Exit}),
};

// ---- files ----

/// Start folder of the file dialogs; one that is not there is refused.
bool datafolder() {
    compose(session.msg, Word::Data, " ", Word::Path);
    textprompt(session.dataPath);
    if (session.msg == noAnswerText || session.msg.empty()) return false;
    const std::string folder = withbackslash(ownpath(session.msg));
    if (folder == session.dataPath) return false;
    if (!platform || !platform->system().folderexists(folder)) {
        tell(Word::Cannot, " ", Word::Find, " ", Word::Path, ": ", AsTyped{folder});
        return false;
    }
    session.dataPath = folder;
    return true;
}

bool tellpaths() {
    tell(Word::Setup, ": ", AsTyped{session.configPath}, lineBreak, Word::Data, ": ",
         AsTyped{session.dataPath}, lineBreak, Word::Start, ": ", AsTyped{session.startDir}, lineBreak,
         Word::Library, ": ", AsTyped{session.programPath});
    return false;
}

/// What a run that ended by itself has left, or one that is still on.
/// The results in force join the former ones.
bool lastresults() {
    const std::vector<std::string> left = lefttemporaries();
    if (left.empty()) {
        tell(Word::No, " ", Word::Former, " ", Word::Results, " (.tmp)");
        return false;
    }
    const int chosen = choosefrom({Word::Get, Word::Last, ".tmp", Word::Results}, left);
    return chosen >= 0 && openrecovered(left[static_cast<std::size_t>(chosen)]);
}

constexpr Item fileItems[] = {
    acceptitem('A', {Word::Activate}),
    actionitem('D', {Word::Data, Word::Path}, datafolder).shows([](std::string& text) {
        extend(text, AsTyped{session.dataPath});
    }),
    flipitem('F', {Word::Format, Word::For, Word::Data, Word::File, Word::Save}, placeof<&S::htmlMode>,
             {Word::Text, "-", Word::File}, "HTML", plainLines, wrapperAsked),
    flipitem('G', {Word::Format, Word::For, Word::Data, Word::File, Word::Get}, placeof<&S::openMerges>,
             {Word::New, Word::Data}, Word::Merge),
    actionitem('I', {Word::Information, "...", Word::Start, "/", Word::Present, Word::Path}, tellpaths),
    actionitem('T', {Word::Get, Word::Last, ".tmp", Word::Results}, lastresults).leaving(),
    pageitem('W', {"FORMER FILE LIST"}, OptionPage::formerResults).when([] { return formercount() > 0; }),
    exititem('X', {Word::Exit}),
};
constexpr PlaceOf filePlaces[] = {placeof<&S::dataPath>};

// ---- the set-up page itself ----

/// Names the file that new data take their labels and options from; an empty name takes it away.
bool settemplate() {
    compose(session.msg, Word::Template, " ", Word::From, " ", Word::Saved, " ", Word::File);
    textprompt(session.templateFile);
    if (session.msg == noAnswerText || session.msg == session.templateFile) return false;
    const std::string wanted = session.msg.empty() ? std::string() : ownpath(session.msg);
    if (!wanted.empty() && (!platform || !platform->system().fileexists(wanted))) {
        tell(Word::Cannot, " ", Word::Find, " ", Word::File, ": ", AsTyped{wanted});
        return false;
    }
    session.templateFile = wanted;
    return true;
}

constexpr Item setupItems[] = {
    acceptitem('A', {Word::Activate}),
    pageitem('D', {Word::Dimension, Word::Set, Word::Quantity}, OptionPage::dimension)
        .shows([](std::string& text) {
            extend(text, static_cast<int>(session.maxSets), " x ", static_cast<int>(session.maxPoints));
        }),
    pageitem('E', {Word::Distribution, Word::Equations}, OptionPage::analysisEquations)
        .shows([](std::string& text) { extend(text, AsTyped{session.equationsName}); }),
    flipitem('I', {Word::Automatic, Word::Data, Word::Order, Word::Caution}, placeof<&S::orderCaution>),
    pageitem('K', {Word::Information, Word::Display, "[", Word::Big, "/", Word::Small, "]"},
             OptionPage::informationDisplay),
    pageitem('L', {Word::Language, " - ", Word::Decimal}, OptionPage::language),
    pageitem('O', {Word::Output, Word::Setup}, OptionPage::ports),
    pageitem('P', {Word::Plot, Word::Color, Word::Select}, OptionPage::color),
    pageitem('Q', {Word::Plot, Word::Font, Word::Select}, OptionPage::font),
    pageitem('S', {Word::File, Word::Format, Word::Options}, OptionPage::fileFormat),
    actionitem('T', {Word::Template, Word::From, Word::Saved, Word::File}, settemplate)
        .shows([](std::string& text) { extend(text, "'", AsTyped{session.templateFile}, "'"); }),
    pageitem('U', {Word::Start, Word::Lock, Word::Options}, OptionPage::parameterStart).when(onlifeside),
    flipitem('V', {Word::Save, Word::Caution, Word::For}, placeof<&S::saveCaution>, {Word::Data, Word::Only},
             {Word::Data, "+", Word::Results}),
    flipitem('Y', {"Y-", Word::Value, Word::Display, Word::In, Word::Data, Word::Grid},
             placeof<&S::ordinatesInGrid>)
        .when(onlifeside),
    exititem('X', {Word::Exit, Word::To, Word::Main, Word::Display}),
};

constexpr Item mainItems[] = {
    acceptitem('A', {Word::OK}),
    pageitem('C', {Word::Confidence}, OptionPage::confidence).when(onlifeside),
    pageitem('I', {Word::Input, Word::Method}, OptionPage::inputMethod).when(onlifeside),
    pageitem('K', {Word::Color}, OptionPage::color),
    pageitem('M', {Word::Method, "/", Word::Equations}, OptionPage::fitMethod).when(onlifeside),
    actionitem('R', {Word::Reset, Word::To, Word::Original, Word::Setup},
               [] {
                   compose(session.msg, Word::Reset, " ", Word::To, " ", Word::Original, " ", Word::Setup);
                   askyesno();
                   if (session.u != 1) return false;
                   settingsreset();
                   return true;
               }),
    flipitem('T', {Word::T0, Word::PlotScale}, placeof<&S::scaleAsRecorded>, "NAR", "AR").when(onlifeside),
    pageitem('Z', {Word::Zoom, "/", Word::Hide, Word::Options}, OptionPage::zoomRange),
    exititem('X', {Word::Exit}),
};

constexpr Page pages[] = {
    {OptionPage::setup, {Word::Setup}, setupItems},
    {OptionPage::dimension, {Word::Setup, " : ", Word::Dimension}, dimensionItems, dimensionlead},
    {.page = OptionPage::language,
     .title = {Word::Language, " - ", Word::Display},
     .items = languageItems,
     .also = languagePlaces,
     .keep = languagestate,
     .restore = putlanguage},
    {OptionPage::informationDisplay, {Word::Information, Word::Display}, informationItems},
    {OptionPage::color, {Word::Color}, colorItems},
    {OptionPage::font, {Word::Font}, fontItems},
    {.page = OptionPage::fileFormat,
     .title = {Word::File, Word::Format},
     .items = fileItems,
     .also = filePlaces},
    {OptionPage::mainOptions, {Word::Main, Word::Options}, mainItems},
};

} // namespace

std::span<const Page> setuppages() { return pages; }
