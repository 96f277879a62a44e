#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/lifeterms.h"
#include "support/reference.h"

/// The published life data of tests/reference and the results of others for them.

inline constexpr const char* dataSets[] = {"bearings", "cracks", "fans", "leukemia6mp"};

/// Results by "dataset,family,method,quantity,".
inline const std::map<std::string, double>& published() {
    static const auto table = [] {
        std::map<std::string, double> found;
        const ReferenceTable rows = reference("mle.csv");
        for (std::size_t row = 0; row < rows.rows.size(); ++row) {
            std::string key;
            for (const char* column : {"dataset", "family", "method", "quantity"})
                (key += rows.text(row, column)) += ',';
            found[key] = rows.number(row, "value");
        }
        return found;
    }();
    return table;
}

inline Known knownof(std::string_view type) {
    return type == "susp"   ? Known::above
           : type == "disc" ? Known::below
           : type == "intv" ? Known::between
                            : Known::exactly;
}

/// The points of a data set as printed.
inline std::vector<LifeTerm> publishedterms(const std::string& dataSet) {
    const ReferenceTable data = reference("data_" + dataSet + ".csv");
    std::vector<LifeTerm> terms;
    for (std::size_t row = 0; row < data.rows.size(); ++row) {
        const Known type = knownof(data.text(row, "type"));
        const double high = type == Known::between ? data.number(row, "upper") : 0;
        terms.push_back({type, data.number(row, "quantity"), data.number(row, "value"), high});
    }
    return terms;
}

/// The same on the plot scale of a line.
inline std::vector<LifeTerm> onplotscale(const StandardLine& line, std::vector<LifeTerm> terms) {
    for (LifeTerm& term : terms) {
        term.low = line.plotvalue(term.low);
        if (term.known == Known::between) term.high = line.plotvalue(term.high);
    }
    return terms;
}

/// The same as cells of the grid.
struct PublishedCells {
    std::vector<std::string> cells;
    bool intervals = false; ///< to be read as interval input
};
inline PublishedCells publishedcells(const std::string& dataSet) {
    const ReferenceTable data = reference("data_" + dataSet + ".csv");
    PublishedCells set;
    for (std::size_t row = 0; row < data.rows.size(); ++row) {
        const Known type = knownof(data.text(row, "type"));
        std::string cell = type == Known::above ? "-" : "";
        ((cell += data.text(row, "value")) += "x0x") += data.text(row, "quantity");
        cell += 'x';
        cell += type == Known::between ? data.text(row, "upper") : type == Known::below ? "-3.3e33" : "0";
        set.intervals = set.intervals || type == Known::between;
        set.cells.push_back(cell);
    }
    return set;
}
