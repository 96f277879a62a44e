#include "data/importtext.h"

#include <algorithm>
#include <charconv>
#include <chrono>

#include "data/textlines.h"
#include "data/textnormalize.h"

namespace {

constexpr std::string_view suspendedText = "3.3E+33";

/// Three groups of digits and what stands behind them.
struct Groups {
    std::array<int, 3> value{};
    std::array<std::size_t, 3> digits{};
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
    groups.rest = text;
    return groups;
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
    if (read.ptr != end || read.ec == std::errc::invalid_argument) return std::nullopt;
    return value;
}

bool looksdate(std::string_view text) { return groupsof(text).has_value(); }

std::optional<int> daynumber(std::string_view text, const DateOrder& order) {
    namespace chrono = std::chrono;
    const auto groups = groupsof(text);
    if (!groups) return std::nullopt;
    const bool yearFirst = groups->digits[0] == 4;
    int year = 0;
    std::size_t yearDigits = 0;
    unsigned month = 0, day = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        const char part = yearFirst ? "YMD"[i] : order[i].empty() ? '\0' : order[i][0];
        if (part == 'Y') year = groups->value[i], yearDigits = groups->digits[i];
        if (part == 'M') month = static_cast<unsigned>(groups->value[i]);
        if (part == 'D') day = static_cast<unsigned>(groups->value[i]);
    }
    if (yearDigits != 2 && yearDigits != 4) return std::nullopt;
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
        return true;
    }
    if (x.size() < 2 || !x.ends_with('+')) return false;
    x.remove_suffix(1);
    while (x.ends_with(' ')) x.remove_suffix(1);
    return true;
}
