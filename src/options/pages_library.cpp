#include <string>
#include <vector>

#include "data/samples.h"
#include "options/page.h"
#include "platform/platform.h"
#include "session/former.h"
#include "session/library.h"
#include "session/sampleload.h"
#include "session/snapshots.h"
#include "session/usagetables.h"
#include "shell/prompts.h"

/// Built-in samples, library lists and usage tables.

namespace {

/// An entry of a library list, chosen, becomes the library item of the session.
template <int Slot>
bool chooseentry() {
    const std::vector<std::string> entries = librarylist(Slot);
    if (entries.empty()) {
        tell(Word::No, " ", Word::Library, " ", Word::List);
        return false;
    }
    const int chosen = choosefrom({Word::Library}, entries);
    if (chosen < 0) return false;
    session.libraryItem = entries[static_cast<std::size_t>(chosen)];
    session.resultsDirty = 1; // the data file keeps it
    return true;
}

bool editcomments() {
    const std::string before = session.analysisComment;
    commentedit();
    if (session.analysisComment == before) return false;
    session.resultsDirty = 1;
    return true;
}

bool clearitem() {
    const bool changed = !session.libraryItem.empty() || !session.analysisComment.empty();
    session.libraryItem.clear();
    session.analysisComment.clear();
    if (changed) session.resultsDirty = 1;
    return changed;
}

/// The item goes to the clipboard as text.
bool copyitem() {
    if (platform && !platform->clipboard().settext(session.libraryItem))
        tell(Word::Cannot, " ", Word::Copy, " ", Word::To, " ", Word::Clipboard);
    return false;
}

/// A table takes the place of the data, which join the former results first.
bool openusage() {
    return formerfor([] {
        const uint64_t before = gridhash();
        usagemenu();
        return gridhash() != before;
    });
}

bool anyitem() { return !session.libraryItem.empty(); }

constexpr Item items[] = {
    actionitem('A', {Word::Activate, Word::To, Word::Clipboard}, copyitem).when(anyitem),
    actionitem('C', {Word::Comment, Word::Edit}, editcomments).shows([](std::string& text) {
        extend(text, "'", AsTyped{session.analysisComment}, "'");
    }),
    actionitem('D', {Word::Device}, chooseentry<0>),
    actionitem('E', {Word::Equipment}, chooseentry<1>),
    actionitem('F', {Word::Cause}, chooseentry<2>),
    actionitem('G', {Word::Usage}, chooseentry<3>),
    actionitem('H', {Word::Environment}, chooseentry<4>),
    actionitem('U', {Word::Usage, Word::Table}, openusage),
    actionitem('N', {Word::None, "...", Word::Reset, "/", Word::Clear, Word::Library, Word::Item}, clearitem),
    exititem('X', {Word::Exit, Word::To, Word::Main, Word::Display}),
};

void itemlead(std::string& text) {
    extend(text, Word::Library, " ", Word::Item, " = ", AsTyped{session.libraryItem});
}

constexpr Page pages[] = {{OptionPage::library, {Word::Library}, items, itemlead}};

/// The samples that have data, as the list shows them.
struct Listed {
    std::vector<int> numbers;
    std::vector<std::string> titles;
};
Listed listed() {
    Listed all;
    for (int number = 1; const Sample* const sample = sampledata(number); ++number) {
        all.numbers.push_back(number);
        all.titles.push_back(sampletitle(*sample));
    }
    return all;
}

} // namespace

std::span<const Page> librarypages() { return pages; }

bool samplepage() {
    const Listed samples = listed();
    const int chosen = choosefrom({Word::Demonstrate, "/", Word::Sample}, samples.titles);
    if (chosen < 0) return false;
    // What stands in the grid is not lost: it joins the former results first.
    return formerfor([&] { return sampleload(samples.numbers[static_cast<std::size_t>(chosen)]); });
}
