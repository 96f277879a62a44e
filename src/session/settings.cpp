#include "session/settings.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "data/numbertext.h"
#include "data/textpieces.h"
#include "numeric/sngguard.h"
#include "platform/files.h"
#include "session/findfile.h"
#include "session/settingstable.h"
#include "shell/prompts.h"
#include "shell/words.h"

namespace {

constexpr std::string_view settingsName = "VANEX.INI";
constexpr std::string_view productTag = "OMNIVANEX";
constexpr std::string_view lineEnd = "\r\n";
constexpr std::size_t longestText = 4096;

// ---- one value ----

template <class... F>
struct Cases : F... {
    using F::operator()...;
};
template <class... F>
Cases(F...) -> Cases<F...>;

bool choiceof(std::string_view choices, std::string_view text) {
    if (choices.empty()) return true;
    for (std::size_t at = 0; at < choices.size();) {
        const std::size_t end = std::min(choices.find(' ', at), choices.size());
        if (choices.substr(at, end - at) == text) return true;
        at = end + 1;
    }
    return false;
}

/// Takes a line of the file, or a script's text, as the value. False when it does not serve; the value then
/// stays.
bool take(const Setting& setting, std::string_view text) {
    if (setting.writeOnly || text == noAnswerText) return false;
    const Place place = setting.at(session);
    if (std::string* const* held = std::get_if<std::string*>(&place)) {
        if (text.size() > longestText || !choiceof(setting.choices, text)) return false;
        **held = text;
        return true;
    }
    const NumberText number = readnumber(text);
    const double value = number.value * setting.scale;
    if (!number.readable || !(value >= setting.low) || !(value <= setting.high)) return false;
    std::visit(Cases{[&](float* held) { *held = sngguard(value); }, [&](double* held) { *held = value; },
                     [](std::string*) {},
                     [&]<class Integer>(Integer* held) { *held = static_cast<Integer>(std::trunc(value)); }},
               place);
    return true;
}

std::string oneline(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c < ' '; }, ' ');
    return text;
}

std::string textof(const Setting& setting) {
    std::string text;
    std::visit(
        Cases{[&](const std::string* held) { text = oneline(*held); },
              [&](const float* held) {
                  appendtrimmed(text, static_cast<float>(static_cast<double>(*held) / setting.scale));
              },
              [&](const auto* held) { appendtrimmed(text, static_cast<double>(*held) / setting.scale); }},
        setting.at(session));
    return text;
}

// ---- the lines of a file ----

std::vector<std::string_view> linesof(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) lines.push_back(takeline(text));
    return lines;
}

const Section* sectionnamed(std::string_view name) {
    for (const Section& section : settingsections())
        if (section.name == name) return &section;
    return nullptr;
}

/// A section as it stands in a file.
struct Found {
    const Section* section;
    std::span<const std::string_view> values;
};

/// A name with its count on the next line.
bool headerat(std::span<const std::string_view> lines, std::size_t i) {
    if (i + 1 >= lines.size() || !sectionnamed(lines[i])) return false;
    const std::string_view count = lines[i + 1];
    return !count.empty() && count.find_first_not_of("0123456789") == std::string_view::npos;
}

/// End of the values that begin at a place and should be so many. Where another section follows just there
/// the count holds, whatever the values look like; else the next section, or the end of the file, ends them.
std::size_t valuesend(std::span<const std::string_view> lines, std::size_t begin, double wanted) {
    if (wanted < static_cast<double>(lines.size() - begin)
        && headerat(lines, begin + static_cast<std::size_t>(wanted)))
        return begin + static_cast<std::size_t>(wanted);
    std::size_t end = begin;
    while (end < lines.size() && static_cast<double>(end - begin) < wanted && !headerat(lines, end)) ++end;
    return end;
}

