// Positions, ranks and lines of published data against tables of independent origin. The cells and the
// plotted positions are single precision (6e-8 relative), which is why 1e-6 and not less is asked for.

#include <gtest/gtest.h>

#include <iterator>
#include <map>

#include "plot/transforms.h"
#include "support/families.h"
#include "support/lifefixture.h"
#include "support/reference.h"

namespace {

constexpr double tolerance = 1e-6;

using Key = std::string; ///< "dataset,family,method,quantity"

std::map<Key, double> readtable(const char* file) {
    std::map<Key, double> found;
    const ReferenceTable table = reference(file);
    for (std::size_t row = 0; row < table.rows.size(); ++row) {
        Key key;
        for (const char* column : {"dataset", "family", "method", "quantity"})
            (key += table.text(row, column)) += ',';
        key.pop_back();
        found[key] = table.number(row, "value");
    }
    return found;
}

struct Position {
    const char* name;
    RankMethod method;
};
constexpr Position positions[] = {{"benard", benardRank},
                                  {"binomial", binomialRank},
                                  {"mean", meanRank},
                                  {"hazen", hazenRank},
                                  {"blom", blomRank}};

struct DataSet {
    const char* name;
    const char* suffix; ///< "" units of their own, "_tiehigh" and "_insp" inspection input
    bool wholeRanks;
};
constexpr DataSet dataSets[] = {{"bearings", "", true},     {"bearings", "_tiehigh", true},
                                {"fans", "", false},        {"fans", "_tiehigh", false},
                                {"leukemia6mp", "", false}, {"leukemia6mp", "_tiehigh", false},
                                {"cracks", "_insp", true}};

class ReferenceData : public LifeTest, public testing::WithParamInterface<DataSet> {
protected:
    static const std::map<Key, double>& published() {
        static const auto table = [] {
            auto both = readtable("rankreg.csv");
            both.merge(readtable("ranks.csv"));
            return both;
        }();
        return table;
    }
    static const std::map<Key, double>& interpolated() {
        static const auto table = readtable("binomial_interpolated.csv");
        return table;
    }

    /// The table for a position: fractional binomial ranks are interpolated between whole ones by design.
    const std::map<Key, double>& table(RankMethod method) const {
        return method == binomialRank && !GetParam().wholeRanks ? interpolated() : published();
    }

    /// The data set as cells. An interval of inspection input stands at its end.
    static Cells cells() {
        const ReferenceTable data = reference(std::string("data_") + GetParam().name + ".csv");
        Cells found;
        for (std::size_t row = 0; row < data.rows.size(); ++row) {
            const bool interval = data.text(row, "type") == "intv";
            std::string cell = data.text(row, "type") == "susp" ? "-" : "";
            cell += data.text(row, interval ? "upper" : "value");
            (cell += "x0x") += data.text(row, "quantity");
            found.push_back(cell + "x0");
        }
        return found;
    }

    void run(const Position& rankPosition, const ReferenceFamily& family, bool swapped) {
        session.inputType = *GetParam().suffix ? insp1 : standard0;
        session.rankMethod = static_cast<float>(rankPosition.method);
        session.rrSwap = swapped ? 1.0f : 0.0f;
        choose(family.family, family.extreme);
        life(cells());
        EXPECT_TRUE(told().empty()) << told().front();
    }

