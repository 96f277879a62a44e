#include "platform/paths.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace {

constexpr std::string_view separators = "\\/";

bool hasdrive(std::string_view path) {
    return path.size() >= 2 && path[1] == ':' && std::isalpha(static_cast<unsigned char>(path[0]));
}

std::string variable(const char* name) {
    const char* const value = std::getenv(name);
    return value ? value : "";
}

/// Folder in which the drives lie, each a folder of its letter.
std::string drivesfolder() {
    const std::string data = variable("XDG_DATA_HOME");
    return (data.empty() ? variable("HOME") + "/.local/share" : data) + "/OmniVANEX/";
}

} // namespace

std::string nativepath(std::string_view own) {
    std::string path(own);
    if (path.find('\\') != std::string::npos) {
        std::error_code error;
        if (std::filesystem::exists(path, error)) return path;
    }
    std::replace(path.begin(), path.end(), '\\', '/');
    if (!hasdrive(path)) return path;
    const char drive = static_cast<char>(std::tolower(static_cast<unsigned char>(path[0])));
    std::string_view rest = std::string_view(path).substr(2);
    while (rest.starts_with('/')) rest.remove_prefix(1);
    return drivesfolder() + drive + "/" + std::string(rest);
}

std::string ownpath(std::string_view native) {
    std::string path(native);
    const std::string drives = drivesfolder();
    if (path.starts_with(drives) && path.size() > drives.size() + 1 && path[drives.size() + 1] == '/')
        path = std::string(1, path[drives.size()]) + ":" + path.substr(drives.size() + 1);
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

std::string withbackslash(std::string path) {
    if (!path.empty() && separators.find(path.back()) == std::string_view::npos) path += '\\';
    return path;
}

std::string folderof(std::string_view path) {
    const auto end = path.find_last_of(separators);
    if (end != std::string_view::npos) return std::string(path.substr(0, end + 1));
    return hasdrive(path) ? std::string(path.substr(0, 2)) : std::string();
}

std::string nameof(std::string_view path) { return std::string(path.substr(folderof(path).size())); }
