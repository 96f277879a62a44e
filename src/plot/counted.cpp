#include "plot/counted.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "data/cell.h"
#include "plot/shown.h"
#include "session/session.h"

namespace {

constexpr double noSample = 1e9; ///< a Z from here on is a mark, not a number of units
constexpr int16_t samplesDiffer = 2;

/// One set on the X scale of the plot.
class CountedSet {
public:
    explicit CountedSet(int set)
        : k(set),
          start(scaleshift(set)),
          shift(start - static_cast<double>(session.t0(set))) {}

    /// Its units; nothing where they cannot be told.
    std::vector<Counted> units() {
        bool told = true;
        for (int m = 1; told && m <= pointcount(k); ++m) told = row(session.pointOrder(k, m));
        if (!told) counted.clear();
        return std::move(counted);
    }

private:
    bool row(int j) {
        switch (session.inputType) {
        case prbt2:
        case prbt3: return inspection(j);
        case km4: return leaving(j);
        default: return point(j);
        }
    }

    double age(int j) const { return pointvalue(k, j) + shift; }
    double sample(int j) const {
        const double z = session.v2(k, j);
        return z > 0 && z < noSample ? std::floor(z) : 0;
    }

    void add(bool suspended, double low, double high, double quantity) {
        if (quantity > 0) counted.push_back({k, suspended, std::min(low, high), high, quantity});
    }

    /// A life begins at `start`; one that may be negative has no beginning.
    double begin(double end) const { return negativedata() ? end : std::min(start, end); }

    bool point(int j) {
        const int type = session.pointTypes(k, j);
        const double at = age(j);
        const double other = static_cast<double>(session.v2(k, j)) + shift;
        const double quantity = pointquantity(k, j);
        if (type == Intv)
            add(false, std::min(at, other), std::max(at, other), quantity);
        else if (type == Disc)
            add(false, begin(at), at, quantity);
        else
            add(type == Susp || type == intvComplement, at, at, quantity);
        return true;
    }

    /// A row tells what has been affected up to its age, as a number or as a percentage of its sample.
    bool inspection(int j) {
        if (session.pointTypes(k, j) == Susp) return true;
        const double units = sample(j), share = session.v1(k, j);
        const double affected =
            session.inputType == prbt3 ? std::round(share / 100 * units) : std::floor(share);
        if (!(affected >= 0 && affected <= units)) return false;
        const double end = age(j);
        if (session.groupingOption == samplesDiffer) {
            add(false, begin(end), end, affected);
            return true;
        }
        if (affected < formerAffected || (formerUnits > 0 && units != formerUnits)) return false;
        add(false, formerUnits > 0 ? formerAge : begin(end), end, affected - formerAffected);
        formerAffected = affected;
        formerUnits = units;
        formerAge = end;
        return true;
    }

    /// A row of units that leave at its age: Q failed, Z suspended besides.
    bool leaving(int j) {
        const double at = age(j);
        add(session.pointTypes(k, j) == Susp, at, at, std::floor(static_cast<double>(session.v1(k, j))));
        add(true, at, at, sample(j));
        return true;
    }

    int k;
    double start, shift;
    double formerAffected = 0, formerUnits = 0, formerAge = 0;
    std::vector<Counted> counted;
};

} // namespace

std::vector<Counted> countedunits() {
    std::vector<Counted> all;
    for (int k = 1; k <= setcount(); ++k) {
        if (!setshown(k)) continue;
        const std::vector<Counted> units = CountedSet(k).units();
        all.insert(all.end(), units.begin(), units.end());
    }
    return all;
}
