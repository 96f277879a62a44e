#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

/// A folder of its own for a test, gone with it.
class WorkFolder {
public:
    WorkFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "vanex-XXXXXX").string();
        root = mkdtemp(name.data());
    }
    ~WorkFolder() { std::filesystem::remove_all(root); }
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;

    std::string path(const std::string& name) const { return (root / name).string(); }
    std::string write(const std::string& name, const std::string& text) const {
        std::ofstream(root / name, std::ios::binary) << text;
        return path(name);
    }
    std::string text(const std::string& name) const {
        std::ostringstream text;
        text << std::ifstream(root / name, std::ios::binary).rdbuf();
        return text.str();
    }
    bool has(const std::string& name) const { return std::filesystem::exists(root / name); }
    std::vector<std::string> names() const {
        std::vector<std::string> list;
        for (const auto& entry : std::filesystem::directory_iterator(root))
            list.push_back(entry.path().filename().string());
        return list;
    }

private:
    std::filesystem::path root;
};
