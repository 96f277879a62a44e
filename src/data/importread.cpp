#include "data/importread.h"

#include <algorithm>
#include <cmath>

#include "data/cell.h"
#include "data/importwarranty.h"
#include "data/numbertext.h"
#include "data/textlines.h"
#include "session/options.h"

namespace {

using Items = std::span<const std::string_view>;

bool hasnumber(Items items) {
    return std::any_of(items.begin(), items.end(), [](std::string_view item) {
        if (item.starts_with('@')) item.remove_prefix(1);
        return beginsnumber(item) && item.find_first_of("0123456789") != std::string_view::npos;
    });
}

std::string joined(Items items) {
    std::string text;
    for (const std::string_view item : items) {
        if (item.empty()) continue;
        if (!text.empty()) text += ' ';
        text += item;
    }
    return text;
}

std::string unreadable(Items items) {
    constexpr std::size_t shown = 64;
    return ("? " + joined(items.first(std::min<std::size_t>(items.size(), 20)))).substr(0, shown);
}

/// The sets being filled, and what is counted along them.
class Sets {
public:
    Sets(ImportedData& target, const ImportOptions& chosen) : data(target), options(chosen) {}

    bool room(std::size_t set) const { return set < options.mostSets; }
    bool empty(std::size_t set) const { return set >= data.cells.size() || data.cells[set].empty(); }

    void add(std::size_t set, std::string cell) {
        if (!room(set)) return;
        if (data.cells.size() <= set) data.cells.resize(set + 1);
        if (data.cells[set].size() >= options.mostRows)
            ++data.beyond;
        else
            data.cells[set].push_back(std::move(cell));
    }
    void title(std::size_t set, std::string text) {
        if (!room(set)) return;
        if (data.titles.size() <= set) data.titles.resize(set + 1);
        data.titles[set] = std::move(text);
    }
    double& total(std::size_t set) { return at(totals, set); }
    double& unit(std::size_t set) { return at(units, set); }

private:
    ImportedData& data;
    const ImportOptions& options;
    std::vector<double> totals, units;

    static double& at(std::vector<double>& values, std::size_t set) {
        if (values.size() <= set) values.resize(set + 1);
        return values[set];
    }
};

// ---- one row as points ----

/// What the columns of a row say, before it is decided what points they are.
struct RowPoint {
    ImportPoint point;
    std::string occurred, suspended; ///< quantities of a row that holds both
    bool both = false;
    bool counted = false; ///< Y is events at X, to be summed up
    std::string_view setName;
};

std::string numbertext(double value) {
    std::string text;
    appendtrimmed(text, value);
    return text;
}

constexpr std::string_view foundFailed = "-3.3E+33"; ///< upper end: the event happened before X

/// Takes one column. False when it does not hold what the form wants there.
class Taker {
public:
    Taker(const ImportForm& wanted, const ImportOptions& chosen) : form(wanted), options(chosen) {}

    bool take(Items items, RowPoint& row) const {
        if (items.size() < form.needed) return false;
        std::size_t column = 0;
        for (const Item item : form.items) {
            if (item == Item::none) break;
            const std::string_view text = column < items.size() ? items[column] : std::string_view();
            if (item == Item::x && takeages(items, column, row)) {
                column += 2;
                continue;
            }
            if (!takeitem(item, text, row)) return false;
            ++column;
        }
        const auto filled = [](std::string_view item) { return !item.empty(); };
        return items.size() <= column
               || std::none_of(items.begin() + static_cast<std::ptrdiff_t>(column), items.end(), filled);
    }

private:
    const ImportForm& form;
    const ImportOptions& options;

    /// Two dates in the place of X: the days from the first to the second. A mark of suspension stands with
    /// the second.
    bool takeages(Items items, std::size_t column, RowPoint& row) const {
        if (column + 1 >= items.size()) return false;
        std::string_view end = items[column + 1];
        const bool suspended = takesuspension(end);
        const auto first = daynumber(items[column], options.dateOrder);
        const auto last = daynumber(end, options.dateOrder);
        if (!first || !last || *last < *first) return false;
        row.point.x = std::to_string(*last - *first);
        row.point.suspended = suspended;
        return true;
    }

    static bool takex(std::string_view text, RowPoint& row) {
        if (takesuspension(text)) row.point.suspended = true;
        std::string_view number = text;
        if (number.starts_with('<')) number.remove_prefix(1);
        while (number.starts_with(' ')) number.remove_prefix(1);
        if (!wholenumber(number)) return false;
        row.point.x = text.starts_with('+') ? text.substr(1) : text;
        return true;
    }

    static bool takemark(std::string_view text, RowPoint& row) {
        const auto suspended = suspensionmark(text);
        if (!suspended) return false;
        row.point.suspended = row.point.suspended || *suspended;
        return true;
    }

