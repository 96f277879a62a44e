#include "session/sampleload.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "data/samples.h"
#include "session/opendata.h"
#include "session/session.h"
#include "session/snapshots.h"
#include "session/undo.h"
#include "shell/prompts.h"

namespace {

using Items = std::vector<std::string>;

Items splitat(std::string_view text, char mark) {
    Items items;
    while (!text.empty()) {
        const auto end = std::min(text.find(mark), text.size());
        items.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return items;
}

struct Columns {
    std::vector<Items> cells;
    Items titles;
};

/// On the visual side two columns are the X and Y of a set; one alone stands over the number of its row, for
/// a value without a place has no X.
void takerow(const Items& row, bool paired, std::vector<Items>& sets) {
    if (!paired) {
        for (std::size_t i = 0; i < row.size(); ++i) sets[i].push_back(row[i]);
    } else if (row.size() == 1) {
        sets[0].push_back(std::to_string(sets[0].size() + 1) + "x" + row[0]);
    } else {
        for (std::size_t i = 0; i + 1 < row.size(); i += 2) sets[i / 2].push_back(row[i] + "x" + row[i + 1]);
    }
}

/// Names of the sets: those of the sample, with "X" and "Y" where its pairs come apart; else its title.
Items settitles(const Sample& sample, std::size_t sets) {
    const Items names = splitat(sample.sets, ',');
    if (!names.empty() && names.size() == sets) return names;
    Items titles;
    for (const std::string& name : names)
        for (const char* axis : {" X", " Y"}) titles.push_back(name + axis);
    if (titles.empty() || titles.size() != sets) titles.assign(1, sampletitle(sample));
    return titles;
}

Columns columnsof(const Sample& sample, Side side) {
    const bool paired = sample.form == SampleForm::columns && side == visualSide;
    const Items rows = splitat(sample.rows, ' ');
    const std::size_t items = rows.empty() ? 0 : splitat(rows.front(), ',').size();
    Columns columns;
    columns.cells.resize(paired ? (items + 1) / 2 : items);
    for (const std::string& row : rows) takerow(splitat(row, ','), paired, columns.cells);
    columns.titles = settitles(sample, columns.cells.size());
    return columns;
}

bool serves(const Sample& sample, Side side) {
    return sample.side == SampleSide::either || (sample.side == SampleSide::life) == (side == lifeSide);
}

void tellotherside(const Sample& sample) {
    const Keep keep{session.msg};
    compose(session.msg, Word::Sample, " ", AsTyped{sampletitle(sample)}, lineBreak, Word::Only, " ",
            Word::For, " ");
    if (sample.side == SampleSide::life)
        extend(session.msg, Word::Life, " ", Word::Analysis);
    else
        extend(session.msg, "X-Y ", Word::Plot);
    tellok();
}

} // namespace

bool sampleload(int number) {
    const Sample* const sample = sampledata(number);
    if (!sample) return false;
    const Side side = session.progSide == lifeSide ? lifeSide : visualSide;
    if (!serves(*sample, side)) {
        tellotherside(*sample);
        return false;
    }
    const History::Snapshot before = undosnapshot();
    if (!undoable(before)) return false;
    Columns columns = columnsof(*sample, side);
    session.gridCells = std::move(columns.cells);
    session.gridTitles = std::move(columns.titles);
    session.fileName = sampletitle(*sample);
    session.inputType = sample->inputType;
    forgetchoices();
    gridreplaced();
    undopush(before);
    return true;
}
