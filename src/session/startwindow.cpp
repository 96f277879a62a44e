#include "session/startwindow.h"

#include "platform/paths.h"
#include "session/session.h"
#include "session/settings.h"
#include "session/startup.h"
#include "shell/languages.h"
#include "shell/prompts.h"

namespace {

template <class... Parts>
std::string shown(const Parts&... parts) {
    std::string text;
    extend(text, parts...);
    wordclean(text);
    return text;
}

/// What the program is good at, a line each.
std::vector<std::string> featurelines() {
    using enum Word;
    return {
        shown("Weibayes + RBA ", For, " ", Small, " ", Sample, " ", Size),
        shown(Risk, " ", Analysis, " ", For, " ", Expected, " ", Quantity),
        shown(MonteCarlo, " ", For, " ", Typical, " ", Data),
        shown(Likelihood, " ", Ratio, " ", Contour, " ", And, " ", Confidence, " ", Limit),
        shown(Failure, " + ", Suspension, " + ", Interval, " ", Data),
        shown("Weibull, LogNormal, ", Normal, ", Gumbel ", Distribution),
        shown(Competing, " + ", Mixture, " ", Failure, " ", Mode),
        shown(Regression, " ", Or, " ", Maximum, " ", Likelihood),
        shown(Undo, " + ", Redo, " + ", Former, " ", Results),
        shown(Report, " + ", Plot, " ... PDF, SVG, HPGL"),
    };
}

std::string languageline() { return shown(Word::Language, " ... ", word(Word::LanguageName)); }

/// English, which stands in the slots by itself, and every language with words of its own.
bool spoken(const Language& language) { return !language.table.empty() || &language == &languages().front(); }

/// "A" and on, past the letters of a long list to the digits.
char keyof(std::size_t number) {
    constexpr std::string_view keys = "ABCDEFGHIJKLMNOPQRSTUVWYZ123456789"; // X leaves a page
    return keys[number % keys.size()];
}

} // namespace

StartTexts starttexts() {
    StartTexts texts;
    texts.product = session.productName + " " + VANEX_VERSION;
    texts.strap = shown(Word::StrapLine);
    texts.authors = {shown(Word::Author, ": ", AsTyped{session.productName}, " ", Word::Software),
                     shown(Word::RightsNotice)};
    texts.advisor = {shown(Word::TechnicalAdvisor, ": "),
                     shown(Word::BestPracticesGuide, " + ", Word::FlowChart)};
    texts.address = {shown(Word::Installation, ": "), shown(AsTyped{nativepath(session.programPath)})};
    texts.disclaimer = {shown(Word::JudgementDisclaimer)};
    texts.agree = shown("<Y> ", Word::YesIAgreeToTheAbove, ".");
    texts.exit = shown("<X> ", Word::Exit, ".");
    texts.ok = shown(Word::OK);
    texts.features = featurelines();
    texts.language = languageline();
    return texts;
}

bool choosestartlanguage() {
    menuclear();
    std::vector<std::string> files;
    for (const Language& language : languages()) {
        if (!spoken(language) || files.size() >= PromptRegisters::menuItems) continue;
        files.emplace_back(language.file);
        const std::size_t number = files.size();
        session.menuItem[number] = std::string(1, keyof(number - 1)) + "..." + std::string(language.name);
        if (language.file == session.languageFile) session.menuChoice = static_cast<float>(number);
    }
    session.menuCount = static_cast<float>(files.size());
    compose(session.msg, Word::Language);
    menushow();
    if (session.menuChoice < 1) return false;
    const std::string& chosen = files[static_cast<std::size_t>(session.menuChoice) - 1];
    if (chosen == session.languageFile) return false;
    session.languageFile = chosen;
    settingswrite();
    startup({}, {}, true);
    return true;
}
