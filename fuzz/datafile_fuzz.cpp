// Any bytes behind the first line of a data file: the data of the session are the file's or those from
// before, and what was read is written and read again as the same bytes.

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "data/datafile.h"
#include "data/filelines.h"
#include "platform/headless/headless.h"
#include "session/session.h"

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

class KeptText : public TextSink {
public:
    std::string text;
    bool open(const std::string&) override { return true; }
    bool write(std::string_view part) override { return text += part, true; }
    bool commit() override { return true; }
    void drop() override {}
};

void freshsession(Side side) {
    session = Session{};
    chooseside(side);
    allocatearrays();
    session.gridCells = {{"7"}};
    session.lastRow = session.sg;
}

FileRead readtext(const std::string& text) {
    inputtext(text);
    nextline();
    session.fileSuffix = session.progSide == lifeSide ? "-VXW" : "-VXV";
    return datafileread();
}

std::string writtentext() {
    KeptText sink;
    outputbegin(sink);
    require(datafilewrite());
    require(outputend());
    return sink.text;
}

/// What is written is read again as the same session.
void survives() {
    const std::string text = writtentext();
    freshsession(static_cast<Side>(session.progSide));
    require(readtext(text) == FileRead::read);
    require(writtentext() == text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static HeadlessPlatform desktop;
    platform = &desktop;
    desktop.messages.clear();
    if (size == 0) return 0;
    const Side side = data[0] & 1 ? lifeSide : visualSide;
    const std::string text = "first\n" + std::string(reinterpret_cast<const char*>(data) + 1, size - 1);
    freshsession(side);
    require(longestset(text) <= size);
    session.htmlMode = data[0] & 2 ? wrapperReading : plainLines;
    const FileRead result = readtext(text);
    session.htmlMode = plainLines;
    if (result != FileRead::read) {
        require(session.gridCells == std::vector<std::vector<std::string>>{{"7"}});
        return 0;
    }
    require(session.gridCells.size() == static_cast<std::size_t>(setcount()));
    survives();
    return 0;
}
