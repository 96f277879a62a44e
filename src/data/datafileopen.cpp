#include "data/datafileopen.h"

#include <algorithm>
#include <optional>

#include "data/datafilesave.h"
#include "data/filelines.h"
#include "data/htmlwrapper.h"
#include "data/labels.h"
#include "data/oldforms.h"
#include "data/textpieces.h"
#include "platform/paths.h"
#include "platform/platform.h"
#include "session/session.h"
#include "shell/prompts.h"
#include "shell/words.h"

namespace {

constexpr std::string_view productMark = "WINVANEX_DATA";
constexpr std::string_view storeName = "U4STORFILE";

/// What the first line of a tagged file says.
struct FirstLine {
    std::string decimal = "."; ///< of the numbers in the file
    std::string suffix;        ///< behind the product mark: "2-VXW"
};

/// Takes a first line apart; nothing when it is not that of a tagged file. A decimal symbol that could be
/// part of a number for other reasons is none.
std::optional<FirstLine> firstlineof(std::string_view line) {
    FirstLine first;
    constexpr std::string_view impossible = "0123456789+-eE \t";
    const auto bracket = line.find('[');
    if (bracket != std::string_view::npos) {
        const std::string_view inside = line.substr(bracket + 1, 2);
        const bool symbol = inside.size() == 2 && inside[1] == ']';
        if (symbol && impossible.find(inside[0]) == std::string_view::npos) first.decimal = inside[0];
        line = line.substr(0, bracket);
    }
    const std::string name = uppercase(trimmed(line));
    const auto mark = name.find(productMark);
    if (mark == std::string::npos) return std::nullopt;
    first.suffix = name.substr(mark + productMark.size());
    return first;
}

FileRead tellbad() {
    compose(session.msg, Word::Bad, " ", Word::Input, " ", Word::File);
    tellok();
    return FileRead::bad;
}

FileRead tellnodata() {
    compose(session.msg, Word::No, " ", Word::Data);
    tellok();
    return FileRead::nodata;
}

/// The data that an old form gave become those of the grid.
FileRead takeold(std::optional<OldData> data, MakeRoom makeroom) {
    if (!data) return FileRead::text;
    if (data->columns.empty()) return tellnodata();
    std::size_t longest = 0;
    for (const auto& column : data->columns) longest = std::max(longest, column.size());
    if (makeroom) makeroom(longest);
    session.gridCells = std::move(data->columns);
    session.gridTitles = std::move(data->titles);
    return FileRead::read;
}

/// Reads the session back as it was, out of the text of its data file and its grid.
void readback(const std::string& before, const GridState& grid) {
    const Keep kept(session.quietRead, session.fileDecimal);
    session.quietRead = 1;
    inputtext(before);
    if (const auto first = firstlineof(nextline())) session.fileDecimal = first->decimal;
    datafileread();
    static_cast<GridState&>(session) = grid;
}

FileRead readtagged(const FirstLine& first, MakeRoom makeroom) {
    const Keep kept(session.fileDecimal);
    session.fileDecimal = first.decimal;
    session.fileSuffix = first.suffix;
    const std::size_t longest = longestset(inputrest());
    const bool grows = makeroom && static_cast<float>(longest) > session.maxPoints;
    const GridState grid = grows ? static_cast<const GridState&>(session) : GridState();
    const std::string before = grows ? datafiletext() : std::string(); // making room empties the session
    if (grows) makeroom(longest);
    const FileRead end = datafileread();
    if (grows && end != FileRead::read) readback(before, grid);
    if (end == FileRead::nodata) return tellnodata();
    return end == FileRead::oldForm ? takeold(oldplainread(inputrest(), oldplainfields()), makeroom) : end;
}

FileRead opentagged(MakeRoom makeroom) {
    const std::size_t begin = inputplace();
    if (const auto first = firstlineof(nextline())) return readtagged(*first, makeroom);
    inputseek(begin);
    return FileRead::text;
}

/// A page that holds no data file of ours gives nothing.
FileRead openwrapped(MakeRoom makeroom) {
    if (!skipwrapperhead()) return tellbad();
    const Keep kept(session.htmlMode);
    session.htmlMode = wrapperReading;
    const FileRead end = opentagged(makeroom);
    return end == FileRead::text ? tellbad() : end;
}

/// A heading that only happens to begin like an old one belongs to a table of text.
bool historyheading(std::string_view heading) {
    const std::string word = uppercase(heading.substr(0, heading.find_first_of(" \t:,;")));
    return word == "HI" || word.starts_with("HIST");
}

FileRead openhistory(std::string_view heading, MakeRoom makeroom) {
    if (!historyheading(heading)) return FileRead::text;
    const bool life = session.progSide == lifeSide;
    const bool plain =
        life ? uppercase(heading).find("SUSPENSION") != std::string::npos : session.lastRow == 0;
    const OldFields fields = plain ? oldplainfields() : askhistoryfields();
    if (fields.empty()) return FileRead::cancelled;
    return takeold(oldplainread(inputrest(), fields), makeroom);
}

FileRead openlisted(std::string_view heading, MakeRoom makeroom) {
    const OldFields fields = fieldsofheading(heading);
    if (fields.empty()) return FileRead::text;
    return takeold(oldplainread(inputrest(), fields), makeroom);
}

FileRead openstore(std::string_view heading, MakeRoom) {
    if (!uppercase(heading).starts_with(storeName.substr(0, 6))) return FileRead::text;
    tellbad();
    session.msg = storeName;
    return FileRead::cancelled;
}

FileRead openlabels(std::string_view heading, MakeRoom) {
    return labelsread(heading) ? FileRead::labels : FileRead::text;
}

/// What the first two characters of a file stand for. The opener finds the input behind the first line;
/// where it says text, the file goes to the text import as it is.
struct Opener {
    std::string_view begin;
    FileRead (*open)(std::string_view heading, MakeRoom makeroom);
};
constexpr Opener openers[] = {{"HI", openhistory}, {"LA", openlabels}, {"U4", openstore}, {"()", openlisted}};

FileRead dispatch(MakeRoom makeroom) {
    if (inputrest().empty()) return tellnodata();
    const std::string heading(nextline());
    const std::string begin = uppercase(heading.substr(0, 6));
    if (begin == "<HTML>") return openwrapped(makeroom);
    FileRead end = FileRead::text;
    for (const Opener& opener : openers)
        if (begin.starts_with(opener.begin)) end = opener.open(heading, makeroom);
    if (end != FileRead::text) return end;
    inputseek(0);
    return opentagged(makeroom);
}

} // namespace

