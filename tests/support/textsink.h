#pragma once

#include <cerrno>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

/// A sink that keeps what it gets, and fails when told to.
class MemorySink : public TextSink {
public:
    std::string text;                ///< all writes since the last open
    std::vector<std::string> writes; ///< each by itself
    std::vector<std::string> opened; ///< paths, every try
    int openFailures = 0;            ///< that many tries fail
    int openErrno = ENXIO;           ///< with this reason
    int writesLeft = -1;             ///< then writes fail; negative: never
    int commits = 0, drops = 0;

    bool open(const std::string& path) override {
        opened.push_back(path);
        text.clear();
        writes.clear();
        if (openFailures-- <= 0) return true;
        errno = openErrno;
        return false;
    }
    bool write(std::string_view part) override {
        if (writesLeft == 0) return false;
        if (writesLeft > 0) --writesLeft;
        text += part;
        writes.emplace_back(part);
        return true;
    }
    bool commit() override { return ++commits, true; }
    void drop() override { ++drops; }
};
