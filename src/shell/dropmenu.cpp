#include "shell/dropmenu.h"

#include <array>
#include <cctype>

#include "platform/platform.h"
#include "session/session.h"
#include "shell/commandactions.h"
#include "shell/commands.h"
#include "shell/commandtable.h"
#include "shell/prompts.h"
#include "shell/words.h"

namespace {

template <int Number>
void command() {
    runcommand(Number);
}

template <int Action>
void edit() {
    constexpr int numbers[] = {0, 80, 79, 82, 83, 81};
    runcommand(numbers[Action]);
}

/// Asks msg as a question. True for Yes.
bool agreed() {
    askyesno();
    return session.u == 1;
}

void newafterquestion() {
    compose(session.msg, Word::New, " ... ", Word::Clear, " ", Word::Data);
    if (agreed()) runcommand(0);
}

void leave() { exitsequence(true); }

void probabilityoptions() { pagecommand(OptionPage::functionPlot); }

/// One item of a drop-down.
struct Item {
    int menu;
    char letter;
    Offered where;
    Phrase label;
    void (*act)();
};

using W = Word;
constexpr Offered both = Offered::both, life = Offered::life, visual = Offered::visual;

#define LABEL(...) [](std::string& t) { extend(t, __VA_ARGS__); }

constexpr Item table[] = {
    {fileMenu, 'N', both, LABEL(W::New, " ... ", W::Clear, " ", W::Data), newafterquestion},
    {fileMenu, 'O', both, LABEL(W::Open, " / ", W::Get, " / ", W::Import), command<2>},
    {fileMenu, 'P', both,
     LABEL(W::Print, " / ", W::Firm, " ", W::Copy, " / ", W::Soft, " ", W::Copy, " / ", W::Export),
     command<6>},
    {fileMenu, 'S', both, LABEL(W::Save, " ", W::Active, " ", W::Data, " + ", W::Results), command<3>},
    {fileMenu, 'U', both, LABEL(W::Setup, " / ", W::Dimension, " / ", W::Equations, " / ", W::Language),
     command<1>},
    {fileMenu, 'W', both, LABEL("* FORMER FILE LIST * / Weibull ", W::Library), command<77>},
    {fileMenu, 'X', both, LABEL(W::Exit), leave},

    {editMenu, 'X', both, LABEL(W::Cut), edit<editCut>},
    {editMenu, 'C', both, LABEL(W::Copy), edit<editCopy>},
    {editMenu, 'V', both, LABEL(W::Paste), edit<editPaste>},
    {editMenu, 'Y', both, LABEL(W::Delete, " <Del>"), edit<editDelete>},
    {editMenu, 'U', both, LABEL(W::Undo), edit<editUndo>},

    {optionsMenu, 'J', both, LABEL(W::Demonstrate, " / ", W::Sample), command<7>},
    {optionsMenu, 'I', both, LABEL(W::Calculator, " / ", W::Comparison), command<5>},
    {optionsMenu, 'R', both, LABEL(W::Precise, " ", W::Reading), command<10>},
    {optionsMenu, 'M', both, LABEL(W::Plot, " / ", W::Report), command<4>},
    {optionsMenu, 'L', both, LABEL(W::Label, " / ", W::Style, " ", W::Select), command<14>},
    {optionsMenu, 'Z', both, LABEL(W::Zoom), command<19>},

    {analysisMenu, 'J', visual, LABEL(W::Curve, " ", W::Fit), command<16>},
    {analysisMenu, 'P', visual, LABEL(W::Plot, " ", W::Type), command<13>},
    {analysisMenu, 'Q', visual, LABEL(W::Function), command<8>},
    {analysisMenu, 'T', visual, LABEL(W::Transform), command<17>},
    {analysisMenu, 'M', life, LABEL(W::Method, " / ", W::Input), command<15>},
    {analysisMenu, 'I', life, LABEL(W::Distribution), command<8>},
    {analysisMenu, 'K', life, LABEL(W::Confidence, " / ", W::Comparison), command<13>},
    {analysisMenu, 'L', life, LABEL(W::Marker, " ", W::Line), command<16>},
    {analysisMenu, 'T', life, LABEL(W::T0, " (3-", W::Parameter, ")"), command<17>},
    {analysisMenu, 'W', life, LABEL("Weibayes"), command<18>},

    {toolsMenu, 'K', visual, LABEL("Crow-AMSAA ", W::Reliability, " ", W::Growth), command<9>},
    {toolsMenu, 'L', visual, LABEL(W::Quantity, " ", W::Expected, " ", W::For, " Crow-AMSAA"), command<11>},
    {toolsMenu, 'N', visual, LABEL(AsTyped{session.productName}), command<12>},
    {toolsMenu, 'R', life, LABEL("Abernethy ", W::Risk, " - ", W::Quantity, " ", W::Expected), command<11>},
    {toolsMenu, 'O', life, LABEL(W::Optimum, " ", W::Replacement), command<9>},
    {toolsMenu, 'M', life, LABEL(W::Mixture, " / ", W::Partial, " % ", W::Affected), command<60>},
    {toolsMenu, 'P', life, LABEL("Barringer ", W::Process, " ", W::Reliability, " BPR"), command<73>},
    {toolsMenu, 'T', life, LABEL(W::Test, " / ", W::Usage, " ", W::Requirement), command<12>},
    {toolsMenu, 'W', life, LABEL("PFEV Accel. ", W::Test, " / Degrad. / CoVariate"), command<52>},

    {helpMenu, 'I', both, LABEL(W::Start, " ", W::Help, " <F1>"), command<21>},
    {helpMenu, 'J', both, LABEL(W::Additional, " ", AsTyped{session.productName}), command<48>},
    {helpMenu, 'T', both, LABEL(W::About, " ", AsTyped{session.productName}, " <F2>"), command<91>},
    {helpMenu, 'V', life,
     LABEL(W::View, " ", W::Additional, " ", W::Probability, " ", W::Plot, " ", W::Options),
     probabilityoptions},
};

#undef LABEL

constexpr std::array<Word, dropMenus> titles = {Word::File,     Word::Edit,  Word::Options,
                                                Word::Analysis, Word::Tools, Word::Help};

/// The letters that open a drop-down while none is open.
struct Opener {
    char letter;
    int menu;
};
constexpr Opener openers[] = {{'A', analysisMenu}, {'B', toolsMenu}, {'D', optionsMenu},
                              {'E', editMenu},     {'F', fileMenu},  {'H', helpMenu}};

std::vector<const Item*> itemsof(int index) {
    std::vector<const Item*> items;
    for (const Item& item : table)
        if (item.menu == index && offered(item.where)) items.push_back(&item);
    return items;
}

const Item* itemof(int index, char letter) {
    for (const Item* const item : itemsof(index))
        if (item->letter == letter) return item;
    return nullptr;
}

void close() {
    session.dropMenuOpen = dropForcedClosed;
    dropmenu();
}

void act(const Item& item) {
    close();
    item.act();
}

/// Cut and Paste by a bare letter, which a slip of the finger types as well: asked while results stand.
void askededit(int action, Word what) {
    compose(session.msg, what);
    if (session.lastRow <= 0 || agreed()) runcommand(action == editCut ? 79 : 83);
}

/// A letter with no drop-down open.
bool bareletter(char letter) {
    for (const Opener& opener : openers)
        if (opener.letter == letter) {
            dropmenupress(opener.menu);
            return true;
        }
    if (letter == 'V' || letter == 'X') {
        askededit(letter == 'V' ? editPaste : editCut, letter == 'V' ? Word::Paste : Word::Cut);
        return true;
    }
    if (letter != 'N' && letter != 'O' && letter != 'P' && letter != 'S') return false;
    const Item* const item = itemof(fileMenu, letter);
    if (item) item->act();
    return item != nullptr;
}

} // namespace

