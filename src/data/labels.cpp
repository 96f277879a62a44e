#include "data/labels.h"

#include <algorithm>
#include <vector>

#include "data/filelines.h"
#include "data/numbertext.h"
#include "data/textpieces.h"
#include "data/utf8.h"
#include "session/session.h"

namespace {

constexpr std::string_view labelTag = "LABELSWVW";
constexpr int titleLines = 2;

/// Titles of the sets up to the last one that has any.
std::size_t titledsets() {
    std::size_t sets = session.gridTitles.size();
    while (sets > 0 && session.gridTitles[sets - 1].empty()) --sets;
    return sets;
}

std::vector<std::string> restoflines() {
    std::vector<std::string> lines;
    for (;;) {
        const std::string_view line = nextline();
        if (session.eofFlag != 0) return lines;
        lines.emplace_back(line);
    }
}

void takeblock(const std::vector<std::string>& lines) {
    const auto count = std::min<std::size_t>(lines.size(), labelLines);
    for (std::size_t i = 0; i < count; ++i) {
        const int line = static_cast<int>(i) + 1;
        labelline(line) = line <= titleLines ? titleline(lines[i]) : lines[i];
    }
}

bool takecounted(std::vector<std::string> lines) {
    if (lines.empty()) return false;
    session.msg = lines.front();
    numberread();
    const auto wanted = static_cast<std::size_t>(std::clamp(session.u, 0.0f, 1e6f));
    lines.erase(lines.begin());
    lines.resize(std::min(lines.size(), wanted));
    takeblock(lines);
    if (lines.size() <= labelLines) return true;
    const auto sets = std::min(lines.size() - labelLines, static_cast<std::size_t>(session.maxSets));
    session.gridTitles.resize(std::max(session.gridTitles.size(), sets));
    for (std::size_t k = 0; k < sets; ++k) session.gridTitles[k] = titleline(lines[labelLines + k]);
    return true;
}

/// A table of text whose heading begins alike is longer.
bool takeuncounted(std::vector<std::string> lines) {
    while (!lines.empty() && trimmed(lines.back()).empty()) lines.pop_back();
    if (lines.empty() || lines.size() > labelLines) return false;
    if (const auto mark = lines.front().find('_'); mark != std::string::npos) {
        lines.insert(lines.begin() + 1, lines.front().substr(mark + 1));
        lines.front().resize(mark);
    }
    takeblock(lines);
    return true;
}

} // namespace

std::string& labelline(int line) {
    std::string* const places[labelLines] = {
        &session.titleWanted,  &session.titleSecond,  &session.axisTitleX,  &session.axisTitleY,
        &session.labelText[0], &session.labelText[1], &session.labelText[2]};
    return *places[std::clamp(line, 1, labelLines) - 1];
}

std::string titleline(std::string_view text) {
    std::string_view rest = text;
    for (std::size_t taken = 0; taken < titleLength && !rest.empty(); ++taken) takecharacter(rest);
    return std::string(text.substr(0, text.size() - rest.size()));
}

bool labelswrite() {
    const std::size_t sets = titledsets();
    linewrite(labelTag);
    numwrite(static_cast<float>(labelLines + sets));
    for (int line = 1; line <= labelLines; ++line) textwrite(labelline(line));
    for (std::size_t k = 0; k < sets; ++k) textwrite(session.gridTitles[k]);
    return true;
}

bool labelsread(std::string_view heading) {
    const bool counted = uppercase(trimmed(heading)) == labelTag;
    return counted ? takecounted(restoflines()) : takeuncounted(restoflines());
}
