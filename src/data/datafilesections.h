#pragma once

#include <span>
#include <string>
#include <string_view>

/// The sections of a data file behind its set blocks: a tag line, a count line, the items. Reader, writer
/// and docs/files.md all follow the one table.

/// One line of a section, for group g from 1: a set, a line above the sets, or a place in a list.
struct FileItem {
    void (*write)(std::string& line, int g);
    void (*read)(std::string_view line, int g);
};

/// A list of numbers that each group of a section has: a line with its count, then a line a number.
struct FileList {
    int (*size)(int g);
    float (*get)(int g, int j);
    void (*put)(int g, int j, float value); ///< j = 0: the list is begun anew
};

struct FileSection {
    std::string_view tag;
    std::span<const FileItem> items; ///< lines of one group
    int (*groups)();                 ///< groups written; a fixed table takes as many
    int (*most)() = nullptr;         ///< groups taken of a list that grows; null: not more than are written
    bool (*written)() = nullptr;     ///< null: always
    bool countsGroups = false;       ///< the count line counts groups, not lines
    bool readerOnly = false;         ///< an older form that is not written any more
    bool ofSets = false;             ///< belongs to the data, so waits until these are taken over
    const FileList* list = nullptr;  ///< behind the items of all groups
    void (*begin)() = nullptr;       ///< empties a list that grows
    void (*writeAll)() = nullptr;    ///< a section of its own shape: everything behind the tag line
    bool (*readAll)() = nullptr;     ///< and its reader; false, with u set, when the read must end
};

/// Sections in the order of the file.
std::span<const FileSection> filesections();

/// Number of the section with this tag, from `first` on; the older forms stand anywhere. -1 when the line is
/// none.
int sectionat(std::string_view line, int first);

/// True when the file goes on with a later section, or ends, just behind so many lines. The place stays.
bool countholds(int number, double lines);

/// The next line of a section. False, and the line stays, at the tag of a later section and at the end.
bool sectionline(int number, std::string_view& line);

/// Writes a section, tag and all, unless its condition keeps it out.
void writesection(const FileSection& section);

/// Reads the lines behind a tag line: what is known is stored, what goes beyond is passed over. Stops at the
/// tag of a later section, however large the count. False, with u set, when the read must end.
bool readsection(int number);
