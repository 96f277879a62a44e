#pragma once

#include <string>
#include <vector>

#include "numeric/matherror.h"

/// Collects what the number routines tell, from here to the end of the scope.
class Told {
public:
    Told() : before(tellmatherror) {
        texts().clear();
        tellmatherror = [](std::string_view text) { texts().emplace_back(text); };
    }
    ~Told() { tellmatherror = before; }
    Told(const Told&) = delete;
    Told& operator=(const Told&) = delete;

    static std::vector<std::string>& texts() {
        static std::vector<std::string> told;
        return told;
    }

private:
    MathErrorTeller before;
};
