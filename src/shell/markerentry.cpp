#include "shell/markerentry.h"

#include <string>

#include "data/numbertext.h"
#include "plot/markerline.h"
#include "session/session.h"
#include "shell/prompts.h"
#include "shell/words.h"

namespace {

constexpr int digits = 5; ///< of the parameters in a label

template <class... Parts>
bool refuse(const Parts&... parts) {
    const Keep keep{session.msg, session.menuTitle};
    session.menuTitle.clear();
    compose(session.msg, parts...);
    tellok();
    return false;
}

std::string parametertext(const FamilyLine& line) {
    std::string text;
    extend(text, parametername(session.dist, 1), "=");
    appendsignificant(text, line.eta, digits);
    extend(text, " ", parametername(session.dist, 2), "=");
    appendsignificant(text, line.beta, digits);
    wordclean(text);
    return text;
}

} // namespace

bool markerkeep(const FamilyLine& line) {
    if (!(line.beta > 0)) return refuse(Word::Line, " ", Word::Not, " ", Word::Possible);
    const std::string parameters = parametertext(line);
    compose(session.msg, Word::Marker, " ", Word::Line, " ", Word::Label, " (", AsTyped{parameters}, ")");
    textprompt();
    const std::string label = session.msg == noAnswerText || session.msg.empty() ? parameters : session.msg;
    if (markeradd(line.eta, line.beta, label) != 0) return true;
    return refuse(Word::Marker, " ", Word::Line, " ", Word::Quantity, " ", Word::Too, " ", Word::Big);
}
