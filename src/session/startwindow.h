#pragma once

#include <string>
#include <vector>

/// What the start window says, in the language in force, and what it can change.

struct StartTexts {
    std::string product; ///< name and version
    std::string strap;
    std::vector<std::string> authors; ///< lines
    std::vector<std::string> advisor;
    std::vector<std::string> address;
    std::vector<std::string> disclaimer;
    std::string agree, exit, ok;
    std::vector<std::string> features; ///< lines of the title picture
    std::string language;              ///< its last line: a press there asks for the language
};
StartTexts starttexts();

/// Asks for the language. True when another one was chosen: it is saved, and start-up has gone through again.
bool choosestartlanguage();
