#include "session/startup.h"

#include "analysis/ranks.h"
#include "data/datafileopen.h"
#include "data/textpieces.h"
#include "expression/rules.h"
#include "platform/paths.h"
#include "platform/platform.h"
#include "session/commandline.h"
#include "session/findfile.h"
#include "session/findpaths.h"
#include "session/opendata.h"
#include "session/optionfile.h"
#include "session/script.h"
#include "session/scriptrequest.h"
#include "session/session.h"
#include "session/settings.h"
#include "session/sizing.h"
#include "session/switches.h"
#include "shell/calcplot.h"
#include "shell/prompts.h"
#include "shell/words.h"

namespace {

constexpr float manyPoints = 600; ///< from here on the arrays take a moment

/// The side that a program name stands for; the plain names leave it to the data file.
Side sideofprogram(std::string_view name) {
    const std::string program = lowercase(nameof(name));
    if (program.starts_with("vanexw")) return lifeSide;
    if (program.starts_with("vanexy")) return simulationSide;
    const bool named = program.starts_with("vanexv") || session.cmdFile.empty();
    return !named && sideoffile(session.cmdFile) == 'W' ? lifeSide : visualSide;
}

/// The side by the name of the program or the data file, by a script's tag, by -p; the later one holds.
Side sidewanted(std::string_view name) {
    Side side = sideofprogram(name);
    if (const auto request = requestof(session.scriptRequest); request && request->side != 0)
        side = request->side == 'W' ? lifeSide : visualSide;
    if (session.cmdSide != 0) side = static_cast<Side>(session.cmdSide);
    return side;
}

/// The folder of the settings comes with the first start of a window; a script run leaves nothing behind.
void makeconfigfolder(bool windowed) {
    if (!windowed || !platform) return;
    if (const auto settings = platform->system().environment("APPDATA"))
        platform->system().makefolder(*settings + "\\OmniVANEX");
}

void notecannot(Word what, const std::string& name) {
    std::string text;
    wordclean(compose(text, Word::Cannot, " ", what, ": ", AsTyped{name}));
    session.cmdNotes.push_back(text);
}

/// Folders asked for on the command line that could not be used: told, for the run goes on elsewhere.
void notefolders() {
    const auto note = [](char letter, const std::string& wanted, const std::string& used) {
        if (!wanted.empty() && used != withbackslash(ownpath(wanted)))
            notecannot(Word::Save, std::string("-") + letter + " " + wanted);
    };
    note('c', session.cmdConfig, session.configPath);
    note('t', session.cmdTemp, session.tempPath);
    if (!session.cmdData.empty() && platform && !platform->system().folderexists(session.cmdData))
        notecannot(Word::Open, "-d " + session.cmdData);
}

/// Folders, command line, side and settings. False when the command line is wrong.
bool firstpass(const std::string& line, std::string_view name, bool windowed) {
    session.startDir = platform ? platform->system().currentfolder() : std::string();
    session.languageFile.clear();
    wordload();
    makeconfigfolder(windowed);
    findpaths(line);
    const bool understood = cmdparse(std::string_view(line));
    const std::string fault = session.msg;
    notefolders();
    newtempbase();
    chooseside(sidewanted(name));
    decimalsep();
    settingsread();
    if (windowed)
        settingsmark(session.progSide == lifeSide ? 'W' : session.progSide == visualSide ? 'V' : 'Y', true);
    if (windowed && session.settingsWritten == 0) settingswrite();
    settingskeep();
    if (!session.cmdOptionFile.empty() && !optionfileread(session.cmdOptionFile))
        notecannot(Word::Open, session.cmdOptionFile);
    session.msg = fault;
    return understood;
}

bool sizeall() {
    raisefor(static_cast<double>(session.cmdSets), static_cast<double>(session.cmdPoints));
    if (pointswanted() >= manyPoints && platform) platform->window().caption(waitCaption);
    return sizearrays();
}

StartEnd runscript(bool windowed) {
    const bool good = scriptrun();
    settingsoverride();
    if (!windowed || session.cmdShowWindow == 0) return good ? StartEnd::exit : StartEnd::failed;
    session.scriptRequest.clear();
    return StartEnd::mainWindow;
}

} // namespace

StartEnd startup(std::span<const std::string> words, std::string_view name, bool windowed) {
    const bool first = session.startPasses++ == 0;
    rankPosition = regresscalcwmainplotpos;
    if (first) {
        if (!firstpass(linefrom(words), name, windowed)) return StartEnd::wrongUse;
        if (!sizeall()) return StartEnd::noMemory;
    }
    if (first && !session.cmdLanguage.empty()) session.languageFile = session.cmdLanguage;
    wordload();
    cmdapply();
    if (first) settingsoverride();
    if (!session.scriptRequest.empty()) return runscript(windowed);
    if (!windowed) return StartEnd::ready;
    return session.skipStartScreen == 1 ? StartEnd::mainWindow : StartEnd::startWindow;
}

void shutdown() {
    session.lastFile.clear();
    settingswrite();
    removetemporaries();
    if (platform) platform->system().enterfolder(session.startDir);
}

void welcome() {
    constexpr int16_t shownTwice = 2;
    if (session.firstRunStage >= shownTwice) return;
    ++session.firstRunStage;
    settingswrite();
    compose(session.msg, " WELCOME! Some Ways To Start:\n\n", Word::Type, " ", Word::Data, " ", Word::In, " ",
            Word::Grid, "\n", Word::Open, " / ", Word::Get, " / ", Word::Import, "\n", Word::Paste, " ",
            Word::Data, "\n", Word::Demonstrate, " / ", Word::Sample,
            "\n\n   (Select Language With The Computer Icon)");
    if (session.firstRunStage == shownTwice) extend(session.msg, "\n\nThis Message Will Not Be Shown Again");
    tellok();
}

/// Opens the data file of the command line, whose switches hold against the options of the file.
void opencmdfile() {
    const DataRead end = opendata(session.cmdFile);
    if (session.dataFileRead != 0) cmdapply();
    if (end == DataRead::read || end == DataRead::empty) return;
    if (end == DataRead::unreadable)
        compose(session.msg, Word::Cannot, " ", Word::Open, " ", Word::File, ": ", AsTyped{session.cmdFile});
    if (!session.msg.empty()) tellok();
}

void openmain() {
    session.undoActive = 1;
    if (!session.cmdFile.empty()) opencmdfile();
    roomfor(longestcolumn());
    calcplot();
    welcome();
}
