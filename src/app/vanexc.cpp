// vanexc: the console program over the core.

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <new>
#include <optional>
#include <string>
#include <vector>

#include "curvefit/curvesmain.h"
#include "curvefit/models.h"
#include "data/datafilesave.h"
#include "data/importtable.h"
#include "data/report.h"
#include "data/resultsjson.h"
#include "data/samples.h"
#include "platform/files.h"
#include "platform/headless/headless.h"
#include "plot/plotchoice.h"
#include "plot/plotfile.h"
#include "session/commandline.h"
#include "session/opendata.h"
#include "session/sampleload.h"
#include "session/scriptoutput.h"
#include "session/session.h"
#include "session/sizing.h"
#include "session/startup.h"
#include "shell/calcplot.h"
#include "shell/grid.h"
#include "shell/languages.h"
#include "shell/prompts.h"

namespace {

enum ExitStatus { done = 0, noResult = 1, wrongUse = 2 };

constexpr const char* helpHead =
    "Usage: vanexc [FILE|-] [switches] [--report FILE|-] [--json FILE|-]\n"
    "              [--plot FILE [--plot-size WxH] [--plot-kind NAME] [--scale NAME]]\n"
    "              [--fit NAME] [--save FILE] [--sample K]\n"
    "              [--format LETTER] [--decimal SYMBOL] [--language NAME]\n"
    "\n"
    "Fits a line to life data, or curves to X-Y data, writes a report and draws the plot. FILE\n"
    "is a data file of the program or plain text, one cell a line or several cells a line, each\n"
    "column a set; - reads standard input. Without FILE the built-in leukemia sample is analysed\n"
    "on the life side.\n"
    "\n"
    "Cells   X, -X (suspension) or XxYxQxZ_label: 6x0x3 is three failures at 6, -9 one\n"
    "        suspension at 9, 10x0x1x20 with -i 5 a failure between 10 and 20. A label\n"
    "        ends at a word that begins like a number; with tabs between the cells it\n"
    "        may hold any word. On the visual side XxY or XxYxQ: 2x5x3 is three points at X 2 and Y 5.\n"
    "\n"
    "Switches (the value follows the letter; a value that is not understood is told, has no effect\n"
    "and makes the exit status 2)\n";

constexpr const char* helpTail =
    "\n"
    "Output\n"
    "  --report FILE|-   the text report; standard output when no output is named\n"
    "  --json FILE|-     the results as one JSON object\n"
    "  --plot FILE       the plot: .svg picture, .hgl plotter text (HPGL), .trace every drawing\n"
    "                    operation in words\n"
    "  --plot-size WxH   pixels of the picture, 400x300 to 4000x3000; 1200x900 when not given\n"
    "  --plot-kind NAME  of an X-Y plot: xy (points), line, mixed, bars, stacked, bars3d, pie, pie3d\n"
    "                    or space\n"
    "  --scale NAME      of its axes: linear, loglog, logx, logy, arrhenius-x or arrhenius-y\n"
    "  --save FILE       the session, data, options and results, as a data file: .w on the life side,\n"
    "                    .v on the visual side\n"
    "  --language NAME   language of the report and the plot: German or Deutsch, ...; an unknown\n"
    "                    name lists them all\n"
    "  --sample K        built-in sample 1 to 11 in place of FILE; 7 and 9 are of the X-Y side\n"
    "  --help, --version\n"
    "\n"
    "Curves (-p V)\n"
    "  --fit NAME        a curve for every set: linear, quadratic, cubic, a number 1 to 9 for a polynomial\n"
    "                    of that order, exponential y=a*b^x, power y=a*x^b, arrhenius-x y=a*b^(1/x),\n"
    "                    arrhenius-y x=a*b^(1/y). Each point counts by its quantity Q.\n"
    "\n"
    "Input\n"
    "  --format LETTER   what the columns of the text hold, as in the format menu: E, K2, ...; an\n"
    "                    unknown letter lists them all; text, or nothing, tells it from the text\n"
    "  --decimal SYMBOL  comma or point: what a comma between digits is, where a text leaves it open\n"
    "\n"
    "Exit status 0, 1 when no set could be analysed, a set got no curve or a script failed, 2 for a usage\n"
    "error.\n"
    "\n"
    "Examples\n"
    "  vanexc bearings.txt -p W -e LOGNORMAL -b M2D90\n"
    "  vanexc -p V trend.txt --fit quadratic --json - --plot trend.svg\n"
    "  vanexc -s '[WVW {-m 3} [bearings.txt] R results.txt P plot.svg]'\n"
    "  printf '150\\n230\\n-400\\n310\\n' | vanexc - -p W --json -\n";

struct Outputs {
    std::optional<std::string> report;
    std::optional<std::string> json;
    std::optional<std::string> plot;
    std::optional<std::string> plotSize;
    std::optional<std::string> plotKind;
    std::optional<std::string> scale;
    std::optional<std::string> language;
    std::optional<std::string> format;
    std::optional<std::string> save;
    std::optional<std::string> sample;
    int sampleNumber = 2; ///< leukemia
    std::optional<std::string> decimal;
    std::optional<std::string> fit;
    int pixelsAcross = 1200;
    int pixelsDown = 900;
};

/// Tells a fault on standard error.
void complain(std::string text) {
    constexpr std::string_view indent = "\n        ";
    for (auto at = text.find('\n'); at != std::string::npos; at = text.find('\n', at + indent.size()))
        text.replace(at, 1, indent);
    for (char& c : text) // a file of bytes must not drive the terminal
        if (static_cast<unsigned char>(c) < ' ' && c != '\n') c = '?';
    std::fprintf(stderr, "vanexc: %s\n", text.c_str());
}

/// Composes a fault in the language in force and tells it.
template <class... Parts>
void complainof(const Parts&... parts) {
    wordclean(compose(session.msg, parts...));
    complain(session.msg);
}

struct LongOption {
    std::string_view name;
    std::optional<std::string> Outputs::*value;
};
constexpr LongOption longOptions[] = {
    {"--report", &Outputs::report},      {"--json", &Outputs::json},         {"--plot", &Outputs::plot},
    {"--plot-size", &Outputs::plotSize}, {"--language", &Outputs::language}, {"--format", &Outputs::format},
    {"--save", &Outputs::save},          {"--sample", &Outputs::sample},     {"--decimal", &Outputs::decimal},
    {"--plot-kind", &Outputs::plotKind}, {"--scale", &Outputs::scale},       {"--fit", &Outputs::fit}};

/// The help: usage, every switch in columns, outputs and examples.
std::string helptext() {
    constexpr std::size_t textColumn = 22;
    std::string text = helpHead;
    for (const SwitchHelp& one : switchhelp()) {
        std::string line = std::string("  -") + one.letter + " " + std::string(one.value);
        line.resize(std::max(line.size() + 1, textColumn), ' ');
        line += one.text;
        for (auto at = line.find('\n'); at != std::string::npos; at = line.find('\n', at + 1))
            line.insert(at + 1, textColumn, ' ');
        text += line + "\n";
    }
    return text + helpTail;
}

/// Takes the long options off the arguments. False on one that is unknown or has no value.
bool takeoutputs(std::vector<std::string>& arguments, Outputs& outputs) {
    std::vector<std::string> rest;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (!arguments[i].starts_with("--")) {
            rest.push_back(arguments[i]);
            continue;
        }
        const auto* option = std::find_if(std::begin(longOptions), std::end(longOptions),
                                          [&](const LongOption& one) { return one.name == arguments[i]; });
        if (option == std::end(longOptions)) {
            complainof(Word::Unknown, ": ", AsTyped{arguments[i]});
            return false;
        }
        if (i + 1 == arguments.size()) {
            complainof(Word::No, " ", Word::Value, ": ", AsTyped{arguments[i]});
            return false;
        }
        outputs.*option->value = arguments[++i];
    }
    arguments = rest;
    return true;
}

