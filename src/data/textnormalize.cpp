#include "data/textnormalize.h"

#include <algorithm>

#include "data/textlines.h"
#include "data/utf8.h"

namespace {

// ---- marks between thousands ----

constexpr std::string_view noBreak = "\xC2\xA0", thinSpace = "\xE2\x80\x89", narrowSpace = "\xE2\x80\xAF",
                           minusSign = "\xE2\x88\x92";

/// Length of a mark that may stand between thousands, at the start of a text; 0 for anything else.
std::size_t thousandsmark(std::string_view text) {
    for (const std::string_view mark : {std::string_view("'"), noBreak, thinSpace, narrowSpace})
        if (text.starts_with(mark)) return mark.size();
    return 0;
}

std::size_t digitsat(std::string_view text, std::size_t at) {
    std::size_t count = 0;
    while (at + count < text.size() && decimaldigit(text[at + count])) ++count;
    return count;
}

/// Length of a number in groups of three digits that one and the same mark joins, "1'234'567"; 0 for any
/// other text: a mark between other digits may be minutes, feet or a column.
std::size_t joinedgroups(std::string_view text) {
    std::size_t at = digitsat(text, 0);
    if (at < 1 || at > 3 || text[0] == '0') return 0;
    const std::string_view mark = text.substr(at, thousandsmark(text.substr(at)));
    if (mark.empty()) return 0;
    while (text.substr(at).starts_with(mark)) {
        if (digitsat(text, at + mark.size()) != 3) return 0;
        at += mark.size() + 3;
    }
    return thousandsmark(text.substr(at)) == 0 ? at : 0;
}

/// True for a digit where a number can begin: not within a word, a label or the places behind a point.
bool startsnumber(std::string_view before) {
    return before.empty()
           || std::string_view("\t\r\n ;,+-<>xX*\"").find(before.back()) != std::string_view::npos
           || before.ends_with(noBreak);
}

/// True when no-break spaces stand between columns of a text: some digits behind one are no group of three.
bool nobreakseparates(std::string_view text) {
    for (auto at = text.find(noBreak, 1); at != std::string_view::npos; at = text.find(noBreak, at + 1)) {
        const std::size_t behind = digitsat(text.substr(at + noBreak.size(), 4), 0);
        if (decimaldigit(text[at - 1]) && behind > 0 && behind != 3) return true;
    }
    return false;
}

/// Appends a number in groups that begins at `at`, without its marks; as it stands, and so no number, where
/// the mark separates elsewhere. Returns the length of what was taken.
std::size_t takejoined(std::string& out, std::string_view text, std::size_t at, bool separates) {
    constexpr std::size_t longest = 64; // more groups than any number has
    const std::string_view number = text.substr(at, joinedgroups(text.substr(at, longest)));
    const bool doubtful = separates && number.find(noBreak) != std::string_view::npos;
    for (const char c : number)
        if (doubtful || decimaldigit(c)) out += c;
    return number.size();
}

/// Numbers in the marks of this program: no marks between their thousands, "-" for the minus sign. Other
/// no-break spaces are blanks.
void joinnumbers(std::string& text) {
    const auto hasmark = [&](std::string_view mark) { return text.find(mark) != std::string::npos; };
    if (!hasmark("'") && !hasmark("\xC2") && !hasmark("\xE2")) return;
    const std::string_view view = text;
    const bool separates = nobreakseparates(view);
    std::string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < view.size();) {
        const std::string_view rest = view.substr(at);
        std::size_t taken = 0;
        if (decimaldigit(rest[0]) && startsnumber(view.substr(0, at)))
            taken = takejoined(out, view, at, separates);
        else if (rest.starts_with(noBreak))
            out += ' ', taken = noBreak.size();
        else if (rest.starts_with(minusSign))
            out += '-', taken = minusSign.size();
        if (taken == 0) out += rest[0], taken = 1;
        at += taken;
    }
    text = std::move(out);
}

// ---- commas ----

/// "1,234" or "12,345,678": groups of three digits behind one to three; `rest` takes what follows.
bool grouped(std::string_view number, char mark, std::string_view& rest) {
    if (number.starts_with('-') || number.starts_with('+')) number.remove_prefix(1);
    const auto digits = [&] {
        return static_cast<std::size_t>(std::find_if_not(number.begin(), number.end(), decimaldigit)
                                        - number.begin());
    };
    std::size_t count = digits();
    if (count < 1 || count > 3 || number.front() == '0') return false;
    bool any = false;
    for (number.remove_prefix(count); number.starts_with(mark); any = true) {
        number.remove_prefix(1);
        count = digits();
        if (count != 3) return false;
        number.remove_prefix(count);
    }
    rest = number;
    return any;
}