/// The sections of a file.
std::vector<Found> sectionsof(std::span<const std::string_view> lines) {
    std::vector<Found> found;
    for (std::size_t i = 0; i < lines.size();) {
        if (!headerat(lines, i)) {
            ++i;
            continue;
        }
        const double wanted = readnumber(lines[i + 1]).value;
        const std::size_t begin = i + 2;
        const std::size_t end = valuesend(lines, begin, wanted);
        found.push_back({sectionnamed(lines[i]), lines.subspan(begin, end - begin)});
        i = end;
    }
    return found;
}

// ---- reading ----

void takelist(const Found& found) {
    const std::size_t count = std::min(found.values.size(), static_cast<std::size_t>(found.section->count));
    if (const auto texts = found.section->texts) {
        (session.*texts)
            .assign(found.values.begin(), found.values.begin() + static_cast<std::ptrdiff_t>(count));
        return;
    }
    auto& numbers = session.*found.section->numbers;
    numbers.clear();
    for (const std::string_view line : found.values.first(count))
        numbers.push_back(sngguard(readnumber(line).value));
}

void takesection(const Found& found) {
    if (found.section->islist()) {
        takelist(found);
        return;
    }
    for (const Setting& setting : found.section->settings)
        if (static_cast<std::size_t>(setting.position) <= found.values.size())
            take(setting, found.values[static_cast<std::size_t>(setting.position) - 1]);
    session.keptSettings[std::string(found.section->name)].assign(found.values.begin(), found.values.end());
}

/// What follows from the values read.
void settle() {
    session.fitMethod = session.fitMethodSaved;
    const auto mark = session.serialLine.find('@');
    if (mark != std::string::npos && mark + 1 < session.serialLine.size())
        session.serialParity = session.serialLine[mark + 1];
}

/// Where the settings are read: in the config folder, or wherever an older installation left them; in the
/// folder of -c alone where one was named.
std::string settingspath() {
    const Keep keep{session.msg};
    session.msg = settingsName;
    const bool elsewhere = session.cmdConfig.empty() && findfilequietly();
    return elsewhere ? session.msg : session.configPath + std::string(settingsName);
}

// ---- writing ----

/// The line at a position: of the table, as it was read, fixed, or the mark of one that is not set.
std::string lineat(const Section& section, int position) {
    for (const Setting& setting : section.settings)
        if (setting.position == position) return textof(setting);
    if (const auto kept = session.keptSettings.find(section.name); kept != session.keptSettings.end())
        if (static_cast<std::size_t>(position) <= kept->second.size())
            return oneline(kept->second[static_cast<std::size_t>(position) - 1]);
    for (const FixedLine& line : section.fixed)
        if (line.position == position) return std::string(line.text);
    return noAnswerText;
}

std::vector<std::string> linesof(const Section& section) {
    std::vector<std::string> lines;
    const auto most = static_cast<std::size_t>(section.count);
    if (section.texts)
        for (const std::string& text : session.*section.texts) lines.push_back(oneline(text));
    else if (section.numbers)
        for (const float number : session.*section.numbers) appendtrimmed(lines.emplace_back(), number);
    else
        for (int position = 1; position <= section.count; ++position)
            lines.push_back(lineat(section, position));
    if (lines.size() > most) lines.resize(most);
    return lines;
}

/// The lines of a section with those of the file in place of the run's.
std::vector<std::string> lasting(const Section& section, std::vector<std::string> lines) {
    const auto found = session.asideSettings.find(section.name);
    if (found == session.asideSettings.end()) return lines;
    const auto& [kept, run] = found->second;
    if (lines == run) return kept;
    if (section.islist() || lines.size() != run.size() || kept.size() != run.size()) return lines;
    for (std::size_t i = 0; i < lines.size(); ++i)
        if (lines[i] == run[i]) lines[i] = kept[i];
    return lines;
}

std::string markof(char side) { return std::string("WV") + side + "=ON"; }

} // namespace

std::string settingstext() {
    std::string text = oneline(session.programTags);
    text += lineEnd;
    for (const Section& section : settingsections()) {
        const std::vector<std::string> lines = lasting(section, linesof(section));
        text += section.name;
        text += lineEnd;
        text += std::to_string(lines.size());
        text += lineEnd;
        for (const std::string& line : lines) {
            text += line;
            text += lineEnd;
        }
    }
    return text;
}