/// Notes the language that was asked for. False, with the list of all, when there is none of that name.
bool takelanguage(const Outputs& outputs) {
    if (!outputs.language) return true;
    if (const Language* const language = languageofname(*outputs.language)) {
        session.cmdLanguage = language->file;
        return true;
    }
    std::string names;
    for (const Language& language : languages()) extend(names, "\n", language.name);
    complainof(Word::Unknown, " ", Word::Language, ": ", AsTyped{*outputs.language}, AsTyped{names});
    return false;
}

/// Takes "WxH" as the size of the picture. False when it is not two numbers within the limits.
bool takesize(Outputs& outputs) {
    if (!outputs.plotSize) return true;
    const std::string& text = *outputs.plotSize;
    const char* end = text.data() + text.size();
    const auto across = std::from_chars(text.data(), end, outputs.pixelsAcross);
    if (across.ec != std::errc() || across.ptr == end || *across.ptr != 'x') return false;
    const auto down = std::from_chars(across.ptr + 1, end, outputs.pixelsDown);
    const auto within = [](int pixels, int least, int most) { return pixels >= least && pixels <= most; };
    return down.ec == std::errc() && down.ptr == end && within(outputs.pixelsAcross, 400, 4000)
           && within(outputs.pixelsDown, 300, 3000);
}