/// The number that a field begins with, marks of suspension before it passed over, and its commas and points.
struct NumberShape {
    std::string_view text;
    std::size_t commas = 0, points = 0;
    bool commaGroups = false; ///< its commas may be marks between thousands
    bool pointGroups = false; ///< so its points, with a comma behind them or nothing
};

NumberShape shapeof(std::string_view field) {
    NumberShape shape;
    while (!field.empty() && (field.front() == '<' || field.front() == '>')) field.remove_prefix(1);
    std::size_t end = 0;
    for (; end < field.size(); ++end) {
        const char c = field[end];
        if (c == '.') ++shape.points;
        if (c == ',') {
            if (!betweendigits(field, end)) break;
            ++shape.commas;
        }
        const bool sign = (c == '-' || c == '+') && (end == 0 || field[end - 1] == ',');
        if (!decimaldigit(c) && c != '.' && c != ',' && !sign) break;
    }
    shape.text = field.substr(0, end);
    std::string_view rest;
    shape.commaGroups = grouped(shape.text, ',', rest) && rest.find(',') == std::string_view::npos;
    shape.pointGroups = grouped(shape.text, '.', rest) && (rest.empty() || rest.front() == ',');
    return shape;
}

bool candecimal(const NumberShape& shape) {
    return shape.commas == 1 && (shape.points == 0 || shape.pointGroups);
}

/// What has been seen for each reading.
struct Evidence {
    bool separator = false, decimal = false, group = false, open = false;
    bool onlyGroups = true; ///< every comma may be a mark between thousands

    bool any() const { return separator || decimal || group || open; }
};

void lookwithin(const NumberShape& shape, Evidence& seen) {
    const bool decimal = candecimal(shape);
    if (decimal && shape.commaGroups)
        seen.open = true;
    else if (decimal)
        seen.decimal = true;
    else if (shape.commaGroups)
        seen.group = true;
}

/// Commas where commas may separate: several in one item do, and so does one beside a decimal point.
void lookbetween(const NumberShape& shape, bool severalItems, Evidence& seen) {
    seen.onlyGroups = seen.onlyGroups && shape.commaGroups;
    if (!candecimal(shape))
        seen.separator = true;
    else if (severalItems && shape.points == 0)
        seen.decimal = true;
    else
        seen.open = true;
}

/// A point as decimal symbol elsewhere speaks for the other meaning where commas are the rule; a single comma
/// among many lines may be a slip.
Comma decided(const Evidence& seen, bool pointSpeaks, Comma other) {
    if (!seen.any()) return Comma::none;
    const bool otherSeen = seen.separator || seen.group || pointSpeaks;
    if (seen.decimal == otherSeen) return Comma::undecided;
    return seen.decimal ? Comma::decimal : other;
}

/// "Time,Status" over rows of as many items: the heading of a table that commas separate.
bool commaheading(const TextLines& lines, std::size_t itemsOfData) {
    if (lines.fields.size() != itemsOfData || lines.fields[0].framed) return false;
    return std::none_of(lines.fields.begin(), lines.fields.end(),
                        [](const TextField& field) { return field.text.empty() || beginsnumber(field.text); })
           && lines.line.find(", ") == std::string_view::npos;
}

struct LineCommas {
    std::size_t commas = 0;
    bool open = false;         ///< one of them can be read in two ways
    bool decimalPoint = false; ///< a number of the line has a decimal point and no comma
};

LineCommas lookatline(const std::vector<TextField>& fields, Evidence& between, Evidence& within) {
    LineCommas found;
    const auto withcomma = std::count_if(fields.begin(), fields.end(), [](const TextField& field) {
        return beginsnumber(field.text) && field.text.find(',') != std::string_view::npos;
    });
    for (const TextField& field : fields) {
        if (!beginsnumber(field.text)) continue;
        const NumberShape shape = shapeof(field.text);
        found.commas += shape.commas;
        if (shape.commas == 0) {
            found.decimalPoint = found.decimalPoint || (shape.points == 1 && !shape.pointGroups);
            continue;
        }
        if (field.framed || field.quoted)
            lookwithin(shape, within);
        else
            lookbetween(shape, withcomma > 1, between);
        found.open = found.open || candecimal(shape) || shape.commaGroups;
    }
    return found;
}

// ---- one field ----

void appendquoted(std::string& out, std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '"' && i + 1 < text.size() && text[i + 1] == '"') ++i;
        out += c == '\t' || c == '\r' || c == '\n' ? ' ' : c;
    }
}

