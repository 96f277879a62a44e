#include "support/reference.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <limits>
#include <sstream>

#include <gtest/gtest.h>

namespace {

std::vector<std::string> fields(std::string_view line) {
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    std::vector<std::string> found;
    for (;;) {
        const std::size_t comma = line.find(',');
        found.emplace_back(line.substr(0, comma));
        if (comma == std::string_view::npos) return found;
        line.remove_prefix(comma + 1);
    }
}

} // namespace

std::string_view ReferenceTable::text(std::size_t row, std::string_view column) const {
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (columns[i] == column) return rows.at(row).at(i);
    ADD_FAILURE() << name << " has no column " << column;
    return {};
}

double ReferenceTable::number(std::size_t row, std::string_view column) const {
    const std::string_view cell = text(row, column);
    double value = 0;
    const auto [end, problem] = std::from_chars(cell.data(), cell.data() + cell.size(), value);
    const bool whole = problem == std::errc{} && end == cell.data() + cell.size();
    return whole ? value : std::numeric_limits<double>::quiet_NaN();
}

ReferenceTable reference(std::string_view file) {
    ReferenceTable table;
    table.name = file;
    std::ifstream stream(std::string(VANEX_TESTS_DIR "/reference/") + table.name);
    for (std::string line; std::getline(stream, line);) {
        if (line.empty() || line[0] == '#') continue;
        if (table.columns.empty()) {
            table.columns = fields(line);
            continue;
        }
        table.rows.push_back(fields(line));
        EXPECT_EQ(table.rows.back().size(), table.columns.size()) << table.name << ": " << line;
    }
    EXPECT_FALSE(table.rows.empty()) << table.name << " is missing or empty";
    return table;
}

void ErrorSummary::add(double actual, double expected, std::string_view place) {
    double error = std::fabs(actual - expected);
    if (expected != 0) error /= std::fabs(expected);
    if (actual == expected) error = 0;
    if (std::isnan(error)) error = std::numeric_limits<double>::infinity();
    ++count;
    squares += error * error;
    if (error <= largest && count > 1) return;
    largest = error;
    std::ostringstream text;
    text.precision(17);
    text << place << ": " << actual << " for " << expected;
    worst = text.str();
}

double ErrorSummary::rms() const { return count ? std::sqrt(squares / static_cast<double>(count)) : 0; }

void ErrorSummary::expectwithin(double tolerance) const {
    std::ostringstream text;
    text << count << " values, largest relative error " << largest << ", rms " << rms() << ", worst at "
         << worst;
    EXPECT_GT(count, 0u);
    EXPECT_LE(largest, tolerance) << text.str();
    if (std::getenv("VANEX_SHOW_ERRORS")) std::cout << text.str() << '\n';
}