void settingstake(std::string_view text) {
    const std::vector<std::string_view> lines = linesof(text);
    if (!lines.empty() && uppercase(lines[0]).find(productTag) != std::string::npos)
        session.programTags = lines[0];
    session.keptSettings.clear();
    for (const Found& found : sectionsof(lines)) takesection(found);
    settle();
}

bool settingsread() {
    const auto text = readregular(settingspath());
    if (text) settingstake(*text);
    return text.has_value();
}

void settingskeep() {
    session.asideSettings.clear();
    for (const Section& section : settingsections())
        session.asideSettings[std::string(section.name)] = {linesof(section), linesof(section)};
}

void settingsoverride() {
    for (const Section& section : settingsections()) {
        const auto found = session.asideSettings.find(section.name);
        if (found == session.asideSettings.end()) continue;
        auto& [kept, run] = found->second;
        run = linesof(section);
        for (const Setting& setting : section.settings) // what the file only tells follows the run
            if (setting.writeOnly) kept[static_cast<std::size_t>(setting.position) - 1] = textof(setting);
    }
}

bool settingswrite() {
    if (!session.scriptRequest.empty()) return true;
    const std::string tags = session.programTags;
    const int16_t written = session.settingsWritten;
    if (session.programTags.empty()) session.programTags = productTag;
    session.settingsWritten = 1;
    const std::string path = session.configPath + std::string(settingsName);
    if (writefile(path, settingstext())) return true;
    session.programTags = tags;
    session.settingsWritten = written;
    compose(session.msg, Word::File, " ", Word::Open, " (", Word::File, "=", AsTyped{path},
            ") NOT POSSIBLE ... PATH OKAY?");
    tellok();
    return false;
}

SettingValue settingget(std::string_view name, int position) {
    const SettingValue none{noAnswerText, noAnswer};
    const auto text = readregular(settingspath());
    if (!text || position < 1) return none;
    const std::vector<std::string_view> lines = linesof(std::string_view(*text));
    for (const Found& found : sectionsof(lines))
        if (found.section->name == name && static_cast<std::size_t>(position) <= found.values.size()) {
            const std::string_view value = found.values[static_cast<std::size_t>(position) - 1];
            return {std::string(value), readnumber(value).value};
        }
    return none;
}

bool settingsmarked(char side) { return session.programTags.find(markof(side)) != std::string::npos; }

void settingsmark(char side, bool on) {
    if (session.programTags.empty()) session.programTags = productTag;
    const std::string mark = " " + markof(side);
    if (on && !settingsmarked(side)) {
        if (session.programTags.find(':') == std::string::npos) session.programTags += ':';
        session.programTags += mark;
    }
    if (on) return;
    if (const auto at = session.programTags.find(mark); at != std::string::npos)
        session.programTags.erase(at, mark.size());
    else if (const auto bare = session.programTags.find(mark.substr(1)); bare != std::string::npos)
        session.programTags.erase(bare, mark.size() - 1);
}

void settingsreset() {
    static Session fresh;
    for (const Section& section : settingsections())
        for (const Setting& setting : section.settings) {
            if (setting.name.empty()) continue;
            std::visit(Cases{[&]<class T>(T* held) { *held = *std::get<T*>(setting.at(fresh)); }},
                       setting.at(session));
        }
    settle();
}

bool settingset(std::string_view name, std::string_view value) {
    const auto setin = [&](std::span<const Setting> settings) {
        for (const Setting& setting : settings)
            if (!name.empty() && setting.name == name) {
                // Scripts speak of the session's own value, not of the fraction that the file holds.
                Setting plain = setting;
                plain.scale = 1;
                return take(plain, value);
            }
        return false;
    };
    bool taken = setin(dataoptions());
    for (const Section& section : settingsections()) taken = taken || setin(section.settings);
    if (taken) settle();
    return taken;
}
