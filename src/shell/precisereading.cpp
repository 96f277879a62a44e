#include <string>

#include "data/numbertext.h"
#include "plot/shown.h"
#include "plot/transforms.h"
#include "session/session.h"
#include "shell/commandactions.h"
#include "shell/commandtable.h"
#include "shell/prompts.h"
#include "shell/words.h"

namespace {

constexpr double percent = 100;

int dataRow(int k) { return static_cast<int>(rowofset(static_cast<float>(k))); }

FamilyLine lineofset(int k) {
    FamilyLine line = currentline();
    line.eta = session.etaFit(dataRow(k), 1);
    line.beta = session.betaFit(dataRow(k), 1);
    return line;
}

/// Asks for a number; noAnswer on a cancel.
double ask(double preset) {
    const Keep keep{session.promptKind};
    session.promptKind = 1;
    session.ud = preset;
    numberpromptonplot();
    return session.ud;
}

/// Name of X in what is asked and told. Under a threshold it tells which scale is meant, as the Y title of
/// the plot does: the value is read on the plot's axis.
std::string xname(int k) {
    std::string name;
    compose(name, "X-", Word::Value);
    if (session.t0(k) != 0) extend(name, " - ", scalename());
    return name;
}

std::string number(double value) {
    std::string text;
    appendsignificant(text, value, 7);
    wordnumber(text);
    return text;
}

/// A probability in percent. Where its complement rounds to 1 the lines answer their end, 1e-300, which tells
/// no more than that the probability is below the spacing of the numbers there.
std::string share(double probability) {
    const bool atEnd = probability > 0 && probability <= 1e-300;
    return atEnd ? " < 2E-14 %" : " = " + number(probability * percent) + " %";
}

void tell(int k, double x, const Probability& at) {
    session.menuTitle = commandname(10);
    compose(session.msg, Word::Set, " ", k, "\n", xname(k), " = ", AsTyped{number(x)}, "\n", Word::Occurrence,
            AsTyped{share(at.p)}, "\n", Word::Reliability, AsTyped{share(at.q)});
    tellok();
}

/// The occurrence of the line at a value of X.
bool readatx(int k) {
    compose(session.msg, Word::Set, " ", k, ": ", xname(k));
    const double start = scaleshift(k);
    const double x = ask(session.etaFit(dataRow(k), 1) + start);
    if (x == noAnswer) return false;
    const bool before = !negdataok() && x <= start;
    tell(k, x, before ? Probability{} : probabilityofx(lineofset(k), x - start));
    return true;
}

/// The value of X at an occurrence in percent, above 0 and below 100; asked again beyond them.
bool readatpercent(int k) {
    double wanted = 10;
    do {
        compose(session.msg, Word::Set, " ", k, ": ", Word::Occurrence, " % (> 0 ... < 100)");
        wanted = ask(10);
        if (wanted == noAnswer) return false;
    } while (!(wanted > 0 && wanted < percent));
    const Probability at{wanted / percent, (percent - wanted) / percent};
    tell(k, quantileofp(lineofset(k), at.p, negdataok()) + scaleshift(k), at);
    return true;
}

} // namespace

void precisereading() {
    const int k = session.activeSet;
    if (session.progSide != lifeSide || k < 1 || k > setcount() || session.setFitted(k) != 1) {
        compose(session.menuTitle, Word::Data);
        compose(session.msg, Word::No, " ", Word::Fit, " ", Word::Line, ": ", Word::Set, " ", k);
        tellok();
        return;
    }
    for (;;) {
        menuclear();
        compose(session.menuItem[1], "A...", Word::Occurrence, " % ", Word::At, " X-", Word::Value);
        compose(session.menuItem[2], "B...X-", Word::Value, " ", Word::At, " ", Word::Occurrence, " %");
        compose(session.menuItem[3], "X...", Word::Exit);
        session.menuCount = 3;
        session.menuChoice = 1;
        session.menuTitle = commandname(10);
        compose(session.msg, Word::Precise, " ", Word::Reading, ": ", Word::Set, " ", k);
        menushow();
        const bool again = session.menuChoice == 1   ? readatx(k)
                           : session.menuChoice == 2 ? readatpercent(k)
                                                     : false;
        if (!again) return;
    }
}
