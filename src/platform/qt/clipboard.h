#pragma once

#include "platform/platform.h"

/// The clipboard of the desktop.
class DesktopClipboard : public Clipboard {
public:
    std::optional<std::string> text() override;
    /// False when another program keeps the clipboard for itself.
    bool settext(std::string_view text) override;
    /// Offered as the vector picture and, for programs that take none, as pixels.
    bool setpicture(std::string_view svg) override { return setboth({}, svg); }
    bool setboth(std::string_view text, std::string_view svg) override;
};
