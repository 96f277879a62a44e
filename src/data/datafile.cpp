#include "data/datafile.h"

#include <algorithm>
#include <new>
#include <vector>

#include "data/datafileoptions.h"
#include "data/datafilesections.h"
#include "data/datafilesets.h"
#include "data/filelines.h"
#include "data/filevalue.h"
#include "data/numbertext.h"
#include "session/session.h"
#include "shell/prompts.h"
#include "shell/words.h"

namespace {

constexpr float taggedLevel = 2;   ///< versions up to it are read whatever the session's level
constexpr float sessionTagged = 3; ///< a session of this level reads every version
constexpr std::string_view life = "-VXW", visual = "-VXV";

template <class... Parts>
void note(const Parts&... parts) {
    std::string text;
    compose(text, parts...);
    if (!session.fileNotes.empty()) session.fileNotes += '\n';
    session.fileNotes += text;
}

template <class... Parts>
void tell(const Parts&... parts) {
    compose(session.msg, parts...);
    session.menuTitle.clear();
    tellok();
}

FileRead badfile(float mark) {
    tell(Word::Bad, " ", Word::Input, " ", Word::File);
    session.u = mark;
    return FileRead::bad;
}

/// Version and check value of line 2. False when it states no check value.
bool versionread(double& check) {
    const std::string_view line = nextline();
    const auto colon = line.find(':');
    session.fileLevel = static_cast<float>(readentry(line.substr(0, colon)).value);
    if (colon == std::string_view::npos) return false;
    const NumberText stored = readentry(line.substr(colon + 1));
    check = stored.value;
    return stored.readable;
}

/// A walk over the sections behind the set blocks. What belongs to the sets waits until the option list has
/// been read: until then the read may end, and the session's own data stand.
class SectionWalk {
public:
    explicit SectionWalk(FileData& fileData) : data(fileData) {}

    FileRead run() {
        for (;;) {
            const std::string_view line = nextline();
            if (session.eofFlag == 1) break;
            const int number = sectionat(line, next);
            if (number < 0 && !taken && line.starts_with(programTag)) return badfile(listAborted);
            if (number < 0) continue;
            if (!enter(number)) return failure;
        }
        return taken || take() ? FileRead::read : failure;
    }

private:
    /// Reads one section, or keeps its place until the data are in.
    bool enter(int number) {
        const FileSection& section = filesections()[static_cast<std::size_t>(number)];
        const bool options = section.tag == programTag;
        if (!section.readerOnly) next = number + 1;
        if (!taken && section.ofSets && (number < programNumber() || section.readerOnly)) {
            waiting.push_back({number, inputplace()});
            return true;
        }
        if (!taken && number > programNumber() && !take()) return false;
        if (!readsection(number)) {
            failure = badfile(session.u);
            return false;
        }
        return !options || take();
    }

    /// Takes the data over, and reads what waited for them.
    bool take() {
        taken = true;
        if (!setsput(data)) {
            failure = badfile(readAborted);
            return false;
        }
        const std::size_t place = inputplace();
        for (const Waiting& section : waiting) {
            inputseek(section.place);
            readsection(section.number);
        }
        inputseek(place);
        return true;
    }

    static int programNumber() {
        static const int number = sectionat(programTag, 0);
        return number;
    }

