#include "platform/system.h"

#include <algorithm>
#include <cctype>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "platform/paths.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

std::optional<std::string> variable(const char* name) {
    const char* const value = std::getenv(name);
    if (!value || !*value) return std::nullopt;
    return value;
}

char lower(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }

} // namespace

bool fitspattern(std::string_view name, std::string_view pattern) {
    std::size_t n = 0, p = 0;
    std::size_t star = std::string_view::npos, taken = 0;
    while (n < name.size()) {
        if (p < pattern.size() && (pattern[p] == '?' || lower(pattern[p]) == lower(name[n]))) {
            ++n;
            ++p;
        } else if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            taken = n;
        } else if (star != std::string_view::npos) {
            p = star + 1;
            n = ++taken;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

/// The names are those of Windows; each is answered with what stands for it here.
std::optional<std::string> NativeSystem::environment(std::string_view name) {
    const auto home = variable("HOME");
    const auto own = [](const std::string& native) { return ownpath(native); };
    if (name == "APPDATA") {
        if (const auto config = variable("XDG_CONFIG_HOME")) return own(*config);
        return home ? std::optional(own(*home + "/.config")) : std::nullopt;
    }
    if (name == "TEMP" || name == "TMP") {
        const auto folder = variable("TMPDIR");
        return own(folder ? *folder : "/tmp");
    }
    if (name == "HOMEDRIVE") return home ? std::optional<std::string>("") : std::nullopt;
    if (name == "HOMEPATH") return home ? std::optional(own(*home)) : std::nullopt;
    return variable(std::string(name).c_str());
}

std::string NativeSystem::programfile() {
    std::error_code error;
    const fs::path linked = fs::read_symlink("/proc/self/exe", error);
    return ownpath(error ? fs::absolute(startName, error).string() : linked.string());
}

bool NativeSystem::start(const std::string& program, std::span<const std::string> arguments) {
    const std::string file = nativepath(program);
    if (::access(file.c_str(), X_OK) != 0) return false;
    std::vector<std::string> words{file};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    for (std::string& word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    // Twice forked: the program belongs to nobody, and leaves no trace when it ends before this one.
    const pid_t child = ::fork();
    if (child < 0) return false;
    if (child == 0) {
        if (::fork() == 0) {
            ::setsid();
            ::execv(pointers[0], pointers.data());
        }
        ::_exit(0);
    }
    ::waitpid(child, nullptr, 0);
    return true;
}

std::string NativeSystem::numbertext(double value, int decimals) {
    // The environment's locale is in force for this one number, and "C" again behind it.
    std::setlocale(LC_NUMERIC, "");
    char text[64];
    std::snprintf(text, sizeof text, "%'.*f", decimals, value); // "'": with its thousands separator
    std::setlocale(LC_NUMERIC, "C");
    return text;
}

std::string NativeSystem::currentfolder() {
    std::error_code error;
    const fs::path folder = fs::current_path(error);
    return error ? std::string() : withbackslash(ownpath(folder.string()));
}

bool NativeSystem::enterfolder(const std::string& folder) {
    std::error_code error;
    fs::current_path(nativepath(folder), error);
    return !error;
}

bool NativeSystem::folderexists(const std::string& folder) {
    std::error_code error;
    return fs::is_directory(nativepath(folder), error);
}

bool NativeSystem::makefolder(const std::string& folder) {
    std::error_code error;
    fs::create_directories(nativepath(folder), error);
    return folderexists(folder);
}

bool NativeSystem::fileexists(const std::string& path) {
    std::error_code error;
    return fs::is_regular_file(nativepath(path), error);
}

bool NativeSystem::writable(const std::string& folder, const std::string& testname) {
    const std::string file = nativepath(withbackslash(folder) + testname);
    struct stat there {};
    if (::lstat(file.c_str(), &there) == 0) // somebody's own file, link or pipe of that name is left alone
        return S_ISREG(there.st_mode) && ::access(file.c_str(), W_OK) == 0;
    const int opened = ::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (opened < 0) return false;
    const bool written = ::write(opened, "x", 1) == 1;
    ::close(opened);
    ::unlink(file.c_str());
    return written;
}

std::vector<std::string> NativeSystem::files(const std::string& folder, std::string_view pattern) {
    std::vector<std::string> names;
    std::error_code error;
    // Other programs change the folder meanwhile: a step that fails ends the list, and throws nothing.
    for (fs::directory_iterator at(nativepath(folder.empty() ? "." : folder), error), end;
         !error && at != end; at.increment(error)) {
        std::error_code gone;
        const std::string found = at->path().filename().string();
        if (at->is_regular_file(gone) && fitspattern(found, pattern)) names.push_back(found);
    }
    std::sort(names.begin(), names.end());
    return names;
}

bool NativeSystem::removefile(const std::string& path) {
    std::error_code error;
    return fs::remove(nativepath(path), error);
}
