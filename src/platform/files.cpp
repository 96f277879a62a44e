#include "platform/files.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <random>
#include <system_error>

namespace {

namespace fs = std::filesystem;

struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Close>;

std::optional<std::string> readstream(std::FILE* file) {
    std::string text;
    char block[1 << 16];
    std::size_t count;
    while ((count = std::fread(block, 1, sizeof block, file)) > 0) text.append(block, count);
    if (std::ferror(file)) return std::nullopt;
    return text;
}

bool writestream(std::FILE* file, std::string_view text) {
    return std::fwrite(text.data(), 1, text.size(), file) == text.size() && std::fflush(file) == 0;
}

bool writeinplace(const std::string& path, std::string_view text) {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (!file) return false;
    const bool written = writestream(file, text);
    return std::fclose(file) == 0 && written;
}

} // namespace

std::optional<std::string> readfile(const std::string& path) {
    if (path == "-") return readstream(stdin);
    std::error_code error;
    if (fs::is_directory(path, error)) return std::nullopt;
    const File file(std::fopen(path.c_str(), "rb"));
    return file ? readstream(file.get()) : std::nullopt;
}

bool writefile(const std::string& path, std::string_view text) {
    if (path == "-") return writestream(stdout, text);
    std::error_code error;
    const fs::path target = fs::exists(path, error) ? fs::canonical(path, error) : fs::path(path);
    if (error) return false;
    // A device or a pipe has no old content to keep, and must not be replaced by a file.
    if (fs::exists(target, error) && !fs::is_regular_file(target, error)) return writeinplace(path, text);
    const std::string beside = target.string() + "." + std::to_string(std::random_device{}()) + ".tmp";
    const bool written = writeinplace(beside, text);
    if (written) fs::rename(beside, target, error);
    if (!written || error) {
        std::error_code ignored;
        fs::remove(beside, ignored);
        return false;
    }
    return true;
}
