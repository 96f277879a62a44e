#pragma once

#include <span>
#include <vector>

#include "analysis/bounds.h"
#include "analysis/information.h"
#include "analysis/linesearch.h"

/// The lines whose log likelihood lies a given amount below the largest one.
///
/// They form a closed curve about the maximum, which is walked in (shift, rate): there the likelihood is
/// concave, so that the curve is convex and every direction from the maximum meets it once. The directions
/// are even steps of the angle after the information has made the curve nearly a circle. Along each the
/// crossing is the root of a falling concave function, taken by Newton's method within a bracket, to full
/// precision. With a portion below 1 the likelihood need not be concave; the bracket still holds a crossing.
///
/// The extreme of a quantity on the curve is the profile bound of that quantity: the value and its slope at
/// every step give the curve between the steps, where the extreme is sought by golden section; Newton's
/// method on the two conditions (on the curve; level along it) then makes it exact.
/// Lawless, Statistical Models and Methods for Lifetime Data (2003), 4.1 and 5.2; Nelson, Applied Life Data
/// Analysis (1982), ch. 12.
class Contour {
public:
    /// line: the maximum for the terms, both on the plot scale.
    Contour(const StandardLine& line, std::span<const LifeTerm> terms, double portion);

    /// Walks the curve `drop` below the maximum in so many steps. False when there is no closed curve, or
    /// interrupted() asked for an end.
    bool walk(double drop, int steps, Interrupted interrupted);

    /// Least and largest value of location + t * scale, and of the scale, on the curve walked. Relative error
    /// of the distance from the maximum below 1e-9.
    Limits value(double t) const;
    Limits scale() const;

private:
    struct Knot {
        double angle, radius, slope; ///< slope of the radius over the angle
    };
    struct Place {
        double shift, rate;
    };
    /// The quantity (move * shift + t) / rate.
    struct Quantity {
        double move, t;
        double at(const Place& place) const { return (move * place.shift + t) / place.rate; }
    };

    Place direction(double angle) const;
    Place placeat(double angle, double radius) const;
    double radiusbetween(double angle) const;
    bool crossing(double angle, double start, Knot& knot) const;
    bool polish(const Quantity& quantity, Place& place) const;
    double extreme(const Quantity& quantity, double sign) const;
    PlaceSlopes slopesat(const Place& place) const {
        return placeslopes(line.shape, units, portion, place.shift, place.rate);
    }

    StandardLine line;
    std::vector<LifeTerm> units;
    double portion;
    double highest = 0;               ///< log likelihood of the line
    double l11 = 0, l21 = 0, l22 = 0; ///< triangular root of the information in (shift, rate)
    double drop = 0;
    std::vector<Knot> knots;
};
