#include "data/plaintext.h"

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

std::string_view trimmed(std::string_view text) {
    const auto start = text.find_first_not_of(" \t\r");
    return start == std::string_view::npos ? std::string_view()
                                           : text.substr(start, text.find_last_not_of(" \t\r") - start + 1);
}

bool startsnumber(std::string_view text) {
    return !text.empty() && std::string_view("0123456789+-.<>").find(text.front()) != std::string_view::npos;
}

/// Takes the next cell off a line that is cut at `marks`.
std::string_view nextcell(std::string_view& line, std::string_view marks) {
    const auto end = line.find_first_of(marks);
    std::string_view cell = line.substr(0, end);
    line = end == std::string_view::npos ? std::string_view() : line.substr(end + 1);
    return cell;
}

/// Takes the next cell off a line cut at blanks: a label reaches to the next text that begins like a number.
std::string_view nextword(std::string_view& line) {
    const std::string_view start = line;
    std::string_view cell = nextcell(line, " ;");
    if (cell.find('_') == std::string_view::npos) return cell;
    while (!line.empty()) {
        std::string_view rest = line;
        const std::string_view next = nextcell(rest, " ;");
        const bool labelEnds = start[static_cast<std::size_t>(line.data() - start.data()) - 1] == ';';
        if (labelEnds || startsnumber(next)) break;
        line = rest;
        cell = start.substr(0, static_cast<std::size_t>(next.data() + next.size() - start.data()));
    }
    return cell;
}

/// A cell takes the place of its line in the column, so that "row 5" of a notice is line 5 of the file.
void put(CellColumns& columns, std::size_t column, std::size_t line, std::string_view cell) {
    cell = trimmed(cell);
    if (cell.ends_with(',')) cell.remove_suffix(1);
    if (cell.empty()) return;
    if (columns.size() <= column) columns.resize(column + 1);
    columns[column].resize(line);
    columns[column].emplace_back(cell);
}

void readline(std::string_view line, std::size_t number, CellColumns& columns, std::size_t maxColumns) {
    const bool tabbed = line.find('\t') != std::string_view::npos;
    for (std::size_t column = 0; column < maxColumns; ++column) {
        if (!tabbed) line = trimmed(line);
        if (line.empty()) return;
        put(columns, column, number, tabbed ? nextcell(line, "\t") : nextword(line));
    }
}

} // namespace

CellColumns readplaintext(std::string_view text, std::size_t maxColumns) {
    CellColumns columns;
    if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
    for (std::size_t number = 0; !text.empty(); ++number) {
        const std::string_view line = nextcell(text, "\n");
        if (const auto content = trimmed(line); content.empty() || content.front() == '#') continue;
        readline(line, number, columns, maxColumns);
    }
    return columns;
}
