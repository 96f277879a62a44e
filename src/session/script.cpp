#include "session/script.h"

#include <algorithm>

#include "curvefit/curvewords.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "session/commandline.h"
#include "session/followups.h"
#include "session/opendata.h"
#include "session/scriptoutput.h"
#include "session/scriptrequest.h"
#include "session/session.h"
#include "session/settings.h"
#include "session/siblings.h"
#include "session/sizing.h"
#include "session/switches.h"
#include "shell/calcplot.h"
#include "shell/words.h"

namespace {

void takemethod(const std::string& code) {
    for (const BoundCode& known : boundcodes()) {
        if (known.code != code) continue;
        session.confMethod = known.confMethod;
        session.confAuto = 0;
        const bool sided = session.confLow > 0 || session.confHigh > 0;
        if (known.confMethod != noBounds && !sided) {
            session.confLow = 5;
            session.confHigh = 95;
        }
    }
}

/// Switches that a request cannot take any more: the folders, the side and the arrays are settled.
bool toolate(std::string_view switches) {
    for (const SwitchText& one : switchsplit(switches))
        if (std::string_view("ctprash").find(one.letter) != std::string_view::npos) {
            compose(session.msg, Word::Unknown, ": -", one.letter, " ", AsTyped{one.value});
            return true;
        }
    return false;
}

/// Takes the switches of a request. False with the word that is no switch, or has a wrong value, in msg.
bool takeswitches(const std::string& switches) {
    if (toolate(switches)) return false;
    const Keep keep{session.cmdFile, session.scriptRequest};
    session.cmdFile.clear();
    const std::size_t notes = session.cmdNotes.size();
    if (!cmdparse(std::string_view(switches))) return false;
    if (session.cmdNotes.size() > notes) {
        session.msg = session.cmdNotes.back();
        session.cmdNotes.pop_back();
        return false;
    }
    if (!session.cmdFile.empty()) {
        compose(session.msg, Word::Unknown, ": ", AsTyped{session.cmdFile});
        return false;
    }
    cmdapply();
    return true;
}

/// The settings of a request: switches, and options by name. False with the one that is wrong in msg.
bool takesettings(const std::string& settings) {
    std::string switches;
    std::string_view rest = settings;
    while (!rest.empty()) {
        const auto end = std::min(rest.find_first_of(" \t;"), rest.size());
        std::string_view word = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        const auto equals = word.find('=');
        const CurveWord curve = curveword(word);
        if (curve == CurveWord::taken) continue;
        if (curve == CurveWord::wrong) {
            compose(session.msg, Word::Unknown, ": ", AsTyped{word});
            return false;
        }
        const bool named = equals != std::string_view::npos && !word.starts_with('-');
        if (!named) {
            switches.append(" ").append(word);
            continue;
        }
        if (word.ends_with(',')) word.remove_suffix(1);
        if (!settingset(word.substr(0, equals), word.substr(equals + 1))) {
            compose(session.msg, Word::Unknown, ": ", AsTyped{word});
            return false;
        }
    }
    return takeswitches(switches);
}

/// Reads the inputs one behind another; one without data gives way to the clipboard.
bool readinputs(const std::vector<std::string>& files) {
    bool further = false;
    for (const std::string& file : files) {
        DataRead read = opendata(file, further);
        if (read == DataRead::empty && file != "CLIPBOARD") read = opendata("CLIPBOARD", further);
        if (read == DataRead::refused) return scripterror(session.msg, ScriptHint::commandline);
        if (read != DataRead::read) {
            compose(session.msg, Word::Cannot, " ", Word::Open, " ", Word::File, ": ", AsTyped{file});
            return scripterror(session.msg, ScriptHint::filename);
        }
        further = true;
    }
    if (roomfor(longestcolumn())) return true;
    compose(session.msg, Word::Not, " ", Word::Enough, " ", Word::Free, " ", Word::Memory);
    return scripterror(session.msg, ScriptHint::filename);
}

bool calculate() {
    calcplot();
    followups();
    if (anyresult()) return true;
    std::string text = " No Plot.";
    for (const auto& messages : session.setMessages)
        for (const std::string& message : messages) text += "\n" + message;
    return scripterror(text, ScriptHint::filename);
}

bool runrequest(const ScriptRequest& request) {
    if (!takesettings(request.settings)) return scripterror(session.msg, ScriptHint::commandline);
    takemethod(request.method);
    std::vector<std::string> files = request.files;
    if (files.empty() && !session.cmdFile.empty()) files.push_back(session.cmdFile);
    if (files.empty() && !session.lastFile.empty())
        files.push_back(session.lastFile); // what waits in the settings
    if (files.empty()) files.emplace_back("CLIPBOARD");
    if (!readinputs(files)) return false;
    // What the request says holds against the options that came with a data file.
    if (session.dataFileRead != 0 && !takesettings(request.settings))
        return scripterror(session.msg, ScriptHint::commandline);
    if (session.dataFileRead != 0) takemethod(request.method);
    if (!calculate()) return false;
    for (const ScriptCommand& command : request.commands)
        if (!scriptoutput(command))
            return scripterror(session.msg,
                               command.file.empty() ? ScriptHint::commandline : ScriptHint::filename);
    if (request.deleteInput)
        for (const std::string& file : files)
            if (file != "CLIPBOARD" && file != "-") platform->system().removefile(file);
    if (request.clipboardHelper && !spawn("clipbrd.exe", {})) {
        compose(session.msg, Word::Cannot, " ", Word::Open, " ", Word::File, ": clipbrd.exe");
        return scripterror(session.msg, ScriptHint::filename);
    }
    return true;
}

// ---- script files ----

bool answer(const std::string& file, const std::string& text) {
    const bool written =
        file.empty() ? platform && platform->clipboard().settext(text) : writefile(file, text);
    if (written) return true;
    compose(session.msg, Word::Cannot, " ", Word::Save, " ", Word::File, ": ", AsTyped{file});
    return scripterror(session.msg, ScriptHint::filename);
}

bool runfile(const std::string& name) {
    const auto text = readregular(name);
    if (!text) {
        compose(session.msg, Word::Cannot, " ", Word::Open, " ", Word::File, ": ", AsTyped{name});
        return scripterror(session.msg, ScriptHint::filename);
    }
    const auto script = scriptfileof(*text);
    if (!script) return scripterror(session.msg, ScriptHint::commandline);
    if (script->files.empty()) {
        compose(session.msg, Word::No, " ", Word::File, " ", Word::Name);
        return scripterror(session.msg, ScriptHint::commandline);
    }
    std::string blives, risk;
    for (const std::string& file : script->files) {
        if (!readinputs({file}) || !calculate()) return false;
        blives += blifelines(script->bLevels);
        // The forecast is no part of this version: each usage asked for is answered by no value.
        for (std::size_t i = 0; i < script->usages.size(); ++i) risk.append(noAnswerText).append("\n");
    }
    if (!script->bLevels.empty() && !answer(script->bLevelFile, blives)) return false;
    return script->usages.empty() || answer(script->riskFile, risk);
}

} // namespace

bool scripterror(const std::string& text, ScriptHint hint) {
    std::string whole = (text.starts_with(' ') ? "KXQM err:" : "KXQM err: ") + text + "\n";
    wordclean(whole);
    whole += hint == ScriptHint::filename ? "Check file/path name." : "Check command line.";
    if (platform) {
        platform->prompts().message(session.productName, whole);
        platform->clipboard().settext(whole + "\n");
    }
    return false;
}

bool scriptrun() {
    const auto request = requestof(session.scriptRequest);
    if (!request) return scripterror(session.msg, ScriptHint::commandline);
    if (!request->scriptFile.empty()) return runfile(request->scriptFile);
    return runrequest(*request);
}
