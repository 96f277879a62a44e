#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "shell/words.h"

/// The models of a curve fit. Every part of it walks this one table: what a model is called, its equation,
/// and the coordinates in which it is a straight line.

/// Model codes, as FITKIND holds them. Any other code from 1 to highestOrder is the polynomial of that order.
enum FitModel : int16_t {
    noFit = 0,
    linearFit = 1,
    quadraticFit = 2,
    cubicFit = 3,
    exponentialFit = 10,
    powerFit = 11,
    arrheniusXFit = 12,
    arrheniusYFit = 13
};

/// In fitKindList[0], where a run notes the kind it asks of every set: that they shall have none.
inline constexpr float noCurveWanted = -1;

/// Ten coefficients are kept with the data.
inline constexpr int highestOrder = 9;

/// How a value becomes a coordinate of the straight line.
enum class Coordinate : uint8_t { plain, logarithm, reciprocal };

struct CurveModel {
    int16_t code;
    std::string_view name; ///< as scripts and the command line call it; empty: by its order
    Word word;             ///< as the user reads it, with `mark` behind
    const char* mark;
    const char* equation;                  ///< with its letters
    Coordinate across = Coordinate::plain; ///< of the abscissa of the straight line
    Coordinate up = Coordinate::plain;     ///< of its ordinate
    bool swapped = false;                  ///< the line stands on Y: the abscissa is made of y
    int order = 1;                         ///< of the polynomial in those coordinates
    int parameters() const { return order + 1; }
    bool ispolynomial() const { return code < exponentialFit; }
};

/// The models by name, in the order of their codes; the orders above 3 share the model of code 4.
std::span<const CurveModel> curvemodels();

/// The model of a code; nothing for a code that is none.
std::optional<CurveModel> modelofcode(int code);

/// The code of a name in either case, "cubic", or of an order from 1 to 9; nothing for any other text.
std::optional<int16_t> modelofname(std::string_view name);

/// The names that modelofname takes, a blank between them.
std::string modelnames();

/// What scripts call the model: "cubic", "order 5".
std::string scriptname(const CurveModel& model);

/// Appends the name as the user reads it: "Cubic", "Order = 5", "Arrhenius-X".
void append(std::string& text, const CurveModel& model);

/// A value as a coordinate; not-a-number where it is not defined: a logarithm of a value at most 0, a
/// reciprocal of 0.
double coordinateof(Coordinate kind, double value);
