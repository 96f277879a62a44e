#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// What a normalised text shows of its form.
struct Recognition {
    bool anyItem = false;     ///< something stands in it
    bool anyNumber = false;   ///< and a number among it
    std::size_t titleRow = 0; ///< the row that names the columns or the data; 0 none
    std::string offered;      ///< choice of the format menu that fits best
    std::string plain; ///< the choice without anybody to ask: `offered` where no other reading is likely
};

/// Looks at the first lines of a text. The first line with words is a title when the data below have a number
/// in the place of one of them.
Recognition textrecognize(std::string_view normalised, std::int16_t side);
