// The questions about a new cell's form, asked before it is stored.

#include "data/cell.h"
#include "data/numbertext.h"
#include "session/session.h"
#include "shell/prompts.h"

namespace {

/// What the text of a cell tells about the input form that it was written for.
struct Form {
    bool separated = false;     ///< fields stand beside X
    bool needsInterval = false; ///< a mark or sentinel that only the interval form reads
    bool hasSentinel = false;   ///< any sentinel or mark
};

/// The fourth field of a cell, empty when there are fewer.
std::string_view fourthfield(std::string_view cell, std::string_view separators) {
    for (int passed = 0; passed < 3; ++passed) {
        const auto at = cell.find_first_of(separators);
        if (at == std::string_view::npos) return {};
        cell.remove_prefix(at + 1);
    }
    return cell;
}

Form formof(std::string_view text) {
    std::string_view cell = text.substr(0, text.find('_'));
    cell = cell.substr(0, cell.find_first_of("\r\n\t"));
    const auto holds = [cell](std::string_view part) { return cell.find(part) != std::string_view::npos; };
    const std::string_view separators = cell.find_first_of("xX") != std::string_view::npos ? "xX" : "*";
    const bool leftMarked = readentry(fourthfield(cell, separators)).value < -2.8e29 || holds("<");
    Form form;
    form.separated = cell.find_first_of(separators) != std::string_view::npos;
    form.needsInterval = leftMarked || holds("2.9E+29");
    form.hasSentinel = form.needsInterval || holds("3.3E+33") || holds(">");
    return form;
}

bool offerintervalplot() {
    compose(session.msg, Word::Input, " ", Word::Method, " ", Word::Present, " ", Word::Standard, " ... ",
            Word::Change, " ", Word::To, " ", Word::Interval);
    askyesno();
    if (session.u != 1) return false;
    session.intervalPlot = 1;
    session.replotNeeded = 1;
    return true;
}

bool offerintervaldata() {
    compose(session.msg, Word::Change, " ", Word::To, " mle ", Word::Interval, " ", Word::Data);
    askyesno();
    if (session.u != 1) return false;
    session.inputType = intv5;
    session.fitMethod = session.fitMethodSaved = maximumLikelihood;
    session.mleVariant = 0;
    return true;
}

/// The forms whose cells have more than one field; the first line is that of form 2.
bool chooseform() {
    menuclear();
    auto& item = session.menuItem;
    compose(item[1], "2...", Word::Probit, "-2 (", Word::Cumulative, " ", Word::Affected, " ", Word::Quantity,
            " x ", Word::Sample, " ", Word::Size, ")");
    compose(item[2], "3...", Word::Probit, "-3 (", Word::Cumulative, " ", Word::Percent, " x ", Word::Sample,
            " ", Word::Size, ")");
    compose(item[3], "4...Kaplan-Meier ", Word::Grouped);
    compose(item[4], "5...", Word::Interval);
    compose(item[5], "X...", Word::Exit);
    session.menuCount = 5;
    session.menuChoice = 0;
    compose(session.msg, Word::Input, " ", Word::Method);
    menushow();
    if (session.menuChoice < 1 || session.menuChoice > 4) return false;
    session.inputType = static_cast<int16_t>(session.menuChoice + 1);
    return true;
}

bool grouped(int16_t inputType) { return inputType == prbt2 || inputType == prbt3 || inputType == km4; }

} // namespace

bool cellformcheck() {
    if (session.noPrompt == 1 || !session.scriptRequest.empty()) return false;
    const Form form = formof(session.msg);
    Keep keep{session.msg, session.u};
    if (session.progSide == visualSide)
        return form.hasSentinel && session.intervalPlot == 0 && offerintervalplot();
    if (session.progSide != lifeSide || grouped(session.inputType) || session.inputType == intv5)
        return false;
    if (form.needsInterval && offerintervaldata()) return true;
    return form.separated && chooseform();
}