    struct Waiting {
        int number;
        std::size_t place;
    };
    FileData& data;
    std::vector<Waiting> waiting;
    int next = 0;
    bool taken = false;
    FileRead failure = FileRead::bad;
};

/// A title with the path of another system in it.
void turnslashes(std::string& title) {
    const auto slash = title.find('/');
    if (slash == std::string::npos || title.find('\\') != std::string::npos) return;
    if (title.find(':', slash) == std::string::npos) return;
    for (char& c : title)
        if (c == '/') c = '\\';
}

void checklines() {
    for (int line = 1; line <= static_cast<int>(session.maxLines); ++line)
        if (session.lineVisible(line) != 0) session.lineVisible(line) = 1;
}

/// The override of the sample size is in force where there is a set that it can be for.
void checkoverride() {
    std::string& kept = session.programKept[64];
    if (session.progSide == lifeSide && setcount() == 0 && readentry(kept).value != 0) kept = "0";
}

/// Availability of the session, as the option list keeps it.
double availability() { return readentry(session.programKept[35]).value; }

/// Tells of an availability that the file puts in place of the session's.
void noteavailability(double before) {
    const double now = availability();
    if (before == 0 || now == before) return;
    note(Word::File, " AU% =", now, " (AU%) ... AU% =", before, " ", AsTyped{session.fileName});
}

/// What is left to settle once everything has been read, in this order.
void endread(const FileData& data, bool checked, double check, double availabilityBefore) {
    if (data.dropped > 0) note(Word::Set, " ", Word::Quantity, " ", Word::Total, " ... ", data.dropped);
    checklines();
    for (int k = 1; k <= setcount(); ++k) {
        turnslashes(session.rowTitle(static_cast<int>(rowofset(static_cast<float>(k)))));
        if (static_cast<std::size_t>(k) <= session.gridTitles.size())
            turnslashes(session.gridTitles[static_cast<std::size_t>(k - 1)]);
    }
    checkoverride();
    noteavailability(availabilityBefore);
    if (checked && check != data.check)
        note(Word::Data, " ", Word::Sum, " ", Word::Difference, " (", check, " / ", data.check, ")");
    if (data.unread > 0) note(Word::Bad, " ", Word::Data, " (", data.unread, ")");
    if (session.fileNotes.empty() || session.quietRead != 0) return;
    session.msg = session.fileNotes;
    session.menuTitle.clear();
    tellok();
}

bool strideserves() {
    if (session.sg > 0) return true;
    tell("sg<=0");
    return false;
}

void noticefile() {
    session.fileSide = session.progSide;
    if (session.fileSuffix.starts_with(life)) session.fileSide = lifeSide;
    if (session.fileSuffix.starts_with(visual)) session.fileSide = visualSide;
    session.fileConvert = 0;
    session.fileNotes.clear();
}

/// Confidence rows are written when a set has them, bounds are asked for and the side has the rows.
int16_t confidencerows() {
    if (session.progSide != lifeSide || (session.confLow == 0 && session.confHigh == 0)) return 0;
    for (int k = 1; k <= setcount(); ++k) {
        const int row = static_cast<int>(rowofset(static_cast<float>(k)));
        if (session.sg == 3 && session.n(row - 1) + session.n(row - 2) > 0) return 9;
    }
    return 0;
}

FileRead readdata() {
    double check = 0;
    const bool checked = versionread(check);
    if (session.eofFlag == 1) return FileRead::nodata;
    if (session.fileLevel > taggedLevel && session.sessionLevel < sessionTagged) return FileRead::oldForm;
    FileData data;
    if (!setsread(data)) return badfile(readAborted);
    noticepoints(data);
    const double availabilityBefore = availability();
    SectionWalk walk(data);
    const FileRead result = walk.run();
    if (result != FileRead::read) return result;
    endread(data, checked, check, availabilityBefore);
    session.u = 0;
    return result;
}

} // namespace

FileRead datafileread() {
    if (!strideserves()) return FileRead::bad;
    noticefile();
    try {
        return readdata();
    } catch (const std::bad_alloc&) {
        return badfile(readAborted);
    }
}

bool datafilewrite() {
    if (!strideserves()) return false;
    const Keep keep{session.ifylcnf,     session.fileSide,      session.fileRows,        session.fileStride,
                    session.fileHasData, session.fileDiscovery, session.decimalSeparator};
    // Line 1 names a symbol of one character; a point is understood everywhere.
    if (session.decimalSeparator != ",") session.decimalSeparator = ".";
    session.ifylcnf = confidencerows();
    if (!(rowstep() > 0)) {
        tell("sg-2*ifylcnf%/9<=0");
        return false;
    }
    session.fileSide = session.progSide;
    session.fileRows = session.lastRow;
    session.fileStride = session.sg;
    noticepoints();
    std::string line = "WINVANEX_DATA2";
    line += session.progSide == lifeSide ? life : visual;
    ((line += '[') += session.decimalSeparator) += ']';
    linewrite(line);
    appendvalue(line.assign({}), session.sessionLevel);
    line += ':';
    appendvalue(line, checkvalue());
    linewrite(line);
    setswrite();
    for (const FileSection& section : filesections()) writesection(section);
    return true;
}

std::size_t longestset(std::string_view text) {
    const char end = text.find('\n') == std::string_view::npos ? '\r' : '\n';
    constexpr std::string_view paragraph = "<P>";
    std::size_t longest = 0;
    bool within = false;
    for (std::size_t place = 0; place < text.size();) {
        const auto take = [&] {
            const std::size_t stop = std::min(text.find(end, place), text.size());
            std::string_view line = text.substr(place, stop - place);
            place = std::min(stop + 1, text.size());
            if (line.starts_with(paragraph)) line.remove_prefix(paragraph.size());
            return line;
        };
        if (!take().starts_with("SET")) {
            if (within) break;
            continue;
        }
        within = true;
        const double count = readnumber(take()).value;
        std::size_t points = 0;
        for (; static_cast<double>(points) < count && place < text.size(); ++points) take();
        longest = std::max(longest, points);
    }
    return longest;
}
