#pragma once

#include <utility>

#include "platform/platform.h"

/// The machine the program runs on, for every platform that has no reason to pretend another.
class NativeSystem : public System {
public:
    /// The name by which the program was started: where the system does not tell the file, the name does.
    explicit NativeSystem(std::string startedAs = {}) : startName(std::move(startedAs)) {}

    std::optional<std::string> environment(std::string_view variable) override;
    std::string numbertext(double value, int decimals) override;
    std::string programfile() override;
    std::string currentfolder() override;
    bool enterfolder(const std::string& folder) override;
    bool makefolder(const std::string& folder) override;
    bool folderexists(const std::string& folder) override;
    bool fileexists(const std::string& path) override;
    bool writable(const std::string& folder, const std::string& testname) override;
    std::vector<std::string> files(const std::string& folder, std::string_view pattern) override;
    bool removefile(const std::string& path) override;
    bool start(const std::string& program, std::span<const std::string> arguments) override;

private:
    std::string startName;
};

/// True when the name fits a pattern with "*" (any run of characters) and "?" (any one); case does not
/// matter, as file names are compared where the patterns come from.
bool fitspattern(std::string_view name, std::string_view pattern);
