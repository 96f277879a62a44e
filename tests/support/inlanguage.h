#pragma once

#include <string_view>

#include "session/session.h"
#include "shell/languages.h"

/// The words of a language, in force from here to the end of the scope. By file or by name.
class InLanguage {
public:
    explicit InLanguage(std::string_view name) {
        const std::string_view file = languagefile(name);
        session.languageFile = file.empty() ? name : file;
        wordload();
    }
    ~InLanguage() {
        session.languageFile.clear();
        wordload();
    }
    InLanguage(const InLanguage&) = delete;
    InLanguage& operator=(const InLanguage&) = delete;
};