/// The forms of both sides, a line each.
std::string formatlist() {
    std::string list;
    for (const Side side : {lifeSide, visualSide}) {
        extend(list, "\n-p ", side == lifeSide ? 'W' : 'V', ":");
        for (const ImportLetter& letter : importletters(side)) {
            letter.label(extend(list, "\n  ", letter.letter, "  "));
            if (letter.forms.size() == 1) continue;
            for (const ImportForm& form : letter.forms)
                form.label(extend(list, "\n    ", AsTyped{importcode({&letter, &form})}, "  "));
        }
    }
    return list;
}

/// Notes the form of the data that was asked for. False, with the list of all, when no side has it.
bool takeformat(const Outputs& outputs) {
    if (!outputs.format || *outputs.format == "text") return true;
    session.formatWanted = *outputs.format;
    if (importchoice(lifeSide, *outputs.format).form || importchoice(visualSide, *outputs.format).form)
        return true;
    complainof(Word::Unknown, " ", Word::Format, ": ", AsTyped{*outputs.format}, formatlist());
    return false;
}

bool takedecimal(const Outputs& outputs) {
    if (!outputs.decimal) return true;
    session.decimalWanted = *outputs.decimal == "comma" ? "," : *outputs.decimal == "point" ? "." : "";
    if (!session.decimalWanted.empty()) return true;
    complainof(Word::Unknown, " ", Word::Decimal, " ", Word::Symbol, ": ", AsTyped{*outputs.decimal},
               "\ncomma point");
    return false;
}

/// Notes the kind of curve that was asked for. False, with the list of all, when there is none of that name.
bool takefit(const Outputs& outputs) {
    if (!outputs.fit) return true;
    const auto code = modelofname(*outputs.fit);
    if (code) session.fitKindList[0] = *code;
    if (!code)
        complainof(Word::Unknown, " ", Word::Curve, " ", Word::Fit, ": ", AsTyped{*outputs.fit}, "\n",
                   AsTyped{modelnames()});
    return code.has_value();
}

/// Curves belong to X-Y data.
bool fitofside(const Outputs& outputs) {
    if (!outputs.fit || session.progSide == visualSide) return true;
    complainof(Word::Curve, " ", Word::Fit, " ... -p V: --fit ", AsTyped{*outputs.fit});
    return false;
}

/// Takes the number of the sample. False when there is none of that number.
bool takesample(Outputs& outputs) {
    if (!outputs.sample) return true;
    const char* const end = outputs.sample->data() + outputs.sample->size();
    const auto read = std::from_chars(outputs.sample->data(), end, outputs.sampleNumber);
    if (read.ec == std::errc() && read.ptr == end && sampledata(outputs.sampleNumber)) return true;
    complainof(Word::Unknown, " ", Word::Sample, ": ", AsTyped{*outputs.sample}, "\n1 - 11");
    return false;
}

/// The sample asked for leaves the visual side in force: it is meant for that alone, or the side was chosen.
bool forvisual(const Outputs& outputs) {
    return outputs.sample
           && (session.cmdSide == visualSide || sampledata(outputs.sampleNumber)->side == SampleSide::visual);
}

/// Puts the sample into the grid; what the command line asks for wins over the sample's own input type.
bool loadsample(int number) {
    if (!sampleload(number)) return false;
    cmdapply();
    return true;
}

/// Looks at the names of the plot's kind and scale. False, with the list of all, when there is none such.
bool plotnamed(const Outputs& outputs) {
    if (outputs.plotKind && !isplotkind(*outputs.plotKind)) {
        complainof(Word::Unknown, " ", Word::Plot, " ", Word::Type, ": ", AsTyped{*outputs.plotKind}, "\n",
                   plotkindnames());
        return false;
    }
    if (outputs.scale && !isplotscale(*outputs.scale)) {
        complainof(Word::Unknown, " ", Word::PlotScale, " ", Word::Type, ": ", AsTyped{*outputs.scale}, "\n",
                   plotscalenames());
        return false;
    }
    return true;
}

