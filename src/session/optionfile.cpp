#include "session/optionfile.h"

#include <algorithm>
#include <cctype>
#include <string>

#include "curvefit/curvewords.h"
#include "data/numbertext.h"
#include "data/textpieces.h"
#include "numeric/sngguard.h"
#include "platform/files.h"
#include "session/session.h"
#include "shell/words.h"

namespace {

constexpr std::string_view parts[] = {"KEY", "OPTREPL", "RISK", "LIBRARY"};
constexpr std::size_t riskSteps = 12;

/// Texts that a line under OPTREPL replaces, from A.
constexpr std::string Session::*replaced[] = {
    &Session::mtbfName,      &Session::thresholdName, &Session::equationsName, &Session::fontName,
    &Session::exportDecimal, &Session::titleWanted,   &Session::titleSecond,   &Session::axisTitleX,
    &Session::axisTitleY,    &Session::languageFile};

template <class T>
void putat(std::vector<T>& list, std::size_t index, T value) {
    if (list.size() <= index) list.resize(index + 1);
    list[index] = std::move(value);
}

void takerisk(std::size_t letter, std::string_view value) {
    const NumberText number = readnumber(value);
    if (!number.readable || letter >= 2 * riskSteps) return;
    auto& rates = letter < riskSteps ? session.riskUsageRate : session.riskProdRate;
    putat(rates, letter % riskSteps, sngguard(number.value));
}

void takeoption(std::size_t letter, std::string_view value) {
    if (letter >= std::size(replaced)) return;
    std::string& text = session.*replaced[letter];
    if (&text == &session.exportDecimal && value != "." && value != ",") return;
    text = value;
}

void takevalue(std::string_view part, std::size_t letter, std::string_view value) {
    if (part == "OPTREPL") takeoption(letter, value);
    if (part == "RISK") takerisk(letter, value);
    if (part == "LIBRARY") putat(session.libraryTitles, letter, std::string(value));
}

void noteunknown(std::string_view line) {
    std::string note;
    wordclean(compose(note, Word::Unknown, ": ", AsTyped{line}));
    session.cmdNotes.push_back(note);
}

} // namespace

void optionfiletake(std::string_view text) {
    std::string_view part;
    while (!text.empty()) {
        const std::string_view line = trimmed(takeline(text));
        if (const auto* named = std::find(std::begin(parts), std::end(parts), line);
            named != std::end(parts)) {
            part = *named;
            continue;
        }
        if (const CurveWord taken = curveword(line); taken != CurveWord::none) {
            if (taken == CurveWord::wrong) noteunknown(line);
            continue;
        }
        const bool lettered = !line.empty() && std::isalpha(static_cast<unsigned char>(line[0]))
                              && (line.size() == 1 || line[1] == ' ' || line[1] == '\t' || line[1] == '=');
        if (!lettered) continue;
        const int letter = std::toupper(static_cast<unsigned char>(line[0])) - 'A';
        takevalue(part, static_cast<std::size_t>(letter),
                  trimmed(line.substr(std::min<std::size_t>(2, line.size()))));
    }
}

bool optionfileread(std::string_view path) {
    const auto text = readregular(std::string(path));
    if (text) optionfiletake(*text);
    return text.has_value();
}
