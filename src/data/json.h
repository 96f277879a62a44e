#pragma once

#include <string>
#include <string_view>

/// Writes JSON (RFC 8259) into a text, indented by two blanks a level. Numbers keep the shortest digits that
/// read back to the same value; the program's "no value" and anything not finite become null; text that is
/// not UTF-8 is taken as windows-1252, so that the result is always valid.
class JsonWriter {
public:
    explicit JsonWriter(std::string& target) : out(target) {}

    void open(char bracket); ///< '{' or '[' as a value
    void close(char bracket);
    void name(std::string_view key);
    void value(double number);
    void value(float number);
    void value(int number);
    void value(std::string_view text);
    void null();

    template <class T>
    void field(std::string_view key, const T& content) {
        name(key);
        value(content);
    }

private:
    void separate();
    void newline();

    std::string& out;
    int depth = 0;
    bool first = true;      ///< no element yet at this depth
    bool afterName = false; ///< a value goes on the line of its name
};
