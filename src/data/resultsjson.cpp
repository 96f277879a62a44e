#include "data/resultsjson.h"

#include <cmath>

#include "curvefit/models.h"
#include "data/boundvalues.h"
#include "data/cell.h"
#include "data/json.h"
#include "data/lineequation.h"
#include "data/methodlabels.h"
#include "data/reportgoodness.h"
#include "data/settitle.h"
#include "plot/transforms.h"
#include "session/session.h"

namespace {

/// One field of a set: its name and what writes its value.
struct SetField {
    const char* name;
    void (*write)(JsonWriter&, int k);
};

constexpr auto noFigure = static_cast<float>(noAnswer);

int dataRow(int k) { return static_cast<int>(rowofset(static_cast<float>(k))); }

/// A result of the fit: no value for a set without a line.
template <class T>
void fitted(JsonWriter& json, int k, T value) {
    if (session.setFitted(k) == 1)
        json.value(value);
    else
        json.null();
}

/// A figure of goodness: none where it is negative. 0 is an answer, that of a fit as poor as can be told.
void percentage(JsonWriter& json, int k, float value) { fitted(json, k, value >= 0 ? value : noFigure); }

/// One of the regression line: none beside a line by likelihood, as in the report.
void regressionfigure(JsonWriter& json, int k, float value) {
    percentage(json, k, byregression(k) ? value : noFigure);
}

void writetype(JsonWriter& json, int16_t type) {
    static constexpr const char* names[] = {"occr", "susp", "disc", "intv", "intv"};
    json.value(std::string_view(names[type]));
}

void writecounts(JsonWriter& json, int k) {
    json.open('{');
    json.field("occr", session.countOccr(k));
    json.field("susp", session.countSusp(k));
    json.field("disc", session.countDisc(k));
    json.field("intv", session.countIntv(k));
    json.field("quantity", session.countQuantity(k));
    json.close('}');
}

void writemessages(JsonWriter& json, int k) {
    json.open('[');
    for (const std::string& message : session.setMessages[static_cast<std::size_t>(k)])
        json.value(std::string_view(message));
    json.close(']');
}

/// A suspension stands in no place of its own: what the plot shows of it is no position and no rank.
void writepoint(JsonWriter& json, int k, int j) {
    constexpr auto none = static_cast<float>(noAnswer);
    const int row = dataRow(k);
    const int16_t type = session.progSide == visualSide ? int16_t{Occr} : session.pointTypes(k, j);
    const bool interval = type == Intv || type == intvComplement;
    const bool placed = session.progSide == lifeSide && type != Susp;
    const bool grouped = session.setInputType(k) >= prbt2 && session.setInputType(k) <= km4;
    const bool counted = grouped || (session.progSide == visualSide && session.v1(k, j) > 0);
    const bool ranked = placed && !grouped;
    json.open('{');
    json.field("x", session.progSide == lifeSide ? static_cast<float>(pointvalue(k, j)) : session.X(row, j));
    if (session.progSide == visualSide) json.field("y", hasordinate(k, j) ? session.Y(row, j) : none);
    json.field("upper", interval ? session.v2(k, j) : none);
    json.name("type");
    writetype(json, type);
    json.field("quantity", counted ? static_cast<double>(session.v1(k, j)) : pointquantity(k, j));
    json.field("position", placed ? session.Y(row, j) : none);
    json.field("rank", ranked ? session.plotRank(row, j) : none);
    session.msg.clear();
    pointlabelget(k, j);
    json.field("label", std::string_view(session.msg));
    json.close('}');
}

void writepoints(JsonWriter& json, int k) {
    json.open('[');
    const bool ordered = session.progSide == lifeSide;
    for (int m = 1; m <= pointcount(k); ++m) writepoint(json, k, ordered ? session.pointOrder(k, m) : m);
    json.close(']');
}

void writepair(JsonWriter& json, const char* name, double low, double high) {
    json.name(name);
    json.open('[');
    json.value(low);
    json.value(high);
    json.close(']');
}

/// Value of the line of set k at a probability.
double valueat(int k, double p) {
    const Keep keep{session.eta, session.beta, session.ud};
    session.eta = session.etaFit(dataRow(k), 1);
    session.beta = session.betaFit(dataRow(k), 1);
    session.ud = p;
    txp2xd();
    return session.ud + static_cast<double>(session.t0(k));
}

/// Bounds of the parameters and of the B lives, which are singles; a side without a bound is null.
void writebounds(JsonWriter& json, int k) {
    if (!hasbounds(k)) return json.null();
    json.open('{');
    json.field("method", std::string_view(session.setBoundLabel(k)));
    json.field("low", session.confLow);
    json.field("high", session.confHigh);
    writepair(json, "eta", session.paramLow(k, 1), session.paramHigh(k, 1));
    writepair(json, "beta", session.paramLow(k, 2), session.paramHigh(k, 2));
    json.name("blives");
    json.open('[');
    for (const double percent : bLives) {
        const ValueBounds bounds = valuebounds(k, percent / 100);
        json.open('{');
        json.field("p", percent / 100);
        json.field("x", valueat(k, percent / 100));
        json.field("lo", static_cast<float>(bounds.low));
        json.field("hi", static_cast<float>(bounds.high));
        json.close('}');
    }
    json.close(']');
    json.close('}');
}

void writetext(JsonWriter& json, void (*appendtext)(std::string&)) {
    std::string text;
    appendtext(text);
    json.value(std::string_view(text));
}

// ---- fitted curves of the visual side ----

bool hascurve(int k) { return session.curves(k).fitmodel != 0; }

void writemodel(JsonWriter& json, int k) {
    const auto model = modelofcode(static_cast<int>(session.curves(k).fitmodel));
    if (!model) return json.null();
    json.value(std::string_view(scriptname(*model)));
}

/// By the letters of the equation; one that no double can hold is null.
void writecoefficients(JsonWriter& json, int k) {
    if (!hascurve(k)) return json.null();
    json.open('[');
    for (const double coefficient : equationcoefficients(session.curves(k))) json.value(coefficient);
    json.close(']');
}

void writestandarderror(JsonWriter& json, int k) {
    const double error = session.curves(k).standardError;
    json.value(hascurve(k) && error != 9e30 ? error : noAnswer);
}

void writeequation(JsonWriter& json, int k) {
    const std::string equation = lineequation(k);
    if (equation == noAnswerText) return json.null();
    json.value(std::string_view(equation));
}

/// Correlation of the line, or of the coordinates beside a curve.
double correlationof(int k) {
    if (session.progSide != visualSide)
        return session.setFitted(k) == 1 ? session.setCorrelation(k) : noAnswer;
    return session.curves(k).hasR ? session.curves(k).r : noAnswer;
}

double squared(double r) { return r == noAnswer ? noAnswer : r * r; }

constexpr SetField setFields[] = {
    {"set", [](JsonWriter& json, int k) { json.value(k); }},
    {"title", [](JsonWriter& json, int k) { json.value(titleofset(k)); }},
    {"family", [](JsonWriter& json, int) { json.value(familyname(session.dist)); }},
    {"gumbeltype", [](JsonWriter& json, int) { json.value(static_cast<int>(session.gumbeltype)); }},
    {"method", [](JsonWriter& json, int) { writetext(json, appendmethod); }},
    {"label", [](JsonWriter& json, int k) { json.value(std::string_view(session.setLabel(k))); }},
    {"rankMethod", [](JsonWriter& json, int) { json.value(rankname(static_cast<int>(session.rankMethod))); }},
    {"inputType", [](JsonWriter& json, int k) { json.value(static_cast<int>(session.setInputType(k))); }},
    {"counts", writecounts},
    {"eta", [](JsonWriter& json, int k) { fitted(json, k, session.etaFit(dataRow(k), 1)); }},
    {"beta", [](JsonWriter& json, int k) { fitted(json, k, session.betaFit(dataRow(k), 1)); }},
    {"t0", [](JsonWriter& json, int k) { json.value(session.t0(k)); }},
    {"fixedSlope", [](JsonWriter& json, int) { json.value(session.fixedSlope); }},
    {"r", [](JsonWriter& json, int k) { json.value(correlationof(k)); }},
    {"r2", [](JsonWriter& json, int k) { json.value(squared(correlationof(k))); }},
    {"ccc2", [](JsonWriter& json, int k) { regressionfigure(json, k, session.cccSquared(k)); }},
    {"pve", [](JsonWriter& json, int k) { regressionfigure(json, k, session.pvePercent(k)); }},
    {"pAD", [](JsonWriter& json, int k) { percentage(json, k, session.pADPercent(k)); }},
    {"pFF", [](JsonWriter& json, int k) { percentage(json, k, session.PVALUEFF(k)); }},
    {"logLik",
     [](JsonWriter& json, int k) {
         fitted(json, k, session.LOGLYKMLE(k) > noLowLimit ? session.LOGLYKMLE(k) : noAnswer);
     }},
    {"bounds", writebounds},
    {"model", writemodel},
    {"coefficients", writecoefficients},
    {"standardError", writestandarderror},
    {"equation", writeequation},
    {"messages", writemessages},
    {"points", writepoints},
};

const char* sidename() {
    switch (session.progSide) {
    case lifeSide: return "life";
    case simulationSide: return "simulation";
    case fourthSide: return "fourth";
    default: return "visual";
    }
}

} // namespace

void writeresults(std::string& text) {
    text.clear();
    JsonWriter json(text);
    json.open('{');
    json.field("program", std::string_view(session.productName));
    json.field("version", std::string_view(VANEX_VERSION));
    json.field("side", std::string_view(sidename()));
    json.field("file", std::string_view(session.fileName));
    json.name("messages");
    writemessages(json, 0);
    json.name("sets");
    json.open('[');
    for (int k = 1; k <= setcount(); ++k) {
        json.open('{');
        for (const SetField& field : setFields) {
            json.name(field.name);
            field.write(json, k);
        }
        json.close('}');
    }
    json.close(']');
    json.close('}');
}
