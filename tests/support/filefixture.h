#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "data/datafile.h"
#include "data/filelines.h"
#include "data/numbertext.h"
#include "session/session.h"
#include "shell/grid.h"
#include "support/freshsession.h"
#include "support/textsink.h"

/// Reading and writing of data files without a disk, for tests.

/// The session as a data file.
inline std::string written() {
    MemorySink sink;
    sink.open("");
    outputbegin(sink);
    EXPECT_TRUE(datafilewrite());
    EXPECT_TRUE(outputend());
    return sink.text;
}

/// Reads a data file, line 1 included, as the program opens it.
inline FileRead readfiletext(const std::string& text) {
    inputtext(text);
    std::string line(nextline());
    session.fileDecimal = ".";
    if (const auto open = line.find('['); open != std::string::npos && line.substr(open + 2, 1) == "]") {
        session.fileDecimal = line.substr(open + 1, 1);
        line.erase(open);
    }
    const auto mark = line.find("WINVANEX_DATA2");
    session.fileSuffix = mark == std::string::npos ? std::string() : line.substr(mark + 14);
    const FileRead result = datafileread();
    inputclose();
    return result;
}

inline std::vector<std::string> linesof(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const auto end = std::min(text.find("\r\n", at), text.size());
        lines.push_back(text.substr(at, end - at));
        at = end + 2;
    }
    return lines;
}

inline std::string textof(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) (text += line) += "\r\n";
    return text;
}

/// The place of a tag line; fails the test where there is none.
inline std::size_t lineoftag(const std::vector<std::string>& lines, std::string_view tag) {
    const auto at = std::find(lines.begin(), lines.end(), tag);
    EXPECT_NE(at, lines.end()) << "no " << tag;
    return static_cast<std::size_t>(at - lines.begin());
}

/// Line 1 and 2, dimensions of the life side for so many sets, and the set blocks.
inline std::string lifehead(int sets, const std::string& blocks, const std::string& version = "3:0") {
    return "WINVANEX_DATA2-VXW[.]\r\n" + version
           + "\r\nDIMENSIONS\r\n8\r\n2\r\n3\r\n0\r\n24\r\n1500\r\n20\r\n8\r\n" + std::to_string(3 * sets)
           + "\r\n" + blocks;
}
inline std::string visualhead(int sets, const std::string& blocks, const std::string& version = "3:0") {
    return "WINVANEX_DATA2-VXV[.]\r\n" + version
           + "\r\nDIMENSIONS\r\n8\r\n2\r\n1\r\n0\r\n24\r\n500\r\n36\r\n24\r\n" + std::to_string(sets) + "\r\n"
           + blocks;
}
/// An option list of so many positions, all "0", with some of them set.
inline std::string optionlist(int count, const std::vector<std::pair<int, std::string>>& given) {
    std::string text = "PROGRAM_SPECIFIC\r\n" + std::to_string(count) + "\r\n";
    for (int position = 1; position <= count; ++position) {
        std::string line = position == 1 ? std::to_string(session.progSide) : "0";
        for (const auto& [at, value] : given)
            if (at == position) line = value;
        (text += line) += "\r\n";
    }
    return text;
}

/// Puts cells into the grid and reads them as the cycle does.
inline void gridread(const std::vector<std::vector<std::string>>& sets) {
    session.gridCells = sets;
    for (int k = 1; k <= static_cast<int>(sets.size()); ++k) gridget(rowofset(static_cast<float>(k)));
    session.lastRow = rowofset(static_cast<float>(sets.size()));
}