    /// A number that may be missing, and may not be negative, nor so large that it is no quantity but one of
    /// the numbers that stand for a suspension.
    static bool takecount(std::string_view text, std::string& value) {
        value = text;
        if (text.empty()) return true;
        const auto number = wholenumber(text);
        constexpr double sentinels = 2e29;
        return number && *number >= 0 && *number < sentinels;
    }

    bool takeupper(std::string_view text, RowPoint& row) const {
        ImportPoint& point = row.point;
        if (text.empty() && point.x.starts_with('<')) {
            point.x.erase(0, point.x.find_first_not_of("< "));
            point.z = foundFailed;
            return true;
        }
        if (text.empty()) {
            point.suspended = true;
            return !point.x.empty();
        }
        const auto upper = wholenumber(text);
        if (!upper || point.suspended) return false;
        if (point.x.empty()) {
            point.x = text;
            point.z = foundFailed;
            return true;
        }
        const auto lower = wholenumber(point.x);
        if (!lower || std::fabs(*lower) > *upper) return false;
        point.z = text;
        return true;
    }

    bool takeevent(std::string_view text, RowPoint& row) const {
        const auto value = wholenumber(text);
        if (!value || *value < 0) return false;
        row.point.y = text;
        row.point.suspended = row.point.suspended || *value == 0;
        return true;
    }

    bool takenumber(std::string_view text, std::string& value, bool needed) const {
        value = text;
        return text.empty() ? !needed : wholenumber(text).has_value();
    }

    bool takeitem(Item item, std::string_view text, RowPoint& row) const {
        ImportPoint& point = row.point;
        switch (item) {
        case Item::x:
            // The lower end of an interval may be missing: the event happened before the upper one.
            if (text.empty() && form.inputType == intv5) return true;
            return takex(text, row);
        case Item::y: return takenumber(text, point.y, form.needed > 1);
        case Item::third: return takenumber(text, point.z, true);
        case Item::quantity: return takecount(text, point.quantity);
        case Item::occurrences: return row.both = true, takecount(text, row.occurred);
        case Item::suspensions: return takecount(text, row.suspended);
        case Item::mark: return takemark(text, row);
        case Item::upper: return takeupper(text, row);
        case Item::set: return row.setName = text, true;
        case Item::label: return point.label = text, true;
        case Item::count: return row.counted = true, takecount(text, point.y);
        case Item::total: return takecount(text, point.y) && !text.empty();
        case Item::event: return takeevent(text, row);
        default: return true;
        }
    }
};

bool iszero(const std::string& number) { return !number.empty() && wholenumber(number).value_or(1) == 0; }

// ---- the forms ----

class Reader {
public:
    Reader(const ImportForm& wanted, const ImportOptions& chosen, ImportedData& target)
        : form(wanted),
          options(chosen),
          data(target),
          sets(target, chosen),
          taker(wanted, chosen) {}

    void read(std::string_view text) {
        std::vector<std::string> titles;
        for (TextRows rows(text); rows.next();) {
            if (rows.number == options.titleRow) {
                titles.assign(rows.items.begin(), rows.items.end());
                continue;
            }
            readrow(rows);
        }
        puttitles(titles);
    }

private:
    const ImportForm& form;
    const ImportOptions& options;
    ImportedData& data;
    Sets sets;
    Taker taker;
    std::size_t current = 0; ///< set being filled, where rows make the sets
    std::string lastSet;     ///< its name, where a column names it
    bool named = false;

    bool bycolumn() const { return form.newSet == NewSet::column; }
    std::size_t width() const { return std::max<std::size_t>(itemcount(form), 1); }

    void readrow(const TextRows& rows) {
        const Items items = rows.items;
        if (form.rows == Rows::cells) return readcells(items, rows.number);
        if (items.empty()) {
            if (form.newSet == NewSet::blankLine && !sets.empty(current)) ++current;
            return;
        }
        if (!bycolumn()) {
            if (sets.empty(current) && !hasnumber(items)
                && std::any_of(items.begin(), items.end(), isheading))
                return sets.title(current, joined(items));
            return readblock(items, current);
        }
        for (std::size_t at = 0, set = 0; at < items.size() && sets.room(set); at += width(), ++set) {
            const Items block = items.subspan(at, std::min(width(), items.size() - at));
            if (!joined(block).empty()) readblock(block, set);
        }
    }

    /// A cell takes the place of its row, so that "row 5" of a notice is line 5 of the text.
    void readcells(Items items, std::size_t row) {
        for (std::size_t set = 0; set < items.size() && sets.room(set); ++set) {
            if (items[set].empty()) continue;
            if (row > options.mostRows) {
                ++data.beyond;
                continue;
            }
            if (data.cells.size() <= set) data.cells.resize(set + 1);
            data.cells[set].resize(row - 1);
            data.cells[set].push_back(cellof(items[set]));
        }
    }

