#pragma once

#include "session/session.h"

/// Holds off further events while a command runs.
class ShellBusy {
public:
    ShellBusy() { ++session.shellBusy; }
    ~ShellBusy() { --session.shellBusy; }
    ShellBusy(const ShellBusy&) = delete;
    ShellBusy& operator=(const ShellBusy&) = delete;
};
