#include "curvefit/curvewords.h"

#include <cmath>

#include "curvefit/models.h"
#include "data/numbertext.h"
#include "data/textpieces.h"
#include "session/session.h"

namespace {

/// A whole text as a number.
std::optional<double> numberof(std::string_view text) {
    if (text.empty() || text.find_first_not_of("+-.0123456789eE") != std::string_view::npos)
        return std::nullopt;
    const NumberText number = readnumber(text);
    if (!number.readable || !std::isfinite(number.value) || number.value == noAnswer) return std::nullopt;
    return number.value;
}

bool takekind(std::string_view value) {
    const auto code = value.empty()  ? std::optional<int16_t>(linearFit)
                      : value == "0" ? std::optional<int16_t>(noFit)
                                     : modelofname(value);
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
