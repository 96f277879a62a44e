#include "options/pages.h"

#include <array>
#include <string>

#include "options/page.h"
#include "session/former.h"
#include "session/settings.h"
#include "shell/prompts.h"

namespace {

/// Pages whose items are what the session has at the moment.
struct DynamicPage {
    OptionPage page;
    bool (*show)();
};

/// The list of former results acts by itself: what it activates has been calculated.
bool formerpage() {
    formerpress();
    return false;
}

constexpr DynamicPage dynamicPages[] = {{OptionPage::formerResults, formerpage},
                                        {OptionPage::sample, samplepage}};

bool showpage(OptionPage page) {
    for (const DynamicPage& dynamic : dynamicPages)
        if (dynamic.page == page) return dynamic.show();
    if (const Page* const table = tableof(page)) return showoptions(*table);
    tell(Word::Not, " ", Word::Possible);
    return false;
}

} // namespace

int16_t identityof(OptionPage page) {
    constexpr int16_t languageIdentity = -40;
    if (page == OptionPage::language) return languageIdentity;
    return static_cast<int16_t>(languageIdentity - 1 - static_cast<int>(page));
}

const Page* tableof(OptionPage page) {
    const std::array subjects = {setuppages(),      outputpages(), plotpages(),       lifepages(),
                                 confidencepages(), testpages(),   calculatorpages(), librarypages(),
                                 functionpages(),   markerpages(), curvepages(),      visualpages(),
                                 transformpages()};
    for (const std::span<const Page> subject : subjects)
        for (const Page& one : subject)
            if (one.page == page) return &one;
    return nullptr;
}

bool optionpage(OptionPage page) {
    if (!session.scriptRequest.empty()) return false;
    const std::string before = settingstext();
    const bool changed = showpage(page);
    if (settingstext() != before) settingswrite();
    return changed;
}