/// Takes the kind and scale that were asked for; they hold against what a file says. False on the life side,
/// whose plot has neither.
bool takeplot(const Outputs& outputs) {
    if (!outputs.plotKind && !outputs.scale) return true;
    if (session.progSide == lifeSide) {
        complainof("--plot-kind, --scale: ", Word::Only, " ", Word::For, " X-Y ", Word::Plot, " = -p V");
        return false;
    }
    if (outputs.plotKind) takeplotkind(*outputs.plotKind);
    if (outputs.scale) takeplotscale(*outputs.scale);
    return true;
}

/// Looks at what was asked of the plot before any work is done.
bool plotpossible(Outputs& outputs) {
    if (!plotnamed(outputs)) return false;
    if (outputs.plot && (!plotfileknown(*outputs.plot) || plotfilepainted(*outputs.plot))) {
        complainof(Word::Unknown, " ", Word::Plot, " ", Word::File, " ", Word::Type, ": ",
                   AsTyped{*outputs.plot}, "\n.svg .hgl .trace");
        return false;
    }
    if (takesize(outputs)) return true;
    complainof(Word::Plot, " ", Word::Size, ": ", AsTyped{*outputs.plotSize}, "\n400x300 - 4000x3000");
    return false;
}

/// Why nothing was analysed, when no message has said it.
void complainempty(const HeadlessPlatform& console) {
    if (console.messages.empty()) complainof(Word::Not, " ", Word::Enough, " ", Word::Data);
}

/// Without a side the data were taken as X-Y data, which have no line of their own: who meant another thing
/// is told how to ask for it.
void hintside(const Outputs& outputs) {
    if (session.progSide != visualSide || session.cmdSide != 0 || outputs.plot || outputs.fit) return;
    for (int k = 1; k <= setcount(); ++k)
        if (hascurve(k)) return;
    complainof(Word::No, " ", Word::Fit, " ... ", Word::Life, " ", Word::Analysis, " = -p W, ", Word::Curve,
               " ", Word::Fit, " = --fit");
}

bool writeoutput(const std::optional<std::string>& path, const std::string& text) {
    if (!path || writefile(*path, text)) return true;
    complainof(Word::Cannot, " ", Word::Save, " ", Word::File, ": ", AsTyped{*path});
    return false;
}

/// Saves the session; why it was refused is among the messages.
bool savedata(const std::string& path, HeadlessPlatform& console) {
    console.messages.clear();
    const bool saved = datafilesave(path);
    for (const std::string& message : console.messages) complain(message);
    return saved && console.messages.empty(); // what is told could not be saved
}

/// Writes what the long options ask for of the session as it has been calculated.
int writeall(const Outputs& outputs, HeadlessPlatform& console) {
    const bool plotted = !outputs.plot || plotfile(*outputs.plot, outputs.pixelsAcross, outputs.pixelsDown);
    for (const std::string& message : console.messages) complain(message);
    if (!plotted) complainof(Word::Cannot, " ", Word::Plot, ": ", AsTyped{*outputs.plot});
    const bool analysed = anyresult() && curvesstand();
    if (!analysed) complainempty(console);
    if (analysed) hintside(outputs);
    std::string json;
    if (outputs.json) writeresults(json);
    bool written = writeoutput(outputs.report, reportastext()) && writeoutput(outputs.json, json);
    if (outputs.save) written = savedata(*outputs.save, console) && written;
    return analysed && plotted && written ? done : noResult;
}

/// A title takes every word up to the next switch. One that took the file as well would leave the sample to
/// be analysed in its place.
bool filelost() {
    for (const std::string& title : {session.cmdTitle, session.cmdTitleSecond}) {
        const std::string last = title.substr(title.find_last_of(' ') + 1);
        if (last.empty() || !platform->system().fileexists(last)) continue;
        complainof(Word::Unknown, " ", Word::File, ": ", AsTyped{title});
        return true;
    }
    return false;
}