std::string dropmenutitle(int index) {
    std::string text;
    if (index < 0 || index >= dropMenus) return text;
    wordclean(compose(text, titles[static_cast<std::size_t>(index)]));
    return text;
}

std::vector<std::string> dropmenuitems(int index) {
    std::vector<std::string> texts;
    for (const Item* const item : itemsof(index)) {
        std::string& text = texts.emplace_back(std::string(1, item->letter) + "...");
        item->label(text);
        wordclean(text);
    }
    return texts;
}

void dropmenu() {
    if (session.dropMenuOpen == dropForcedClosed) {
        session.dropMenuOpen = dropClosed;
        session.dropMenuItem = 0;
    }
    if (session.dropMenuOpen == dropBarRedrawn) session.dropMenuOpen = dropShown;
    if (platform) platform->window().repaintmenu();
}

void dropmenupress(int index) {
    if (session.shellBusy > 0 || index < 0 || index >= dropMenus) return;
    if (platform) platform->window().closepopups();
    if (session.dropMenuOpen == dropShown && session.dropMenuIndex == index) {
        close();
        return;
    }
    session.dropMenuOpen = session.dropMenuOpen == dropShown ? dropBarRedrawn : dropShown;
    session.dropMenuIndex = static_cast<int16_t>(index);
    session.dropMenuItem = 0;
    dropmenu();
}

bool menuletter(char letter) {
    if (session.shellBusy > 0) return false;
    const char upper = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
    if (session.dropMenuOpen != dropShown) return bareletter(upper);
    const Item* const item = itemof(session.dropMenuIndex, upper);
    if (item) act(*item);
    return item != nullptr;
}

void dropmenuchoose(int number) {
    const auto items = itemsof(session.dropMenuIndex);
    if (session.shellBusy > 0 || number < 0 || number >= static_cast<int>(items.size())) return;
    act(*items[static_cast<std::size_t>(number)]);
}