    /// Calls compare(actual, key) for every quantity of the line; false from it when the table lacks the key.
    template <class Compare>
    void comparelines(const Position& rankPosition, Compare compare) {
        for (const ReferenceFamily& family : families)
            for (const bool swapped : {false, true}) {
                run(rankPosition, family, swapped);
                const std::string place = std::string(GetParam().name) + ',' + family.name
                                          + (swapped ? ",rry_" : ",rrx_") + rankPosition.name
                                          + GetParam().suffix + ',';
                const Fit line = fit();
                EXPECT_TRUE(line.fitted) << place;
                compare(line.eta, place + family.first);
                compare(line.beta, place + family.second);
                compare(line.r, place + "r");
                compare(session.correlation(1), place + "r2");
                const FamilyLine drawn{family.family, static_cast<int16_t>(family.extreme), line.eta,
                                       line.beta};
                for (const auto& [name, p] : {std::pair{"b1", 0.01}, {"b10", 0.1}, {"b50", 0.5}})
                    compare(quantileofp(drawn, p, family.family >= normal), place + name);
            }
    }
};

/// True for a line quantity of the table that belongs to this data set and position. A2 is no part of a line.
bool isline(const Key& key, const DataSet& data, const Position& rankPosition) {
    const std::string method = std::string(rankPosition.name) + data.suffix + ',';
    const bool thisMethod =
        key.find(",rrx_" + method) != Key::npos || key.find(",rry_" + method) != Key::npos;
    return key.starts_with(std::string(data.name) + ',') && thisMethod && !key.ends_with(",A2");
}

TEST_P(ReferenceData, GivesTheLinesOfTheTable) {
    for (const Position& rankPosition : positions) {
        ErrorSummary errors;
        const auto& expected = table(rankPosition.method);
        comparelines(rankPosition, [&](double actual, const Key& key) {
            const auto found = expected.find(key);
            if (found != expected.end()) errors.add(actual, found->second, key);
        });
        errors.expectwithin(tolerance);
        std::size_t rows = 0;
        for (const auto& row : expected) rows += isline(row.first, GetParam(), rankPosition);
        EXPECT_EQ(errors.count, rows) << rankPosition.name << ": rows of the table that were not compared";
        EXPECT_GE(rows, std::size(families) * 2 * 4); // two directions, two parameters, r and r2
    }
}

/// Visits the failure rows in order with the numbers first..last that their units have in the table.
template <class Visit>
void failurerows(bool inspection, Visit visit) {
    int unit = 0;
    double former = -1;
    for (int m = 1; m <= pointcount(1); ++m) {
        const int j = session.pointOrder(1, m);
        if (session.pointTypes(1, j) == Susp) continue;
        const double x = session.X(3, j);
        const int first = unit + 1;
        // One point of the table an inspection; a row at the same time goes on with it.
        if (inspection)
            unit += x != former;
        else
            unit += static_cast<int>(session.v1(1, j));
        const int next = m < pointcount(1) ? session.pointOrder(1, m + 1) : 0;
        const bool last =
            !next || session.pointTypes(1, next) == Susp || session.X(3, next) != session.X(3, j);
        former = x;
        if (!inspection)
            visit(j, first, unit);
        else if (last)
            visit(j, unit, unit);
    }
}

TEST_P(ReferenceData, GivesThePositionsAndRanksOfTheTable) {
    const std::string place = std::string(GetParam().name) + ",any,ranks" + GetParam().suffix + ',';
    for (const Position& rankPosition : positions) {
        run(rankPosition, families[0], false);
        const auto& expected = table(rankPosition.method);
        const auto mean = [&](const std::map<Key, double>& from, const std::string& quantity, int first,
                              int last) {
            double sum = 0;
            for (int unit = first; unit <= last; ++unit) {
                const auto found = from.find(place + quantity + '_' + std::to_string(unit));
                if (found == from.end())
                    ADD_FAILURE() << "no row " << place << quantity << '_' << unit;
                else
                    sum += found->second;
            }
            return sum / (last - first + 1);
        };
        ErrorSummary errors;
        int units = 0;
        failurerows(session.inputType == insp1, [&](int j, int first, int last) {
            const std::string where = place + rankPosition.name + ' ' + std::to_string(first);
            errors.add(position(j), mean(expected, rankPosition.name, first, last), where);
            errors.add(rank(j), mean(published(), "adjrank", first, last), "rank of " + where);
            errors.add(session.X(3, j), mean(published(), "x", first, last), "x of " + where);
            units = last;
        });
        errors.expectwithin(tolerance);
        EXPECT_EQ(published().count(place + "adjrank_" + std::to_string(units)), 1u);
        EXPECT_EQ(published().count(place + "adjrank_" + std::to_string(units + 1)), 0u) << "rows left over";
    }
}

/// How far the interpolated binomial ranks are from medians at real ranks. The median as a function of the
/// rank is nearly straight between whole ranks from 1 up, so the lines stay within a tenth of a percent.
TEST_P(ReferenceData, InterpolatedBinomialRanksStayNearTheMediansAtRealRanks) {
    ErrorSummary errors;
    comparelines(positions[1], [&](double actual, const Key& key) {
        const auto found = published().find(key);
        const bool parameter = key.ends_with(",eta") || key.ends_with(",beta");
        if (parameter && found != published().end()) errors.add(actual, found->second, key);
    });
    errors.expectwithin(1e-3);
}

INSTANTIATE_TEST_SUITE_P(Published, ReferenceData, testing::ValuesIn(dataSets), [](const auto& named) {
    return std::string(named.param.name) + (*named.param.suffix ? named.param.suffix + 1 : "units");
});

} // namespace
