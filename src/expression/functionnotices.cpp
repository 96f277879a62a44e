#include "expression/functionnotices.h"

#include <string>

#include "data/numbertext.h"
#include "numeric/matherror.h"
#include "session/session.h"
#include "shell/prompts.h"

void RowFailures::add(int fault, double row) {
    Rows& rows = kinds[fault];
    if (rows.count++ == 0) rows.first = row;
    rows.last = row;
}

void RowFailures::tell(int set) const {
    const Keep keep{session.msg, session.menuTitle};
    session.menuTitle.clear();
    for (const auto& [fault, rows] : kinds) {
        std::string place = " j=";
        appendtrimmed(place, rows.first);
        if (rows.count > 1) appendtrimmed(place += " ... ", rows.last);
        if (rows.count > 1) appendtrimmed(place += " n=", rows.count);
        if (fault == outsideRange) {
            compose(session.msg, Word::Set, " ", set, ": ", Word::Outside, " ", Word::Input, " ", Word::Range,
                    " ...", place);
            tellok();
            continue;
        }
        session.msg = "functionrow" + place + " ";
        if (fault == inputChecked) (session.msg += matherrortext(MathError::invalidInput)) += ' ';
        if (tellfault) tellfault(fault);
    }
}

void RowsWithout::tell(int set) const {
    if (rows == 0) return;
    const Keep keep{session.msg, session.menuTitle};
    session.menuTitle.clear();
    compose(session.msg, Word::Set, " ", set, ": ", Word::No, " ", Word::Results, " (", rows, ") ... ",
            Word::Row, " ", static_cast<int>(first + 1));
    tellok();
}

void tellfunctionfault(const FunctionProgram& program) {
    const Keep keep{session.msg, session.menuTitle};
    session.menuTitle.clear();
    const auto place = static_cast<int>(program.place) + 1;
    switch (program.fault) {
    case FunctionFault::none: return;
    case FunctionFault::empty: compose(session.msg, Word::No, " ", Word::Function); break;
    case FunctionFault::malformed:
        compose(session.msg, Word::Function, ": ", Word::Error, " (", place, ")");
        break;
    case FunctionFault::unfinished:
        compose(session.msg, Word::Function, ": ", Word::Not, " ", Word::Done);
        break;
    case FunctionFault::tooDeep:
        compose(session.msg, Word::Function, ": ", Word::Too, " ", Word::Big, " (", place, ")");
        break;
    case FunctionFault::noLiteral:
        compose(session.msg, Word::Function, ": ", Word::No, " ", Word::Value);
        break;
    }
    tellok();
}

void telltwodimensional(int set) {
    const Keep keep{session.msg, session.menuTitle};
    session.menuTitle.clear();
    compose(session.msg, Word::Set, " ", set, " ... <> 2D!");
    tellok();
}

void tellnotarget() {
    const Keep keep{session.msg};
    session.msg = "functionrun ";
    if (tellfault) tellfault(indexFault);
}
