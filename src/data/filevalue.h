#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// One value on a line of a data file.
///
/// A number is written so that what is read back is the same number: not a number and infinity become the
/// mark for no answer, a size beyond what a file's number may have the nearest that it may have.

void appendvalue(std::string& line, float value);
void appendvalue(std::string& line, double value);
void appendvalue(std::string& line, int16_t value);
void appendvalue(std::string& line, int32_t value);
/// A text as one line of UTF-8: line ends within it become blanks.
void appendvalue(std::string& line, const std::string& text);

/// A line of one value.
template <class Value>
std::string valueline(Value value) {
    std::string line;
    appendvalue(line, value);
    return line;
}

/// Takes a line as the value; a number that cannot be read is 0, one beyond an integer's range its limit.
void takevalue(std::string_view line, float& value);
void takevalue(std::string_view line, double& value);
void takevalue(std::string_view line, int16_t& value);
void takevalue(std::string_view line, int32_t& value);
void takevalue(std::string_view line, std::string& text);
