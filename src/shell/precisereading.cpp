#include <cmath>

#include "data/numbertext.h"
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

void tell(int k, double x, double occurrence) {
    session.menuTitle = commandname(10);
    std::string xText, pText, rText;
    appendtrimmed(xText, static_cast<float>(x));
    appendtrimmed(pText, static_cast<float>(occurrence * percent));
    appendtrimmed(rText, static_cast<float>((1 - occurrence) * percent));
    for (std::string* text : {&xText, &pText, &rText}) wordnumber(*text);
    compose(session.msg, Word::Set, " ", k, "\n", "X-", Word::Value, " = ", AsTyped{xText}, "\n",
            Word::Occurrence, " = ", AsTyped{pText}, " %\n", Word::Reliability, " = ", AsTyped{rText}, " %");
    tellok();
}

/// The occurrence of the line at a value of X.
bool readatx(int k) {
    compose(session.msg, Word::Set, " ", k, ": X-", Word::Value);
    const double x = ask(session.etaFit(dataRow(k), 1) + session.t0(k));
    if (x == noAnswer) return false;
    const bool before = !negdataok() && x <= session.t0(k);
    tell(k, x, before ? 0 : probabilityofx(lineofset(k), x - session.t0(k)).p);
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
    const double p = wanted / percent;
    tell(k, quantileofp(lineofset(k), p, negdataok()) + session.t0(k), p);
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