    /// A cell as it stands, but for "X+". One that the reader of cells would take a part of is no number, and
    /// neither is a date.
    std::string cellof(std::string_view item) const {
        if (looksdate(item)) return "? " + std::string(item);
        std::string_view x = item;
        if (!item.ends_with('+') || !takesuspension(x) || !wholenumber(x))
            return (goodcell(item) || !cellsplit(item).hasValue ? "" : "? ") + std::string(item);
        std::string cell;
        ImportPoint point;
        point.x = x;
        point.suspended = true;
        appendpoint(cell, point, options.suspendBy);
        return cell;
    }

    void readblock(Items items, std::size_t set) {
        switch (form.rows) {
        case Rows::unitRows: return readunit(items, set);
        case Rows::itemTimes: return readitemtimes(items, set);
        default: break;
        }
        RowPoint row;
        if (!taker.take(items, row)) return sets.add(set, unreadable(items));
        if (form.newSet == NewSet::changedSet) set = setof(row.setName);
        if (form.rows == Rows::events) return putevent(row.point, set, row.point.suspended ? 0 : 1);
        if (form.rows == Rows::units) return putunit(row.point, set);
        put(row, set);
    }

    /// The set of a name: the present one, or the next where the name has changed.
    std::size_t setof(std::string_view name) {
        if (named && name != lastSet && !sets.empty(current)) ++current;
        named = true;
        lastSet = name;
        if (!name.empty()) sets.title(current, std::string(name));
        return current;
    }

    void putpoint(const ImportPoint& point, std::size_t set) {
        std::string cell;
        appendpoint(cell, point, form.inputType == intv5 ? SuspendBy::sentinel : options.suspendBy);
        sets.add(set, std::move(cell));
    }

    void put(RowPoint& row, std::size_t set) {
        ImportPoint& point = row.point;
        if (row.counted) {
            const double events = wholenumber(point.y).value_or(point.suspended ? 0 : 1);
            return putevent(point, set, events);
        }
        const bool grouped = form.inputType >= prbt2 && form.inputType <= km4;
        if (!row.both) {
            // A quantity of nothing is no point; a sample of which none was affected is one.
            if (grouped || !iszero(point.quantity)) putpoint(point, set);
            return;
        }
        for (const bool suspended : {false, true}) {
            ImportPoint part = point;
            part.quantity = suspended ? row.suspended : row.occurred;
            part.suspended = suspended;
            if (!part.quantity.empty() && !iszero(part.quantity)) putpoint(part, set);
        }
    }

    /// Y is the number of events up to X; the end of the test is no event.
    void putevent(ImportPoint& point, std::size_t set, double events) {
        if (!sets.room(set)) return;
        point.y = numbertext(sets.total(set) += events);
        putpoint(point, set);
    }

    /// Ages of units one after the other; a suspension ends a unit that has no name of its own.
    void putunit(ImportPoint& point, std::size_t set) {
        if (!sets.room(set)) return;
        double& ended = sets.unit(set);
        const std::string unit = numbertext(ended + 1);
        if (point.suspended) ended += 1;
        if (point.y.empty()) point.y = point.suspended ? "0" : "1";
        if (point.label.empty()) point.label = unit;
        putpoint(point, set);
    }

    void readunit(Items items, std::size_t set) {
        for (const std::string_view age : items.subspan(1)) {
            if (age.empty()) continue;
            ImportPoint point;
            std::string_view x = age;
            point.suspended = takesuspension(x);
            if (!wholenumber(x)) {
                sets.add(set, unreadable(items));
                continue;
            }
            point.x = x;
            point.y = point.suspended ? "0" : "1";
            point.label = items[0];
            putpoint(point, set);
        }
    }

    void readitemtimes(Items items, std::size_t set) {
        ImportPoint point;
        double sum = 0;
        for (const std::string_view item : items) {
            std::string_view x = item;
            if (takesuspension(x)) point.suspended = true;
            const auto age = wholenumber(x);
            if (!age || *age < 0) return sets.add(set, unreadable(items));
            sum += *age;
        }
        point.x = numbertext(sum);
        putevent(point, set, point.suspended ? 0 : 1);
    }

    /// A heading of columns goes to the sets that the columns make; any other title to the first set.
    void puttitles(const std::vector<std::string>& titles) {
        const auto texts = std::vector<std::string_view>(titles.begin(), titles.end());
        const std::size_t columns = data.cells.size() * width();
        const bool heading =
            bycolumn() && titles.size() > 1 && titles.size() + width() > columns && titles.size() <= columns;
        if (!heading) {
            if (!titles.empty() && (data.titles.empty() || data.titles[0].empty()))
                sets.title(0, joined(texts));
            return;
        }
        for (std::size_t at = 0; at < texts.size(); at += width())
            sets.title(at / width(), joined(Items(texts).subspan(at, std::min(width(), texts.size() - at))));
    }
};

} // namespace

ImportedData importread(std::string_view normalised, const ImportForm& form, const ImportOptions& options) {
    ImportedData data;
    if (form.rows == Rows::nevada)
        readwarranty(normalised, form.inputType, options, data);
    else
        Reader(form, options, data).read(normalised);
    data.titles.resize(std::min(data.titles.size(), data.cells.size()));
    return data;
}
