#include "platform/files.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <random>
#include <system_error>
#include <utility>

#include "platform/paths.h"

#include <unistd.h>

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

} // namespace

std::optional<std::string> readfile(const std::string& path) {
    if (path == "-") return readstream(stdin);
    const std::string name = nativepath(path);
    std::error_code error;
    if (fs::is_directory(name, error)) return std::nullopt;
    const File file(std::fopen(name.c_str(), "rb"));
    return file ? readstream(file.get()) : std::nullopt;
}

std::optional<std::string> readregular(const std::string& path) {
    constexpr std::uintmax_t largest = 16u << 20;
    const std::string name = nativepath(path);
    std::error_code error;
    if (!fs::is_regular_file(name, error) || fs::file_size(name, error) > largest || error)
        return std::nullopt;
    return readfile(name);
}

std::string readstart(const std::string& path, std::size_t bytes) {
    const std::string name = nativepath(path);
    std::error_code error;
    if (!fs::is_regular_file(name, error)) return {};
    const File file(std::fopen(name.c_str(), "rb"));
    if (!file) return {};
    std::string start(bytes, '\0');
    start.resize(std::fread(start.data(), 1, bytes, file.get()));
    return start;
}

bool OutputFile::open(const std::string& path) {
    drop();
    whole = true;
    if (path == "-") {
        stream = stdout;
        return true;
    }
    std::error_code error;
    const std::string name = nativepath(path);
    const bool exists = fs::exists(name, error);
    target = exists ? fs::canonical(name, error).string() : name;
    if (error) {
        errno = error.value();
        return false;
    }
    // A device or a pipe has no old content to keep, and must not be replaced by a file.
    const bool direct = exists && !fs::is_regular_file(target, error);
    if (!direct) beside = target + "." + std::to_string(std::random_device{}()) + ".tmp";
    stream = std::fopen((direct ? target : beside).c_str(), "wb");
    if (!stream) beside.clear();
    // What was readable by its owner alone stays so.
    if (stream && exists && !direct) fs::permissions(beside, fs::status(target).permissions(), error);
    if (stream && direct) std::setvbuf(stream, nullptr, _IONBF, 0);
    return stream != nullptr;
}

bool OutputFile::write(std::string_view text) {
    whole = stream && std::fwrite(text.data(), 1, text.size(), stream) == text.size() && whole;
    return whole;
}

bool OutputFile::close() {
    std::FILE* const closing = std::exchange(stream, nullptr);
    if (!closing) return false;
    return (closing == stdout ? std::fflush(closing) : std::fclose(closing)) == 0;
}

bool OutputFile::settle() {
    whole = whole && stream && std::fflush(stream) == 0;
    if (whole && !beside.empty()) whole = fsync(fileno(stream)) == 0;
    return whole;
}

bool OutputFile::commit() {
    bool written = close() && whole;
    if (beside.empty()) return written;
    std::error_code error;
    if (written) fs::rename(beside, target, error);
    written = written && !error;
    if (!written) fs::remove(beside, error);
    beside.clear();
    return written;
}

void OutputFile::drop() {
    close();
    std::error_code ignored;
    if (!beside.empty()) fs::remove(beside, ignored);
    beside.clear();
}

bool writefile(const std::string& path, std::string_view text) {
    OutputFile file;
    return file.open(path) && file.write(text) && file.commit();
}
