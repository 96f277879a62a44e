#include "session/recent.h"

#include <algorithm>
#include <filesystem>

#include "platform/paths.h"
#include "platform/platform.h"
#include "session/session.h"
#include "session/settings.h"

void recentpush(const std::string& path) {
    std::error_code error;
    const std::filesystem::path whole = std::filesystem::absolute(nativepath(path), error);
    const std::string name = error ? path : whole.lexically_normal().string();
    auto& list = session.recentFiles;
    std::erase(list, name);
    list.insert(list.begin(), name);
    list.resize(std::min(list.size(), Session::recentMax));
    settingswrite();
}

void recentclean() {
    if (!platform) return;
    std::erase_if(session.recentFiles,
                  [](const std::string& path) { return !platform->system().fileexists(path); });
}
