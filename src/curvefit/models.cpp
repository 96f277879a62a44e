#include "curvefit/models.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "data/textpieces.h"

namespace {

constexpr CurveModel table[] = {
    {linearFit, "linear", Word::Linear, "", "y=a+b*x"},
    {.code = quadraticFit,
     .name = "quadratic",
     .word = Word::Quadratic,
     .mark = "",
     .equation = "y=a+b*x+c*x^2",
     .order = 2},
    {.code = cubicFit,
     .name = "cubic",
     .word = Word::Cubic,
     .mark = "",
     .equation = "y=a+b*x+c*x^2+d*x^3",
     .order = 3},
    {.code = 4,
     .name = "",
     .word = Word::Order,
     .mark = " = ",
     .equation = "y=a+b*x+c*x^2+d*x^3 ...",
     .order = 4},
    {exponentialFit, "exponential", Word::Exponential, "", " ... y=a*b^x ... =e^(ln(a)+ln(b)*x)",
     Coordinate::plain, Coordinate::logarithm},
    {powerFit, "power", Word::Power, "", " ... y=a*x^b ... =e^(ln(a)+ln(x)*b)", Coordinate::logarithm,
     Coordinate::logarithm},
    {arrheniusXFit, "arrhenius-x", Word::None_, "Arrhenius-X", " ... y=a*b^(1/x) ... =e^(ln(a)+ln(b)/x)",
     Coordinate::reciprocal, Coordinate::logarithm},
    {arrheniusYFit, "arrhenius-y", Word::None_, "Arrhenius-Y", " ... x=a*b^(1/y) ... =e^(ln(a)+ln(b)/y)",
     Coordinate::reciprocal, Coordinate::logarithm, true},
};

} // namespace

std::span<const CurveModel> curvemodels() { return table; }

std::optional<CurveModel> modelofcode(int code) {
    if (code < linearFit) return std::nullopt;
    for (const CurveModel& model : table)
        if (model.code == code) return model;
    if (code > highestOrder) return std::nullopt;
    CurveModel model = table[3];
    model.code = static_cast<int16_t>(code);
    model.order = code;
    return model;
}

std::optional<int16_t> modelofname(std::string_view name) {
    const std::string lower = lowercase(name);
    for (const CurveModel& model : table)
        if (!model.name.empty() && model.name == lower) return model.code;
    int16_t code = 0;
    const char* const end = lower.data() + lower.size();
    const auto read = std::from_chars(lower.data(), end, code);
    const bool isOrder = read.ec == std::errc() && read.ptr == end && code >= 1 && code <= highestOrder;
    if (!isOrder) return std::nullopt; // 12 is no code here: who asks for order 12 must not get another model
    return code;
}

std::string modelnames() {
    std::string names;
    for (const CurveModel& model : table)
        (names += names.empty() ? "" : " ") += model.name.empty() ? "1-9" : model.name;
    return names;
}

std::string scriptname(const CurveModel& model) {
    return model.name.empty() ? "order " + std::to_string(model.code) : std::string(model.name);
}

void append(std::string& text, const CurveModel& model) {
    if (model.word != Word::None_) append(text, model.word);
    text += model.mark;
    if (model.name.empty()) append(text, static_cast<int>(model.code));
}

double coordinateof(Coordinate kind, double value) {
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    switch (kind) {
    case Coordinate::logarithm: return value > 0 ? std::log(value) : none;
    case Coordinate::reciprocal: return value != 0 ? 1 / value : none;
    default: return value;
    }
}
