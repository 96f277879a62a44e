#include <algorithm>
#include <cmath>
#include <optional>
#include <string>

#include "data/numbertext.h"
#include "numeric/sngguard.h"
#include "platform/platform.h"
#include "shell/numberentry.h"
#include "shell/prompts.h"
#include "shell/prompttext.h"

namespace {

template <class... Parts>
std::string words(const Parts&... parts) {
    std::string text;
    extend(text, parts...);
    wordclean(text);
    return text;
}

bool wide() { return session.promptKind == 1; }

/// The default as the entry shows it.
std::string shownnumber() {
    std::string text;
    if (wide())
        appendtrimmed(text, session.ud);
    else
        appendtrimmed(text, session.u);
    wordnumber(text);
    return text;
}

/// Puts a number into both registers.
void answernumber(double value) {
    session.ud = value;
    session.u = sngguard(value);
}

void cancelnumber() {
    session.ud = noAnswer;
    session.u = static_cast<float>(noAnswer);
    session.msg.clear();
}

/// Takes the typed text; one that is no number leaves the default.
void taketyped(const std::string& typed, const std::string& shown, double preset) {
    std::string text = typed;
    wordnumberback(text);
    const NumberText number = readentry(text);
    const bool changed = typed != shown && number.readable && std::isfinite(number.value);
    answernumber(changed ? number.value : preset);
    session.msg = typed;
    if (session.ud == noAnswer) cancelnumber();
}

std::optional<std::string> entrytext(const std::string& shown, bool overPlot) {
    if (scriptmode()) return shown;
    if (!platform) return std::nullopt;
    const std::string header = words(Word::Input, " ", Word::Value);
    const std::string lead = words(session.msg);
    const std::string more = words(Word::Increment, " ", Word::By, " ", Word::Make, " ", Word::More);
    const std::string lower = words(Word::Increment, " ", Word::By, " ", Word::Make, " ", Word::Lower);
    return platform->prompts().number({header, lead, shown, more, lower, overPlot});
}

void asknumber(bool overPlot) {
    const double preset = wide() ? session.ud : static_cast<double>(session.u);
    const std::string shown = shownnumber();
    session.promptDefault = sngguard(preset);
    incrementstep();
    const std::optional<std::string> typed = entrytext(shown, overPlot);
    if (typed)
        taketyped(*typed, shown, preset);
    else
        cancelnumber();
    session.menuTitle.clear();
}

void remember(const std::string& text) {
    constexpr std::size_t most = 19;
    std::vector<std::string>& recent = session.recentTexts;
    if (text.empty()) return;
    std::erase(recent, text);
    recent.insert(recent.begin(), text);
    recent.resize(std::min(recent.size(), most));
}

} // namespace

void numberprompt() { asknumber(false); }

void numberpromptonplot() { asknumber(true); }

void textprompt() { textprompt({}); }

void textprompt(std::string_view present) {
    std::optional<std::string> typed;
    if (!scriptmode() && platform) {
        const std::string header = headertext();
        const std::string lead = words(session.msg);
        typed = platform->prompts().text({header, lead, session.recentTexts, present});
    }
    if (typed) remember(*typed);
    session.msg = typed.value_or(noAnswerText);
    session.menuTitle.clear();
}

void slidershow() {
    const double low = session.promptMin;
    const double high = std::max(session.promptMin, session.promptMax);
    const double preset = std::clamp(static_cast<double>(session.u), low, high);
    std::optional<double> answer;
    if (scriptmode()) {
        answer = preset;
    } else if (platform) {
        const std::string header = headertext();
        const std::string lead = words(session.msg);
        answer = platform->prompts().slider({header, lead, low, high, preset});
    }
    if (answer)
        answernumber(std::clamp(*answer, low, high));
    else
        cancelnumber();
    session.menuTitle.clear();
}

void colorpick() {
    const auto known = [](double number) {
        return number >= 0 && number < static_cast<double>(session.palette.size());
    };
    std::optional<int> answer;
    const int preset = known(session.u) ? static_cast<int>(session.u) : 0;
    if (scriptmode()) {
        answer = preset;
    } else if (platform) {
        const std::string header = headertext();
        const std::string lead = words(session.msg);
        answer = platform->prompts().color({header, lead, session.palette, preset});
    }
    if (answer && known(*answer))
        answernumber(*answer);
    else
        cancelnumber();
    session.menuTitle.clear();
}