/// Appends a number's text with its commas as they are meant: "1.234,5" as 1234.5.
void appendcommas(std::string& out, const NumberShape& shape, Comma comma) {
    const bool decimal = comma == Comma::decimal && shape.commas <= 1;
    const bool dropPoints = decimal && shape.pointGroups;
    const bool dropCommas = comma == Comma::group && shape.commaGroups;
    for (const char c : shape.text) {
        if ((c == '.' && dropPoints) || (c == ',' && dropCommas)) continue;
        out += c == ',' && comma == Comma::separator ? itemSeparator : c == ',' && decimal ? '.' : c;
    }
}

/// Appends a cell: every number of it, up to the label.
void appendcell(std::string& out, std::string_view text, Comma comma) {
    while (!text.empty() && text.front() != '_') {
        const NumberShape shape = shapeof(text);
        if (shape.text.empty()) {
            out += text.front() == '*' ? 'x' : text.front();
            text.remove_prefix(1);
            continue;
        }
        out.append(text.data(), shape.text.data());
        const auto behind = shape.text.data() + shape.text.size();
        appendcommas(out, shape, comma);
        text.remove_prefix(static_cast<std::size_t>(behind - text.data()));
    }
    out += text;
}

/// Most fields hold nothing that is to be changed.
void appendfield(std::string& out, const TextField& field, const TextMarks& marks) {
    const bool quotes = field.quoted || field.text.find('"') != std::string_view::npos;
    if (quotes && field.text.find_first_of("\t\r\n") != std::string_view::npos)
        return appendquoted(out, field.text); // no separator comes out of quotes
    const bool framed = field.framed || field.quoted;
    const Comma comma = framed ? marks.within : marks.between;
    if (!beginsnumber(field.text) || field.text.find_first_of(",*.") == std::string_view::npos) {
        field.quoted ? appendquoted(out, field.text) : void(out += field.text);
    } else if (comma == Comma::none && field.text.find('*') == std::string_view::npos) {
        field.quoted ? appendquoted(out, field.text) : void(out += field.text);
    } else {
        appendcell(out, field.text, comma);
    }
}

} // namespace

std::string decodetext(std::string text) {
    text = unicodetext(std::move(text));
    joinnumbers(text);
    return text;
}

namespace {

/// True for a line that tells nothing of the commas in numbers: none stands in it, or it is the first and
/// begins with a word as a title does.
bool iswords(const std::vector<TextField>& fields, bool firstLine) {
    if (beginsnumber(fields[0].text)) return false;
    const bool title = firstLine && !fields[0].framed;
    return title || std::none_of(fields.begin(), fields.end(), [](const TextField& field) {
               return beginsnumber(field.text)
                      && digitsat(field.text, field.text.find_first_not_of("+-.<>")) > 0;
           });
}

} // namespace

TextLook textlook(std::string_view text) {
    TextLook look;
    if (text.find(',') == std::string_view::npos) return look;
    Evidence between, within;
    bool pointIsDecimal = false;
    std::string_view heading;
    std::size_t itemsOfData = 0; ///< if each of its commas separates
    for (TextLines lines(text, false); lines.next();) {
        if (lines.fields.empty()) continue;
        if (iswords(lines.fields, look.numberLines == 0 && heading.empty())) {
            if (look.numberLines == 0) heading = lines.line;
            continue;
        }
        ++look.numberLines;
        const LineCommas found = lookatline(lines.fields, between, within);
        pointIsDecimal = pointIsDecimal || found.decimalPoint;
        if (!found.open) continue;
        if (look.undecidedLines++ == 0) look.firstLine = lines.line;
        itemsOfData = lines.fields.size() + found.commas;
    }
    TextLines title(heading, true);
    const bool headed = title.next() && commaheading(title, itemsOfData);
    if (headed) between.separator = true;
    const bool pointSpeaks = pointIsDecimal && look.undecidedLines * 2 >= look.numberLines;
    look.thousands = between.any() && between.onlyGroups && !headed;
    look.decimals = !between.separator;
    look.marks.between = look.thousands ? Comma::undecided : decided(between, pointSpeaks, Comma::separator);
    look.marks.within = decided(within, pointSpeaks, Comma::group);
    return look;
}

std::string textnormalize(std::string_view text, const TextMarks& marks) {
    std::string out;
    out.reserve(text.size() + 1);
    for (TextLines lines(text, marks.between == Comma::separator); lines.next();) {
        const std::size_t start = out.size();
        for (const TextField& field : lines.fields) {
            appendfield(out, field, marks);
            out += itemSeparator;
        }
        while (out.size() > start && out.back() == itemSeparator) out.pop_back();
        out += lineSeparator;
    }
    return out;
}
