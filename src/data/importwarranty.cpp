#include "data/importwarranty.h"

#include <algorithm>

#include "data/numbertext.h"
#include "session/options.h"

namespace {

struct Period {
    double produced = 0;
    std::vector<double> returned;
    std::string shown; ///< for a notice
    bool readable = true;
};

struct Table {
    std::vector<std::vector<std::string_view>> rows; ///< items, of the text
    std::vector<Period> periods;
    std::string title;
    std::size_t columns = 0;
};

std::string numbertext(double value) {
    std::string text;
    appendtrimmed(text, value);
    return text;
}

/// An empty count is none.
std::optional<double> countof(std::string_view text) {
    if (text.empty()) return 0;
    const auto value = wholenumber(text);
    return value && *value >= 0 ? value : std::nullopt;
}

/// True for rows that begin with the years of their periods, one after the other: no quantities go so.
bool namedbyyears(const std::vector<std::vector<std::string_view>>& rows) {
    constexpr double first = 1900, last = 2100;
    double before = 0;
    for (const auto& row : rows) {
        const double year = row[0].size() == 4 ? wholenumber(row[0]).value_or(0) : 0;
        if (year < first || year > last || (before > 0 && year != before + 1)) return false;
        before = year;
    }
    return rows.size() > 1;
}

/// A period by its items; `named` when the first of them is its name.
Period periodof(std::span<const std::string_view> items, bool named) {
    Period period;
    period.shown = "?";
    for (const std::string_view item : items.first(std::min<std::size_t>(items.size(), 20)))
        if (!item.empty()) (period.shown += ' ') += item;
    if (!items.empty() && (named || !wholenumber(items[0]))) items = items.subspan(1);
    const auto produced = items.empty() || items[0].empty() ? std::nullopt : countof(items[0]);
    period.readable = produced.has_value();
    period.produced = produced.value_or(0);
    for (std::size_t j = 1; j < items.size(); ++j) {
        const auto count = countof(items[j]);
        period.readable = period.readable && count;
        period.returned.push_back(count.value_or(0));
    }
    return period;
}

/// Row i has m - i + 1 columns, from m down to at least one.
bool byage(const Table& table) {
    if (table.periods.size() < 2) return false;
    for (std::size_t i = 0; i < table.periods.size(); ++i)
        if (table.periods[i].returned.size() + i != table.columns) return false;
    return true;
}

/// Returns and suspensions by age, from 1.
struct Ages {
    std::vector<double> returned, suspended;
};

/// Adds a row whose first observed column is `first`. False when its counts cannot be.
bool addperiod(const Period& period, std::size_t first, std::size_t end, Ages& ages) {
    const auto& counts = period.returned;
    double sum = 0;
    for (std::size_t j = 0; j < counts.size(); ++j) {
        if (j < first && counts[j] > 0) return false;
        sum += counts[j];
    }
    if (!period.readable || sum > period.produced) return false;
    if (first >= end) return true;
    for (std::size_t j = first; j < counts.size(); ++j) ages.returned[j - first] += counts[j];
    ages.suspended[end - first - 1] += period.produced - sum;
    return true;
}

void putages(const Ages& ages, std::int16_t inputType, SuspendBy suspendBy, std::vector<std::string>& cells) {
    const bool interval = inputType == intv5;
    const auto put = [&](std::size_t age, double quantity, bool suspended) {
        if (!(quantity > 0)) return;
        ImportPoint point;
        point.quantity = numbertext(quantity);
        point.suspended = suspended;
        const bool between = interval && !suspended && age > 1;
        point.x = numbertext(static_cast<double>(between ? age - 1 : age));
        if (between) point.z = numbertext(static_cast<double>(age));
        if (interval && !suspended && age == 1) point.z = "-3.3E+33"; // at any time before 1
        appendpoint(cells.emplace_back(), point, interval ? SuspendBy::sentinel : suspendBy);
    };
    for (std::size_t i = 0; i < ages.returned.size(); ++i) {
        put(i + 1, ages.returned[i], false);
        put(i + 1, ages.suspended[i], true);
    }
}

void readperiods(Table& table) {
    const bool named = namedbyyears(table.rows);
    for (const auto& row : table.rows) {
        table.periods.push_back(periodof(row, named));
        table.columns = std::max(table.columns, table.periods.back().returned.size());
    }
}

void puttable(Table& table, std::int16_t inputType, const ImportOptions& options, ImportedData& data) {
    readperiods(table);
    if (table.periods.empty() || data.cells.size() >= options.mostSets) return;
    std::vector<std::string> cells;
    Ages ages{std::vector<double>(table.columns), std::vector<double>(table.columns)};
    const bool aged = byage(table);
    for (std::size_t i = 0; i < table.periods.size(); ++i) {
        const Period& period = table.periods[i];
        const std::size_t end = aged ? period.returned.size() : table.columns;
        if (!addperiod(period, aged ? 0 : i, end, ages)) cells.push_back(period.shown);
    }
    putages(ages, inputType, options.suspendBy, cells);
    if (cells.empty()) return;
    data.cells.push_back(std::move(cells));
    data.titles.resize(data.cells.size());
    data.titles.back() = table.title;
}

} // namespace

void readwarranty(std::string_view normalised, std::int16_t inputType, const ImportOptions& options,
                  ImportedData& data) {
    Table table;
    for (TextRows rows(normalised); rows.next();) {
        if (rows.items.empty()) {
            puttable(table, inputType, options, data);
            table = {};
        } else if (rows.number == options.titleRow) {
            table.title = rows.items.size() == 1 ? rows.items[0] : std::string_view();
        } else {
            table.rows.push_back(rows.items);
        }
    }
    puttable(table, inputType, options, data);
}
