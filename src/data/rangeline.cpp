#include "data/rangeline.h"

#include <array>

#include "data/filevalue.h"
#include "data/numbertext.h"
#include "numeric/sngguard.h"

namespace {

constexpr std::size_t singles = 8; ///< values of the first four pairs

bool rangepiece(std::string_view piece) {
    return piece.empty()
           || (readentry(piece).readable && piece.find_first_not_of("+-.,0123456789Ee") == piece.npos);
}

} // namespace

void appendlabel(std::string& line, const std::string& title, const RangePairs& range) {
    appendvalue(line, title);
    for (std::size_t i = 0; i < range.size(); ++i) {
        line += '_';
        i < singles ? appendvalue(line, sngguard(range[i])) : appendvalue(line, range[i]);
    }
}

std::string takelabel(std::string_view line, RangePairs& range) {
    std::array<std::string_view, std::tuple_size_v<RangePairs>> pieces;
    std::size_t count = 0, paired = 0;
    std::string_view title = line, rest = line;
    while (count < pieces.size()) {
        const auto at = rest.rfind('_');
        if (at == std::string_view::npos || !rangepiece(rest.substr(at + 1))) break;
        pieces[pieces.size() - ++count] = rest.substr(at + 1);
        rest = rest.substr(0, at);
        if (count % 2 == 0) title = rest, paired = count;
    }
    const std::size_t first = pieces.size() - paired;
    for (std::size_t i = 0; i + 1 < paired; i += 2) {
        if (pieces[first + i].empty() && pieces[first + i + 1].empty()) break;
        for (const std::size_t j : {i, i + 1}) {
            const double value = readentry(pieces[first + j]).value;
            range[j] = j < singles ? static_cast<double>(sngguard(value)) : value;
        }
    }
    return std::string(title);
}
