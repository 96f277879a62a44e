#include "expression/functionedit.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "data/textpieces.h"
#include "expression/functionfile.h"
#include "expression/functionnotices.h"
#include "expression/functionrun.h"
#include "expression/functiontext.h"
#include "expression/program.h"
#include "expression/tokens.h"
#include "platform/platform.h"
#include "session/session.h"
#include "shell/prompts.h"

namespace {

constexpr std::string_view resetKey = "R:";
constexpr std::string_view numberKey = "N:";
constexpr std::string_view ending = ".fun";
constexpr std::size_t shownEnd = 500;  ///< of a long function its end is shown
constexpr std::size_t shownTyped = 60; ///< of typed text in a message

/// The keypad: the two keys, then every token that has a text of its own.
std::vector<std::string> keypad() {
    std::vector<std::string> list(2);
    extend(list[0], resetKey, Word::Reset);
    extend(list[1], numberKey, Word::Value);
    for (const Token& token : tokens())
        if (token.kind != TokenKind::number) list.emplace_back(tokentext(token, session.functionMode));
    return list;
}

/// Asks for a text with a list to choose from; nothing on a cancel. What was typed before stays as it was.
std::optional<std::string> asktext(std::vector<std::string> choices) {
    const Keep keep{session.recentTexts};
    session.recentTexts = std::move(choices);
    textprompt();
    if (session.msg == noAnswerText) return std::nullopt;
    return session.msg;
}

/// Asks for a number in ud; false on a cancel. The lead stands in msg.
bool asknumber(double preset, int16_t kind) {
    const Keep keep{session.promptKind};
    session.promptKind = kind;
    session.promptMin = static_cast<float>(noLowLimit);
    session.promptMax = noHighLimit;
    session.ud = preset;
    session.u = static_cast<float>(preset);
    numberprompt();
    return session.ud != noAnswer;
}

void appendliteral(double value) {
    session.fcode += "00";
    session.flits.resize(functionliterals().size() + 1);
    session.flits.push_back(value);
    session.flitcount = static_cast<float>(session.flits.size() - 1);
}

FunctionProgram programnow() {
    return functionprogram(session.fcode, functionliterals(), session.modSetting);
}

bool cangoon(FunctionFault fault) {
    return fault == FunctionFault::none || fault == FunctionFault::unfinished;
}

void tellbadtext(std::string_view typed) {
    std::string shown(typed.substr(0, shownTyped));
    for (char& c : shown)
        if (c < ' ' || c > '~') c = '?';
    compose(session.msg, Word::Bad, " ", Word::Function, ": ", AsTyped{shown});
    tellok();
}

void reset() {
    session.fcode.clear();
    session.flits = {0};
    session.flitcount = 0;
}

/// Asks for a number and appends it, where one may stand.
void enternumber() {
    compose(session.msg, Word::Value);
    if (!asknumber(0, 1)) return;
    if (programnow().operandNext)
        appendliteral(session.ud);
    else
        tellbadtext(numberKey);
}

/// What the entry shows: the end of the function, and the two keys.
void composelead() {
    std::string line = functionline();
    if (line.size() > shownEnd) line = "... " + line.substr(line.size() - shownEnd);
    compose(session.msg, AsTyped{line}, lineBreak, resetKey, Word::Reset, "  ", numberKey, Word::Value);
}

/// Takes one entry.
void takeentry(const std::string& typed) {
    const std::string upper = uppercase(typed.substr(0, resetKey.size()));
    if (upper == resetKey)
        reset();
    else if (upper == numberKey)
        enternumber();
    else if (!functionappend(typed))
        tellbadtext(typed);
}

/// The function is complete; told when it is not.
bool finished() {
    const FunctionProgram program = programnow();
    tellfunctionfault(program);
    return program.fault == FunctionFault::none;
}

std::string withending(std::string name) {
    if (lowercase(name).ends_with(ending)) return name;
    return name += ending;
}

/// True when no file of the name stands there, or it may be written over.
bool mayreplace(const std::string& name) {
    if (!platform || !platform->system().fileexists(name)) return true;
    compose(session.msg, Word::File, " ", Word::Already, " ", Word::Saved, ": ", AsTyped{name}, " ... ",
            Word::Change);
    askyesno();
    return session.u == 1;
}

} // namespace

std::string functionline() {
    std::string line = functiontext(session.fcode, functionliterals(), session.functionMode);
    wordnumber(line);
    return (givesx(session.functionMode) ? " X = " : " Y = ") + line;
}

bool functionappend(std::string_view typed) {
    const auto found = typedtokens(typed, session.functionMode, programnow().operandNext);
    if (!found) return false;
    const std::string fcode = session.fcode + found->fcode;
    const auto present = functionliterals();
    std::vector<double> literals(present.begin(), present.end());
    literals.insert(literals.end(), found->literals.begin(), found->literals.end());
    if (!cangoon(functionprogram(fcode, literals, session.modSetting).fault)) return false;
    session.fcode = fcode;
    literals.insert(literals.begin(), 0);
    session.flits = std::move(literals);
    session.flitcount = static_cast<float>(session.flits.size() - 1);
    return true;
}

bool functionedit() {
    Expression before = session;
    for (;;) {
        composelead();
        const auto typed = asktext(keypad());
        if (!typed) {
            static_cast<Expression&>(session) = std::move(before);
            return false;
        }
        if (!trimmed(*typed).empty())
            takeentry(std::string(trimmed(*typed)));
        else if (finished())
            break;
    }
    functionkeep();
    functionsaveoffer();
    return true;
}

bool functionrange() {
    for (;;) {
        compose(session.msg, Word::Range, " ... X-", Word::Minimum);
        if (!asknumber(session.fxlow, 0)) return false;
        const float first = session.u;
        compose(session.msg, "X-", Word::Maximum);
        if (!asknumber(session.fxhigh, 0)) return false;
        const float second = session.u;
        if (first == second) {
            compose(session.msg, "X-", Word::Minimum, " = X-", Word::Maximum);
            askyesno();
            if (session.u != 1) continue;
        }
        session.fxlow = std::min(first, second);
        session.fxhigh = std::max(first, second);
        return true;
    }
}

bool functionk() {
    compose(session.msg, "k = ", session.fk, "...", Word::New, " k-", Word::Value);
    if (!asknumber(session.fk, 0)) return false;
    session.fk = session.u;
    return true;
}

bool functionsaveoffer() {
    compose(session.msg, Word::Function, " ", Word::Save, " ", Word::To, " ", Word::File);
    askyesno();
    if (session.u != 1) return false;
    compose(session.msg, Word::File, " ", Word::Name);
    const auto typed = asktext({"x.fun"});
    if (!typed || trimmed(*typed).empty()) return false;
    const std::string name = withending(std::string(trimmed(*typed)));
    return mayreplace(name) && functionsave(name);
}