std::string datafilename(const std::string& name) {
    if (!platform || platform->system().fileexists(name)) return name;
    const std::string extended = name + (session.progSide == lifeSide ? ".w" : ".v");
    return platform->system().fileexists(extended) ? extended : name;
}

FileRead datafiletake(std::string text, const std::string& path, MakeRoom makeroom) {
    if (auto restored = restoredlines(text)) {
        if (!path.empty()) writefile(path, *restored);
        text = std::move(*restored);
    }
    inputtext(std::move(text));
    const FileRead end = dispatch(makeroom);
    if (end != FileRead::text) inputclose();
    return end;
}

FileRead datafileopen(const std::string& name, MakeRoom makeroom) {
    const std::string path = datafilename(name);
    auto text = readfile(path);
    return text ? datafiletake(std::move(*text), path, makeroom) : tellnodata();
}

char sideoffile(const std::string& name) {
    constexpr std::size_t firstLines = 4096;
    constexpr int linesLooked = 10; // the first line of a wrapped file stands behind the head of the page
    const std::string start = readstart(datafilename(name), firstLines);
    std::string_view rest = start;
    for (int line = 0; line < linesLooked && !rest.empty(); ++line) {
        const auto first = firstlineof(takeline(rest));
        if (!first) continue;
        constexpr std::string_view sideMark = "-VX";
        const auto mark = first->suffix.find(sideMark);
        if (mark != std::string::npos) return *(first->suffix.c_str() + mark + sideMark.size());
    }
    return 0;
}
