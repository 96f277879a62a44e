#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/paths.h"
#include "platform/system.h"

/// A machine that has just what a test gives it: nothing to begin with.
class FakeSystem : public System {
public:
    struct Started {
        std::string program;
        std::vector<std::string> arguments;
    };
    std::map<std::string, std::string, std::less<>> variables;
    std::string decimal = ".", group; ///< of the system's number format
    std::string program = "c:\\prog\\vanex.exe";
    std::string current = "c:\\work\\";
    std::set<std::string> folders;   ///< that can be written, each with its closing "\"
    std::set<std::string> present;   ///< files, whole paths
    std::vector<std::string> tested; ///< folders and names of the write tests, in order
    std::vector<std::string> removed, made;
    std::vector<Started> started;

    std::optional<std::string> environment(std::string_view name) override {
        const auto found = variables.find(name);
        return found == variables.end() ? std::nullopt : std::optional(found->second);
    }
    std::string numbertext(double value, int) override {
        return value < 1000 ? "1" + decimal + "5" : "1" + group + "000";
    }
    std::string programfile() override { return program; }
    std::string currentfolder() override { return current; }
    bool enterfolder(const std::string& folder) override {
        current = folder;
        return true;
    }
    bool makefolder(const std::string& folder) override {
        made.push_back(folder);
        return false;
    }
    bool folderexists(const std::string& folder) override { return folders.contains(withbackslash(folder)); }
    bool fileexists(const std::string& path) override { return present.contains(path); }
    bool writable(const std::string& folder, const std::string& testname) override {
        tested.push_back(folder + testname);
        return folders.contains(folder);
    }
    std::vector<std::string> files(const std::string& folder, std::string_view pattern) override {
        std::vector<std::string> names;
        for (const std::string& path : present)
            if (folderof(path) == folder && fitspattern(nameof(path), pattern)) names.push_back(nameof(path));
        return names;
    }
    bool removefile(const std::string& path) override {
        removed.push_back(path);
        return present.erase(path) > 0;
    }
    bool start(const std::string& name, std::span<const std::string> arguments) override {
        started.push_back({name, {arguments.begin(), arguments.end()}});
        return present.contains(name);
    }
};
