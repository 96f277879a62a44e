#pragma once

#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

/// Files in one step or as they grow. Paths in the program's own form or native, both alike.

/// Content of a file, or of standard input for "-"; nothing when it cannot be read.
std::optional<std::string> readfile(const std::string& path);

/// Content of a regular file of a few megabytes at most: for files the program looks for by itself, so that a
/// pipe or a device of that name can neither stop nor flood it.
std::optional<std::string> readregular(const std::string& path);

/// The first bytes of a regular file; empty when it is none or cannot be read. A pipe is left untouched.
std::string readstart(const std::string& path, std::size_t bytes);

/// Writes a file, or standard output for "-". A regular file is written beside its place and renamed over it,
/// so that a full disk or a kill never costs the old one. False when not every byte could be written.
bool writefile(const std::string& path, std::string_view text);

/// Where text goes that is written as it is made.
class TextSink {
public:
    virtual ~TextSink() = default;
    /// False when it cannot be opened; errno tells why.
    virtual bool open(const std::string& path) = 0;
    virtual bool write(std::string_view text) = 0;
    /// Ends the text. False when not every byte could be written; what stood there before then stays.
    virtual bool commit() = 0;
    /// Forgets the text, as far as it has not left already. Harmless when nothing is open.
    virtual void drop() = 0;
};

/// The same rules as writefile, for a text too long to hold: a regular file grows beside its place and takes
/// it on commit. A device or a pipe takes each write as it comes, so that a plotter draws while the plot is
/// made.
class OutputFile : public TextSink {
public:
    OutputFile() = default;
    ~OutputFile() override { drop(); }
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    bool open(const std::string& path) override;
    bool write(std::string_view text) override;
    bool commit() override;
    void drop() override;
    /// Has the system put what was written on the disk itself before commit: a power failure then leaves the
    /// old file or the new one, too. For what cannot be made again.
    bool settle();

private:
    bool close();

    std::FILE* stream = nullptr;
    std::string target;
    std::string beside; ///< empty while the target itself is written
    bool whole = false; ///< every write so far has succeeded
};

/// Keeps the text in memory.
class TextKeeper : public TextSink {
public:
    explicit TextKeeper(std::string& kept) : text(kept) {}
    bool open(const std::string&) override { return text.clear(), true; }
    bool write(std::string_view part) override { return text += part, true; }
    bool commit() override { return true; }
    void drop() override { text.clear(); }

private:
    std::string& text;
};
