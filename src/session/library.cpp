#include "session/library.h"

#include <algorithm>

#include "data/textpieces.h"
#include "data/utf8.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/platform.h"
#include "session/findfile.h"
#include "session/session.h"

namespace {

constexpr const char* writeTest = "WV~CHK2B.TMP";

constexpr const char* libraryFiles[librarySlots] = {"libdevce.txt", "libequip.txt", "libcause.txt",
                                                    "libusage.txt", "libenvir.txt", "libcmnt1.txt",
                                                    "libcmnt2.txt", "libcmnt3.txt", "libcmnt4.txt"};

std::string filename(int slot) { return slot >= 0 && slot < librarySlots ? libraryFiles[slot] : ""; }

/// Path of a list that exists: the user's own first, else as the program's files are found. Empty when there
/// is none.
std::string pathofslot(int slot) {
    const std::string name = filename(slot);
    if (name.empty() || !platform) return {};
    for (const std::string& folder : {session.dataPath, session.configPath})
        if (!folder.empty() && platform->system().fileexists(withbackslash(folder) + name))
            return withbackslash(folder) + name;
    const Keep keep{session.msg};
    session.msg = name;
    return findfilequietly() ? session.msg : std::string();
}

/// Folders that may take a list: where it lies, then those that are looked into before that.
std::vector<std::string> targetfolders(const std::string& present) {
    std::vector<std::string> folders;
    if (!present.empty()) folders.push_back(folderof(present));
    folders.push_back(session.dataPath);
    folders.push_back(session.configPath);
    if (present.empty()) // nothing there yet that a later place could be hidden behind
        for (const std::string& folder : candidatefolders(FileClass::library)) folders.push_back(folder);
    return folders;
}

} // namespace

void libraryfile(int slot) { session.msg = filename(slot); }

std::optional<std::vector<std::string>> libraryread(int slot) {
    std::vector<std::string> entries;
    const std::string path = pathofslot(slot);
    if (path.empty()) return entries;
    const auto read = readregular(path);
    if (!read || read->find('\0') != std::string::npos) return std::nullopt;
    const std::string text = asutf8(read->starts_with("\xEF\xBB\xBF") ? read->substr(3) : *read);
    for (std::string_view rest = text; !rest.empty();)
        if (const std::string_view line = trimmed(takeline(rest)); !line.empty()) entries.emplace_back(line);
    return entries;
}

std::vector<std::string> librarylist(int slot) {
    return libraryread(slot).value_or(std::vector<std::string>());
}

bool librarywrite(int slot, std::span<const std::string> entries) {
    const std::string name = filename(slot);
    if (name.empty() || !platform) return false;
    std::string text;
    for (const std::string& entry : entries) (text += entry) += "\r\n";
    for (const std::string& folder : targetfolders(pathofslot(slot))) {
        if (folder.empty() || !platform->system().writable(withbackslash(folder), writeTest)) continue;
        if (writefile(withbackslash(folder) + name, text)) return true;
    }
    return false;
}