/// Reads the data that were named, or the sample. False, and told, when there are none.
bool load(int sample, HeadlessPlatform& console) {
    if (session.cmdFile.empty() && filelost()) return false;
    if (session.cmdFile.empty() && !loadsample(sample)) return false;
    const DataRead outcome = session.cmdFile.empty() ? DataRead::read : opendata(session.cmdFile);
    if (outcome == DataRead::unreadable)
        complainof(Word::Cannot, " ", Word::Open, " ", Word::File, ": ", AsTyped{session.cmdFile});
    if (outcome == DataRead::refused) {
        wordclean(session.msg);
        if (!session.msg.empty()) complain(session.msg);
        if (!session.msg.empty()) console.messages.clear();
    }
    if (outcome == DataRead::unreadable || outcome == DataRead::refused) return false;
    if (session.dataFileRead != 0) cmdapply(); // what was asked for holds against what the file says
    const bool room = roomfor(longestcolumn());
    if (!room) complainof(Word::Not, " ", Word::Enough, " ", Word::Free, " ", Word::Memory);
    return room;
}

/// Notes on values without effect, and what the prompts would have shown.
void complainall(HeadlessPlatform& console) {
    for (const std::string& note : session.cmdNotes) complain(note);
    for (const std::string& message : console.messages) complain(message);
    console.messages.clear();
    if (session.scriptRequest.empty()) return;
    for (const auto& messages : session.setMessages) // prompts answer themselves in a script, unseen
        for (const std::string& message : messages) complain(message);
}

/// A run that had to leave out a value must not look as if it had been obeyed.
int status(int outcome) { return session.cmdNotes.empty() ? outcome : wrongUse; }

/// The form that was asked for belongs to the side that was started.
bool formatofside() {
    if (session.formatWanted.empty() || importchoice(session.progSide, session.formatWanted).form)
        return true;
    complainof(Word::Unknown, " ", Word::Format, ": ", AsTyped{session.formatWanted}, formatlist());
    return false;
}

int start(std::vector<std::string> arguments, const char* name, HeadlessPlatform& console) {
    Outputs outputs;
    if (!takeoutputs(arguments, outputs) || !plotpossible(outputs) || !takeformat(outputs)
        || !takedecimal(outputs) || !takelanguage(outputs) || !takesample(outputs) || !takefit(outputs))
        return wrongUse;
    const StartEnd end = startup(arguments, name, false);
    if (end == StartEnd::wrongUse) {
        wordclean(session.msg);
        complain(session.msg);
        return wrongUse;
    }
    complainall(console);
    if (end == StartEnd::exit) return status(writeall(outputs, console));
    if (end != StartEnd::ready) return status(noResult);
    if (!formatofside()) return wrongUse;
    if (!outputs.report && !outputs.json && !outputs.plot && !outputs.save) outputs.report = "-";
    if (outputs.sample && !session.cmdFile.empty()) {
        complainof(Word::Data, " ", Word::File, " ", Word::Or, " ", Word::Sample, ": ",
                   AsTyped{session.cmdFile});
        return wrongUse;
    }
    if (session.cmdFile.empty() && session.progSide != lifeSide && !forvisual(outputs)) {
        chooseside(lifeSide);
        if (!sizearrays()) return noResult;
        cmdapply();
    }
    if (!fitofside(outputs)) return wrongUse;
    if (!load(outputs.sampleNumber, console)) {
        for (const std::string& message : console.messages) complain(message);
        return status(noResult);
    }
    if (!takeplot(outputs)) return wrongUse;
    calcplot();
    return status(writeall(outputs, console));
}

} // namespace

int main(int argc, char** argv) {
    std::vector<std::string> arguments(argv + std::min(argc, 1), argv + argc);
    const auto asked = [&](const char* option) {
        return std::find(arguments.begin(), arguments.end(), option) != arguments.end();
    };
    if (asked("--help")) return writefile("-", helptext()) ? done : noResult;
    if (asked("--version"))
        return writefile("-", compose(session.msg, session.productName, " ", VANEX_VERSION, "\n")) ? done
                                                                                                   : noResult;
    const char* const name = argc > 0 ? argv[0] : "vanexc";
    HeadlessPlatform console(name);
    platform = &console;
    installreporters();
    session.noPrompt = 1;
    try {
        return start(arguments, name, console);
    } catch (const std::bad_alloc&) {
        complainof(Word::Not, " ", Word::Enough, " ", Word::Free, " ", Word::Memory);
        return noResult;
    }
}
