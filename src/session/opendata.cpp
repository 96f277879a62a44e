#include "session/opendata.h"

#include <algorithm>
#include <optional>

#include "data/textimport.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/platform.h"
#include "session/session.h"

namespace {

std::optional<std::string> textof(const std::string& name) {
    if (name == "CLIPBOARD") return platform ? platform->clipboard().text() : std::nullopt;
    if (auto text = readfile(name)) return text;
    return folderof(name).empty() ? readfile(session.dataPath + name) : std::nullopt;
}

} // namespace

std::size_t longestcolumn() {
    std::size_t longest = 0;
    for (const auto& column : session.gridCells) longest = std::max(longest, column.size());
    return longest;
}

DataRead opendata(const std::string& name, bool further) {
    auto text = textof(name);
    if (!text) return DataRead::unreadable;
    session.msg = std::move(*text);
    const TextRead outcome = textimport(TextFrom::text, further);
    if (outcome == TextRead::empty) return DataRead::empty;
    if (outcome == TextRead::refused) return DataRead::refused;
    if (!further) session.fileName = name == "-" || name == "CLIPBOARD" ? std::string() : name;
    return DataRead::read;
}

std::string dataastext() {
    std::string text;
    const auto& columns = session.gridCells;
    // A single column of plain cells needs no tab; a label with blanks in it does.
    bool tabbed = columns.size() > 1;
    for (const auto& column : columns)
        for (const std::string& cell : column)
            tabbed = tabbed || cell.find_first_of(" ;,") != std::string::npos;
    for (std::size_t row = 0; row < longestcolumn(); ++row) {
        for (std::size_t set = 0; set < columns.size(); ++set) {
            if (set > 0) text += '\t';
            if (row < columns[set].size()) text += columns[set][row];
        }
        if (tabbed && columns.size() == 1) text += '\t';
        text += '\n';
    }
    return text;
}
