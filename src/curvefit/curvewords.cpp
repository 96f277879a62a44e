#include "curvefit/curvewords.h"

#include <charconv>
#include <cmath>

#include "curvefit/models.h"
#include "data/textpieces.h"
#include "session/session.h"

namespace {

/// A whole text as a number that data can hold.
std::optional<double> numberof(std::string_view text) {
    double number = 0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    if (read.ec != std::errc() || read.ptr != end || !(std::fabs(number) < 9e29)) return std::nullopt;
    return number;
}

/// A model by its name, its order, or its code: files and scripts of the program speak of codes.
std::optional<int16_t> kindof(std::string_view value) {
    if (const auto named = modelofname(value)) return named;
    const auto code = numberof(value);
    if (!code || std::fabs(*code) > 100 || *code != std::floor(*code)
        || !modelofcode(static_cast<int>(*code)))
        return std::nullopt;
    return static_cast<int16_t>(*code);
}

bool takekind(std::string_view value) {
    if (value == "0") {
        session.fitKindList[0] = noCurveWanted;
        return true;
    }
    const auto code = value.empty() ? std::optional<int16_t>(linearFit) : kindof(value);
    if (code) session.fitKindList[0] = *code;
    return code.has_value();
}

bool takenamedkind(std::string_view value) { return !value.empty() && takekind(value); }

bool takeorder(std::string_view value) {
    const auto code = modelofname(value);
    if (!code || *code > highestOrder) return false;
    session.fitKindList[0] = *code;
    return true;
}

bool takeflag(int16_t& flag, std::string_view value) {
    if (value != "0" && value != "1" && !value.empty()) return false;
    flag = value == "0" ? 0 : 1;
    return true;
}

bool takefill(std::string_view value) { return takeflag(session.fillMissing, value); }

bool takefrom(std::string_view value) {
    const auto from = numberof(value);
    if (from) session.curveFrom = *from;
    if (from) session.curveExtrapolated = 1;
    return from.has_value();
}

bool takeextrapolate(std::string_view value) { return takeflag(session.curveExtrapolated, value); }

struct Setting {
    std::string_view word;
    bool (*take)(std::string_view value);
};
constexpr Setting settings[] = {{"FIT", takenamedkind},    {"FITCURVE", takekind},
                                {"FITFILL", takefill},     {"FITPAR-ORDER", takeorder},
                                {"FITPAR-FROM", takefrom}, {"FITPAR-EXTRAPOLATE", takeextrapolate}};

} // namespace

CurveWord curveword(std::string_view text) {
    text = trimmed(text);
    const auto end = std::min(text.find_first_of("= \t"), text.size());
    const std::string word = uppercase(text.substr(0, end));
    std::string_view value = trimmed(text.substr(end));
    if (value.starts_with('=')) value = trimmed(value.substr(1));
    for (const Setting& setting : settings)
        if (setting.word == word) return setting.take(value) ? CurveWord::taken : CurveWord::wrong;
    return word.starts_with("FITPAR-") ? CurveWord::wrong : CurveWord::none;
}
