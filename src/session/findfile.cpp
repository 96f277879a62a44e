#include "session/findfile.h"

#include <algorithm>
#include <random>

#include "data/textpieces.h"
#include "platform/paths.h"
#include "platform/platform.h"
#include "session/session.h"
#include "shell/prompts.h"
#include "shell/words.h"

namespace {

constexpr const char* writeTest = "WV~CHK2B.TMP";

/// What a name begins or ends with, and the class it has by that. The first that fits holds.
struct ClassRule {
    std::string_view begin, end;
    FileClass kind;
};
constexpr ClassRule classRules[] = {
    {"", ".INI", FileClass::settings},  {"", ".TMP", FileClass::temporary}, {"GRID", "", FileClass::grid},
    {"AIAG", "", FileClass::samples},   {"LIB", "", FileClass::library},    {"", ".EXE", FileClass::program},
    {"VXLNG", "", FileClass::language}, {"", ".TXT", FileClass::text},
};

enum class Home : uint8_t { config, program, temp };

/// Names of the program's own and the folder they live in.
struct OwnName {
    std::string_view begin, end;
    Home home;
};
constexpr OwnName ownNames[] = {
    {"VANEX.INI", "VANEX.INI", Home::config},
    {"", ".EXE", Home::program},
    {"WV2RUDGE.RGD", "WV2RUDGE.RGD", Home::temp},
    {"WV2RUDGE.RGM", "WV2RUDGE.RGM", Home::temp},
    {"X.TMP", "X.TMP", Home::temp},
    {"RUDGE2WV.RGR", "RUDGE2WV.RGR", Home::temp},
    {"VX", ".TMP", Home::temp},
    {"LIBCMNT", "", Home::program},
    {"VXLNG", "", Home::program},
    {"VANEXLNG.", "", Home::program},
};

template <class Rule>
bool fits(std::string_view name, const Rule& rule) {
    return name.starts_with(rule.begin) && name.ends_with(rule.end);
}

/// A folder of the search: whole, or put behind the drive of the current folder ("?:\…").
constexpr const char* dataFolders[] = {"C:\\VANEXDAT", "?:\\VANEXDAT", "\\VANEXDAT"};
constexpr const char* standardFolders[] = {"C:\\VANEXW", "?:\\VANEXW", "\\VANEXW"};
constexpr const char* relatedFolders[] = {"C:\\RG", "C:\\RUDGE"};
constexpr const char* systemFolders[] = {"?:\\WINDOWS", "C:\\WINDOWS", "\\WINDOWS",
                                         "?:\\WINNT",   "C:\\WINNT",   "\\WINNT"};
constexpr const char* programFolders[] = {"C:\\PROGRAM FILES\\OMNIVANEX",
                                          "\\PROGRAM FILES\\OMNIVANEX",
                                          "C:\\PROGRAM FILES\\WEIBUll",
                                          "\\PROGRAM FILES\\WEIBUll",
                                          "C:\\PROGRAM FILES\\VISUAL",
                                          "\\PROGRAM FILES\\VISUAL",
                                          "C:\\PROGRAM FILES\\RUDGE",
                                          "\\PROGRAM FILES\\RUDGE",
                                          "C:\\PROGRAM FILES",
                                          "\\PROGRAM FILES"};

/// Gathers folders, each once, in order.
class FolderList {
public:
    explicit FolderList(std::string currentDrive) : drive(std::move(currentDrive)) {}

    void add(std::string_view folder) {
        std::string path(folder);
        if (path.starts_with("?:")) {
            if (drive.empty()) return; // a system without drives
            path.replace(0, 2, drive);
        }
        path = withbackslash(std::move(path));
        if (!path.empty() && std::find(list.begin(), list.end(), path) == list.end()) list.push_back(path);
    }
    template <std::size_t N>
    void add(const char* const (&folders)[N]) {
        for (const char* folder : folders) add(folder);
    }

    std::vector<std::string> list;

private:
    std::string drive;
};

std::string& remembered(FileClass kind) { return session.classFolder[static_cast<std::size_t>(kind)]; }

bool serves(const std::string& folder, const std::string& name, FileClass kind) {
    if (kind == FileClass::temporary) return platform->system().writable(folder, writeTest);
    return platform->system().fileexists(folder + name);
}

} // namespace

FileClass fileclass(std::string_view name) {
    const std::string upperName = uppercase(nameof(name));
    for (const ClassRule& rule : classRules)
        if (fits(upperName, rule)) return rule.kind;
    return FileClass::data;
}

std::vector<std::string> candidatefolders(FileClass kind) {
    const std::string current = platform ? platform->system().currentfolder() : std::string();
    FolderList folders(current.size() > 1 && current[1] == ':' ? current.substr(0, 2) : std::string());
    folders.add(remembered(kind));
    folders.add(session.programPath);
    folders.add(standardFolders);
    folders.add(session.startDir);
    folders.add(current);
    folders.add(dataFolders);
    folders.add(relatedFolders);
    for (std::string_view rest = session.extraPaths; !rest.empty();) {
        const auto end = std::min(rest.find(';'), rest.size());
        folders.add(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    folders.add(systemFolders);
    folders.add(programFolders);
    return folders.list;
}

std::string pathofname(std::string_view name) {
    const std::string upperName = uppercase(nameof(name));
    for (const OwnName& own : ownNames)
        if (fits(upperName, own))
            return (own.home == Home::config    ? session.configPath
                    : own.home == Home::program ? session.programPath
                                                : session.tempPath)
                   + nameof(name);
    return {};
}

bool findfilequietly() {
    const std::string asked = session.msg;
    session.msg.clear();
    if (asked.empty() || !platform) return false;
    const std::string own = pathofname(asked);
    for (const std::string& whole : {asked, own})
        if (!whole.empty() && !folderof(whole).empty() && platform->system().fileexists(whole)) {
            session.msg = whole;
            return true;
        }
    const FileClass kind = fileclass(asked);
    const std::string name = nameof(asked);
    if (kind == FileClass::temporary && !own.empty() && serves(folderof(own), name, kind)) {
        session.msg = own;
        return true;
    }
    for (const std::string& folder : candidatefolders(kind)) {
        if (!serves(folder, name, kind)) continue;
        remembered(kind) = folder;
        session.msg = folder + name;
        return true;
    }
    return false;
}

bool findfile() {
    if (findfilequietly()) return true;
    compose(session.msg, "Please Make C:\\VANEXW Path");
    tellok();
    session.msg.clear();
    return false;
}

void newtempbase() {
    do {
        session.tempBase = "VX" + std::to_string(1000000 + std::random_device{}() % 1000000); // of one length
    } while (platform && !platform->system().files(session.tempPath, session.tempBase + "*").empty());
    session.undoFile = temppath("-1.tmp");
}

std::string temppath(std::string_view ending) {
    return session.tempPath + session.tempBase + std::string(ending);
}

void removetemporaries() {
    if (!platform || session.tempBase.empty()) return;
    for (const std::string& name : platform->system().files(session.tempPath, session.tempBase + "-*.tmp"))
        platform->system().removefile(session.tempPath + name);
}
