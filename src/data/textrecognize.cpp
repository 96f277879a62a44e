#include "data/textrecognize.h"

#include <algorithm>
#include <array>
#include <vector>

#include "data/importtext.h"
#include "data/textlines.h"
#include "session/capacities.h"

namespace {

constexpr std::size_t rowsLookedAt = 200;
constexpr std::size_t columnsLookedAt = 6;

/// What the items of a column are, in the letters of a pattern.
enum Look : char {
    nothing = '-',
    number = 'n',
    plus = '+',
    date = 'd',
    mark = 'm',
    wordItem = 'w',
    field = 'x'
};

bool isnumber(std::string_view item) {
    if (item.starts_with('@')) item.remove_prefix(1);
    return beginsnumber(item) && item.substr(0, 4).find_first_of("0123456789") != std::string_view::npos;
}

Look lookof(std::string_view item) {
    if (item.empty()) return nothing;
    if (looksdate(item)) return date;
    const std::string_view cell = item.substr(0, item.find('_'));
    if (isnumber(item) && (cell.size() < item.size() || cell.find_first_of("xX") != std::string_view::npos))
        return field;
    if (item.ends_with('+') && isnumber(item)) return plus;
    if (isnumber(item)) return number;
    return item != "+" && suspensionmark(item) ? mark : wordItem;
}

/// The look of a column that holds items of two kinds.
Look both(Look first, Look second) {
    if (first == second || second == nothing) return first;
    if (first == nothing) return second;
    if (first == field || second == field) return field;
    const bool ages = (first == number && second == plus) || (first == plus && second == number);
    return ages ? plus : wordItem;
}

/// The looks of the columns as a text: "nnm" is two numbers and a mark.
class Pattern {
public:
    void take(const std::vector<std::string_view>& items) {
        widest = std::max(widest, items.size());
        for (std::size_t i = 0; i < std::min(items.size(), columnsLookedAt); ++i)
            looks[i] = both(looks[i], lookof(items[i]));
    }
    std::string text() const {
        std::string all;
        for (std::size_t i = 0; i < std::min(widest, columnsLookedAt); ++i) all += looks[i];
        return all;
    }
    std::size_t columns() const { return widest; }

private:
    std::array<Look, columnsLookedAt> looks{nothing, nothing, nothing, nothing, nothing, nothing};
    std::size_t widest = 0;
};

/// True when a row of words stands over the row: some word over a number. A number among the words makes it a
/// row of data, unless it is longer than the rows below: a sentence then.
bool istitle(const std::vector<std::string>& first, const std::vector<std::string_view>& row) {
    const bool number = std::any_of(first.begin(), first.end(), isnumber);
    if (number && (first.size() <= row.size() || !isheading(first[0]))) return false;
    for (std::size_t i = 0; i < std::min(first.size(), row.size()); ++i)
        if (isheading(first[i]) && !isnumber(first[i]) && isnumber(row[i])) return true;
    return false;
}

struct Offer {
    std::string_view pattern; ///< of the columns
    std::string_view choice;
    bool sure; ///< no other reading is likely
};
constexpr Offer lifeOffers[] = {
    {"nm", "E", true},     {"+m", "E", true},  {"nnm", "D", true}, {"nnmw", "J2", true}, {"nw", "K1", false},
    {"nnmn", "J2", false}, {"ddm", "E", true}, {"dd", "B1", true}, {"ddn", "B1", true},  {"ddw", "K1", true}};
constexpr Offer xyOffers[] = {{"nn", "A1", true},  {"nnnn", "A1", true}, {"nnnnnn", "A1", true},
                              {"nnn", "B", false}, {"nnw", "K", false},  {"+", "P", true},
                              {"+w", "N", true},   {"+n", "N", true},    {"nw", "N", false},
                              {"wn", "Q", false},  {"wnn", "Q", false},  {"wn+", "Q", false},
                              {"w+", "Q", false},  {"wnnn", "Q", false}, {"wnn+", "Q", false}};

void offer(const Pattern& pattern, std::int16_t side, Recognition& found) {
    const bool life = side == lifeSide;
    const std::string text = pattern.text();
    const std::string cells = life ? "A1" : "A3";
    found.offered = found.plain = cells;
    if (text.find(field) != std::string::npos || pattern.columns() > columnsLookedAt) return;
    const auto take = [&](const auto& offers) {
        for (const Offer& one : offers)
            if (one.pattern == text) {
                found.offered = one.choice;
                if (one.sure) found.plain = one.choice;
            }
    };
    life ? take(lifeOffers) : take(xyOffers);
}

} // namespace

Recognition textrecognize(std::string_view normalised, std::int16_t side) {
    Recognition found;
    Pattern pattern;
    std::vector<std::string> first;
    std::size_t firstRow = 0, seen = 0;
    for (TextRows rows(normalised); rows.next();) {
        if (rows.items.empty()) continue;
        found.anyItem = true;
        const bool number = std::any_of(rows.items.begin(), rows.items.end(), isnumber);
        if (firstRow == 0) {
            firstRow = rows.number;
            first.assign(rows.items.begin(),
                         rows.items.begin()
                             + static_cast<std::ptrdiff_t>(std::min(rows.items.size(), columnsLookedAt)));
            if (number) pattern.take(rows.items), found.anyNumber = true;
            continue;
        }
        if (!number) continue;
        if (seen++ == 0 && istitle(first, rows.items)) {
            found.titleRow = firstRow;
            pattern = {};
        }
        found.anyNumber = true;
        pattern.take(rows.items);
        if (seen == rowsLookedAt) break;
    }
    offer(pattern, side, found);
    return found;
}
