#include "data/importtext.h"

#include <algorithm>
#include <charconv>
#include <chrono>

#include "data/textlines.h"
#include "data/textnormalize.h"
#include "data/textpieces.h"

namespace {

constexpr std::string_view suspendedText = "3.3E+33";

/// Three groups of digits and what stands behind them.
struct Groups {
    std::array<int, 3> value{};
    std::array<std::size_t, 3> digits{};
    char mark = 0; ///< between them
    std::string_view rest;
};

std::optional<Groups> groupsof(std::string_view text) {
    if (text.starts_with('@')) text.remove_prefix(1);
    Groups groups;
    char mark = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        const auto end = std::find_if_not(text.begin(), text.end(), decimaldigit);
        groups.digits[i] = static_cast<std::size_t>(end - text.begin());
        if (groups.digits[i] < 1 || groups.digits[i] > 4) return std::nullopt;
        std::from_chars(text.data(), text.data() + groups.digits[i], groups.value[i]);
        text.remove_prefix(groups.digits[i]);
        if (i == 2) break;
        if (text.empty() || std::string_view("-/.").find(text.front()) == std::string_view::npos)
            return std::nullopt;
        if (i == 1 && text.front() != mark) return std::nullopt;
        mark = text.front();
        text.remove_prefix(1);
    }
    if (!text.empty() && std::string_view(" T+").find(text.front()) == std::string_view::npos)
        return std::nullopt;
    groups.mark = mark;
    groups.rest = text;
    return groups;
}

/// A number as numberread takes it, which passes over percent signs and "@", and nothing behind it.
bool goodfield(std::string_view text) {
    while (text.starts_with(' ')) text.remove_prefix(1);
    while (text.ends_with(' ')) text.remove_suffix(1);
    if (text.find_first_of("%@") == std::string_view::npos) return wholenumber(text).has_value();
    std::string number(text);
    std::erase_if(number, [](char c) { return c == '%' || c == '@'; });
    return wholenumber(number).has_value();
}

/// X with its marks: ">10", "<10", and both for the ends of an interval.
bool goodx(std::string_view text) {
    while (text.starts_with(' ')) text.remove_prefix(1);
    if (!text.starts_with('<') && !text.starts_with('>')) return goodfield(text);
    const char other = text.front() == '<' ? '>' : '<';
    text.remove_prefix(1);
    const std::size_t second = text.find(other);
    return goodfield(text.substr(0, second))
           && (second == std::string_view::npos || goodfield(text.substr(second + 1)));
}

} // namespace

bool TextRows::next() {
    items.clear();
    if (rest.empty()) return false;
    ++number;
    const std::size_t end = std::min(rest.find(lineSeparator), rest.size());
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    while (!line.empty()) {
        const std::size_t at = std::min(line.find(itemSeparator), line.size());
        items.push_back(line.substr(0, at));
        line.remove_prefix(std::min(at + 1, line.size()));
    }
    return true;
}

std::optional<double> wholenumber(std::string_view text) {
    if (text.starts_with('+')) text.remove_prefix(1);
    if (text.ends_with('%')) text.remove_suffix(1);
    const std::size_t first = text.starts_with('-') ? 1 : 0;
    if (text.size() <= first || !(decimaldigit(text[first]) || text[first] == '.')) return std::nullopt;
    double value = 0;
    const char* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, value);
    if (read.ptr != end || read.ec != std::errc()) return std::nullopt;
    return value;
}

bool looksdate(std::string_view text) { return groupsof(text).has_value(); }

bool goodcell(std::string_view cell) {
    cell = cell.substr(0, cell.find('_'));
    constexpr std::size_t mostFields = 4;
    for (std::size_t field = 0; field < mostFields; ++field) {
        const std::size_t end = std::min(cell.find_first_of("xX*"), cell.size());
        const std::string_view text = cell.substr(0, end);
        if (field == 0 ? !goodx(text) : !text.empty() && !goodfield(text)) return false;
        if (end == cell.size()) return true;
        cell.remove_prefix(end + 1);
    }
    return false;
}

bool isheading(std::string_view item) {
    const std::string word = lowercase(item);
    if (word == "na" || word == "n/a" || word == "nan" || word == "null") return false;
    const bool digits = std::any_of(word.begin(), word.end(), decimaldigit);
    const bool letters = std::any_of(word.begin(), word.end(), [](char c) { return c >= 'a' && c <= 'z'; });
    const bool others = std::any_of(word.begin(), word.end(), [](unsigned char c) { return c >= 0x80; });
    return letters || (others && !digits);
}

std::optional<bool> suspensionmark(std::string_view text) {
    constexpr std::string_view suspended[] = {"s",          "0", "+",        "susp",      "suspended",
                                              "suspension", "c", "censored", "censoring", "right-censored"};
    constexpr std::string_view occurred[] = {"f", "1", "fail", "failed", "failure", "occurred", "occurrence"};
    const std::string word = lowercase(text);
    if (std::find(std::begin(suspended), std::end(suspended), word) != std::end(suspended)) return true;
    if (std::find(std::begin(occurred), std::end(occurred), word) != std::end(occurred)) return false;
    return std::nullopt;
}

std::optional<int> daynumber(std::string_view text, const DateOrder& given) {
    namespace chrono = std::chrono;
    const auto groups = groupsof(text);
    if (!groups) return std::nullopt;
    const bool yearFirst = groups->digits[0] == 4;
    const bool chosen = given != DateOrder{"Y", "M", "D"};
    const DateOrder order = groups->mark == '.' && !chosen ? DateOrder{"D", "M", "Y"} : given;
    int year = 0;
    std::size_t yearDigits = 0;
    unsigned month = 0, day = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        const char part = yearFirst ? "YMD"[i] : order[i].empty() ? '\0' : order[i][0];
        if (part == 'Y') year = groups->value[i], yearDigits = groups->digits[i];
        if (part == 'M') month = static_cast<unsigned>(groups->value[i]);
        if (part == 'D') day = static_cast<unsigned>(groups->value[i]);
    }
    if (yearDigits != 4 && (yearDigits != 2 || !chosen)) return std::nullopt;
    if (yearDigits == 2) year += year < 69 ? 2000 : 1900;
    const chrono::year_month_day date{chrono::year(year), chrono::month(month), chrono::day(day)};
    if (!date.ok()) return std::nullopt;
    return chrono::sys_days(date).time_since_epoch().count();
}

void appendpoint(std::string& cell, const ImportPoint& point, SuspendBy by) {
    const bool minus = point.suspended && by == SuspendBy::minus;
    const bool sentinel = point.suspended && by == SuspendBy::sentinel;
    if (minus && !point.x.starts_with('-')) cell += '-';
    cell += point.x;
    const std::string_view z = sentinel ? suspendedText : std::string_view(point.z);
    const bool all = !z.empty() || !point.quantity.empty();
    if (all || !point.y.empty()) (cell += 'x') += point.y.empty() ? "0" : point.y;
    if (all) {
        (cell += 'x') += point.quantity.empty() ? "1" : point.quantity;
        (cell += 'x') += z.empty() ? "0" : z;
    }
    if (!point.label.empty()) (cell += '_') += point.label;
}

bool takesuspension(std::string_view& x) {
    if (x.starts_with('>')) {
        x.remove_prefix(1);
        while (x.starts_with(' ')) x.remove_prefix(1);
        return true;
    }
    if (x.size() < 2 || !x.ends_with('+')) return false;
    x.remove_suffix(1);
    while (x.ends_with(' ')) x.remove_suffix(1);
    return true;
}
