#include "data/datafilesave.h"

#include <cmath>

#include "data/datafile.h"
#include "data/filelines.h"
#include "data/htmlwrapper.h"
#include "data/labels.h"
#include "data/textpieces.h"
#include "platform/paths.h"
#include "session/session.h"
#include "shell/prompts.h"
#include "shell/words.h"

namespace {

bool tellcannot(const std::string& name) {
    compose(session.msg, Word::Cannot, " ", Word::Save, " ", Word::File, ": ", AsTyped{name});
    tellok();
    return false;
}

/// A file holds points: cells of the grid that are none are not in it, nor sets beyond the capacity. True
/// when some were told.
bool tellunsaved() {
    std::size_t cells = 0, points = 0;
    for (const auto& column : session.gridCells)
        for (const std::string& cell : column) cells += trimmed(cell).empty() ? 0 : 1;
    for (int k = 1; k <= setcount(); ++k) points += static_cast<std::size_t>(pointcount(k));
    if (cells <= points) return false;
    compose(session.msg, Word::Not, " ", Word::Saved, ": ", static_cast<int>(cells - points), " ",
            Word::Point, " ... ", Word::Bad, " ", Word::Data, " / ", Word::Set, " ", Word::Quantity, " ",
            Word::Too, " ", Word::Big);
    tellok();
    return true;
}

/// A file of one side must not hold the session of the other: its extension would lie.
bool extensionserves(const std::string& name) {
    const bool life = session.progSide == lifeSide;
    if (!uppercase(name).ends_with(life ? ".V" : ".W")) return true;
    compose(session.msg, "'", AsTyped{name}, "' ", Word::With, " ", Word::File, " ", Word::To, " ",
            Word::Save, " ", Word::Cannot, " ... ", life ? "VXW" : "VXV");
    tellok();
    return false;
}

std::string withextension(const std::string& name, const char* life, const char* visual) {
    const bool bare = nameof(name).find('.') == std::string::npos;
    return bare ? name + (session.progSide == lifeSide ? life : visual) : name;
}

/// Writes what `write` writes to the sink, in the wrapper when it was asked for.
template <class Write>
bool writethrough(TextSink& sink, Write write) {
    const Keep kept(session.htmlMode);
    const bool wrapped = session.htmlMode == wrapperAsked;
    session.htmlMode = wrapped ? wrapperWriting : plainLines;
    outputbegin(sink);
    if (wrapped) wrapperhead();
    const bool written = write();
    if (wrapped) wrappertail();
    return outputend() && written;
}

template <class Write>
bool savewhole(const std::string& path, Write write) {
    OutputFile file;
    return file.open(path) && writethrough(file, write) && file.settle() && file.commit();
}

} // namespace

bool datafilesave(const std::string& name) {
    const bool labels = std::fabs(session.u) == labelsWanted;
    session.u = 0;
    std::string path(trimmed(name));
    path = labels ? withextension(path, ".lbl", ".lbl") : withextension(path, ".w", ".v");
    if (!labels && !extensionserves(path)) return false;
    if (!savewhole(path, labels ? labelswrite : datafilewrite)) return tellcannot(path);
    if (labels) return true;
    session.fileName = path;
    session.resultsDirty = tellunsaved() ? 1 : 0;
    return true;
}

bool savedas(const std::string& path) {
    const auto text = path.empty() ? std::nullopt : readfile(path);
    return text && *text == datafiletext();
}

std::string datafiletext() {
    std::string text;
    TextKeeper sink(text);
    const Keep kept(session.htmlMode);
    session.htmlMode = plainLines;
    return writethrough(sink, datafilewrite) ? text : std::string();
}

bool snapshotwrite(const std::string& path) {
    const Keep kept(session.htmlMode);
    session.htmlMode = plainLines;
    OutputFile file;
    return file.open(path) && writethrough(file, datafilewrite) && file.commit();
}

std::string saveFilter() {
    return std::string(session.progSide == lifeSide ? "VXW (*.w)|*.w" : "VXV (*.v)|*.v") + "|All (*.*)|*.*";
}
