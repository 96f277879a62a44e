#include "session/usagetables.h"

#include <string>

#include "session/findfile.h"
#include "session/opendata.h"
#include "session/session.h"
#include "session/snapshots.h"
#include "shell/prompts.h"

namespace {

constexpr UsageTable tables[] = {
    {1, "Class 7", "AIAGCLS7.HST"}, {2, "Construction", "AIAGCONS.HST"}, {3, "Linehaul", "AIAGHAUL.HST"},
    {4, "Logging", "AIAGLOGG.HST"}, {5, "P & D", "AIAGPAND.HST"},        {6, "Refuse", "AIAGREFS.HST"},
};

/// Opens the table whose file stands in msg. Its form is known: nobody is asked about its cells.
bool opentable() {
    const Keep keep{session.noPrompt};
    session.noPrompt = 1;
    return opendata(session.msg) == DataRead::read;
}

} // namespace

std::span<const UsageTable> usagetables() { return tables; }

bool usageopen(int choice) {
    if (choice < 1 || choice > static_cast<int>(std::size(tables))) return false;
    const UsageTable& table = tables[choice - 1];
    const Keep keep{session.msg, session.formatWanted};
    session.formatWanted = session.progSide == lifeSide ? "A" : "A3"; // cells, whatever was used last
    session.msg = table.file;
    if (!findfilequietly() || !opentable()) {
        compose(session.msg, Word::Cannot, " ", Word::Open, " ", Word::File, ": ", AsTyped{table.file});
        tellok();
        return false;
    }
    session.gridTitles.assign(1, std::string("AIAG ") + table.label);
    session.usageChoice = static_cast<int16_t>(choice);
    gridreplaced();
    return true;
}

void usagemenu() {
    if (!session.scriptRequest.empty()) return; // nobody chooses there, and data must not be replaced unasked
    const Keep keep{session.msg, session.menuTitle};
    menuclear();
    for (const UsageTable& table : tables)
        compose(session.menuItem[table.choice], table.choice, "...AIAG ", table.label);
    const int exitItem = static_cast<int>(std::size(tables)) + 1;
    compose(session.menuItem[exitItem], "X...", Word::Exit);
    session.menuCount = static_cast<float>(exitItem);
    session.menuChoice = session.usageChoice > 0 ? session.usageChoice : static_cast<float>(exitItem);
    session.menuTitle = "Product Information / Benchmarking";
    session.msg = "AIAG ...";
    menushowgo();
    usageopen(static_cast<int>(session.menuChoice));
}
