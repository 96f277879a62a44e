#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "session/options.h"
#include "shell/words.h"

/// The side of the program that a sample is meant for: the letter in its label.
enum class SampleSide : char { life = 'W', visual = 'V', either = 'A' };

/// What a row of a sample is: one cell (XxYxQxZ_label), or a value for each column.
enum class SampleForm : uint8_t { cells, columns };

/// A built-in sample: published data to try the program on.
struct Sample {
    int number;
    SampleSide side;
    std::string_view label;    ///< title, before the words
    std::array<Word, 2> words; ///< that end the title; Word::None_ for none
    InputType inputType;       ///< under which the cells mean what the source says
    SampleForm form;
    std::string_view rows; ///< blanks between the rows, commas between the columns
    std::string_view sets; ///< names of the sets, commas between them; empty for none
    std::string_view source;
};

/// Sample by its number, 1 to 11; null for any other.
const Sample* sampledata(int number);

/// Title in the language in force: "1W - Lawless [1982] p. 228 Life Test".
std::string sampletitle(const Sample& sample);

/// A sample as the clipboard would bring it: tabs between the items of a row, a line end behind each row.
struct SampleText {
    std::string title;
    std::string text;
    char format; ///< letter of the import format in which the text is to be read
};

/// The same by the sample's number; nothing for a number that has no sample.
std::optional<SampleText> sampletext(int number);
