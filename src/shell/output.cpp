#include "shell/output.h"

#include <algorithm>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "data/boundvalues.h"
#include "data/report.h"
#include "options/pages.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/platform.h"
#include "plot/plotfile.h"
#include "session/opendata.h"
#include "session/scriptoutput.h"
#include "session/session.h"
#include "shell/gridedit.h"
#include "shell/prompts.h"
#include "shell/savename.h"
#include "shell/words.h"

namespace {

constexpr int pixelsAcross = 1200, pixelsDown = 900;

template <class... Parts>
void tell(const Parts&... parts) {
    const Keep keep{session.msg, session.menuTitle};
    session.menuTitle.clear();
    compose(session.msg, parts...);
    tellok();
}

/// Tells why nothing went out.
template <class... Parts>
bool refuse(const Parts&... parts) {
    tell(parts...);
    return false;
}

bool anydata() {
    for (int k = 1; k <= setcount(); ++k)
        if (pointcount(k) > 0) return true;
    return false;
}

bool tellnodata() {
    compose(session.menuTitle, Word::Data);
    compose(session.msg, Word::No, " ", Word::Data);
    tellok();
    return false;
}

// ---- where it goes ----

bool tookclipboard(bool taken) {
    return taken || refuse(Word::Cannot, " ", Word::Copy, " ", Word::To, " ", Word::Clipboard);
}

bool copytext(const std::string& text) {
    return tookclipboard(platform && platform->clipboard().settext(text));
}

/// A print that the user gave up needs no word.
bool printended(PrintEnd end) {
    switch (end) {
    case PrintEnd::printed: return true;
    case PrintEnd::cancelled: return false;
    case PrintEnd::noPrinter: return refuse(Word::No, " ", Word::Printer);
    case PrintEnd::failed: break;
    }
    return refuse(Word::Printer, " ", Word::Error, "!!!...");
}

Printer* printer() { return platform ? platform->printer() : nullptr; }

bool printpicture(bool fine) {
    const double percent = std::clamp(static_cast<double>(session.printPercent), 10.0, 100.0);
    return printended(printer() ? printer()->printplot(fine, percent) : PrintEnd::noPrinter);
}

bool printtext(Word header, const std::string& text) {
    std::string title;
    wordclean(compose(title, header));
    return printended(printer() ? printer()->printtext(title, text) : PrintEnd::noPrinter);
}

/// Name of a file to save to, in the program's own form; the extension is put on where there is none. Nothing
/// on a cancel, and where a file of that name is to stay.
std::optional<std::string> savename(Word what, const char* filter, const char* extension) {
    if (!platform) return std::nullopt;
    std::string header;
    wordclean(compose(header, Word::Save, " ", what));
    const std::string folder = nativepath(session.dataPath);
    const auto native = platform->prompts().savefile({header, filter, folder});
    if (!native || native->empty()) return std::nullopt;
    return extendedname(ownpath(*native), extension);
}

bool savetext(Word what, const std::string& text) {
    const auto name = savename(what, "Text (*.txt)|*.txt|All (*.*)|*.*", ".txt");
    if (!name) return false;
    return writefile(*name, text) || refuse(Word::Cannot, " ", Word::Save, ": ", AsTyped{*name});
}

bool savepicture(const char* filter, const char* extension) {
    const auto name = savename(Word::Picture, filter, extension);
    if (!name) return false;
    if (!plotfileknown(*name))
        return refuse(Word::Unknown, " ", Word::File, " ", Word::Type, ": ", AsTyped{*name});
    return plotfile(*name, pixelsAcross, pixelsDown);
}

/// The data in the form that was chosen.
std::string datatext() {
    if (session.dataColumns == 0) return dataastext();
    std::string text = gridtext();
    std::erase(text, '\r');
    return text;
}

std::string parameters() { return outputtext("R").value_or(std::string()); }

// ---- the outputs ----

struct Output {
    char letter;
    bool (*put)();
};
constexpr Output outputs[] = {
    {'W', [] { return printpicture(false); }},
    {'B', [] { return printpicture(true); }},
    {'C', [] { return copytext(datatext()); }},
    {'D', [] { return printtext(Word::Data, datatext()); }},
    {'E', [] { return savetext(Word::Data, datatext()); }},
    {'H', [] { return savepicture("HPGL (*.hgl)|*.hgl", ".hgl"); }},
    {'L', plotport},
    {'M',
     [] {
         return savepicture("BMP (*.bmp)|*.bmp|PNG (*.png)|*.png|PDF (*.pdf)|*.pdf|SVG (*.svg)|*.svg",
                            ".bmp");
     }},
    {'P', [] { return copytext(parameters()); }},
    {'R', [] { return printtext(Word::Report, reportastext()); }},
    {'S', [] { return copytext(reportastext()); }},
    {'T', [] { return savetext(Word::Report, reportastext()); }},
};

} // namespace

void outputpage() {
    if (anydata())
        optionpage(OptionPage::output);
    else
        tellnodata();
}

bool outputactivate() {
    const auto* const found = std::find_if(std::begin(outputs), std::end(outputs), [](const Output& output) {
        return output.letter == static_cast<char>(session.outputKind);
    });
    return found == std::end(outputs) ? outputs[0].put() : found->put();
}

bool copyplot() {
    if (!anydata()) return tellnodata();
    std::string svg;
    if (!plotsvg(svg, pixelsAcross, pixelsDown)) return false;
    if (session.totalReport == 1)
        return tookclipboard(platform && platform->clipboard().setboth(reportastext(), svg));
    return tookclipboard(platform && platform->clipboard().setpicture(svg));
}

bool copyvalues() { return copytext(blifelines(reportlevels())); }
