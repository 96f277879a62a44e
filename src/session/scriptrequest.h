#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// A script request: what a run without a user is to do.
///
///   [ TAG {settings} METHOD [file] [file] commands ]
///
/// TAG "VXV" the visual side, "WVW" the life side; without one the side stays. Settings are switches of the
/// command line and options "name=value", blanks between them. METHOD, on the life side, a code of the
/// bounds: BN none, BV a single point, BI, FM, LR, MC, PV, NC. Files stand in brackets of their own;
/// "CLIPBOARD" is the clipboard. Commands are letters, alone or packed ("PD"), or the words of single values,
/// each with the file for its output behind it: a text with a ".", "\" or "/" in it, or in quotes.
///
/// A last C behind another command starts the clipboard helper. So a last D deletes the input when all is
/// done, where every input is a temporary file (".tmp") that one program left for another; behind other
/// files it is the command for the data. "@name" is a script file.
struct ScriptCommand {
    std::string word; ///< capital letters: "P", "MTBF"
    std::string file; ///< empty: the clipboard
};

struct ScriptRequest {
    char side = 0; ///< 'V' or 'W'; 0 as it is
    std::string settings;
    std::string method;
    std::vector<std::string> files;
    std::vector<ScriptCommand> commands;
    bool deleteInput = false;
    bool clipboardHelper = false;
    std::string scriptFile;
};

/// The codes of the bounds and the confMethod that each stands for.
struct BoundCode {
    std::string_view code;
    int16_t confMethod;
};
std::span<const BoundCode> boundcodes();

/// Reads a request. Nothing for a text that is none; msg then holds what is wrong with it.
std::optional<ScriptRequest> requestof(std::string_view text);

/// A script file: "WV-SCRIPT" on its first line, then one "NAME=value" a line. FILE= names an input and may
/// stand again for further ones. BVALUEIN%= a B level in percent, BVALUEOUTFILE= the file for its answer,
/// RISKINUSAGE= the usage of the risk run, RISKNEXTOUTFILE= the file for the next-period answer. A line
/// "index:value" sets a further value of the series named last, at that index from 1 ("2:50" behind
/// BVALUEIN%=10 asks for B50 as well). Empty lines count for nothing.
struct ScriptFile {
    std::vector<std::string> files;
    std::vector<double> bLevels;
    std::string bLevelFile;
    std::vector<double> usages;
    std::string riskFile;
};

/// Nothing for a text that is no script file; msg then holds the line that is wrong.
std::optional<ScriptFile> scriptfileof(std::string_view text);
