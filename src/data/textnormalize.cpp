#include "data/textnormalize.h"

#include <algorithm>

#include "data/textlines.h"
#include "data/utf8.h"

namespace {

// ---- bytes to UTF-8 ----

void appendcharacter(std::string& out, char32_t c) {
    const auto tail = [&](int shift) { out += static_cast<char>(0x80 | ((c >> shift) & 0x3F)); };
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        tail(0);
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        tail(6), tail(0);
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        tail(12), tail(6), tail(0);
    }
}

/// UTF-16 in either byte order; half a pair becomes the replacement character (RFC 2781).
std::string fromutf16(std::string_view bytes, bool bigEndian) {
    const auto unit = [&](std::size_t at) {
        const auto first = static_cast<unsigned char>(bytes[at]);
        const auto second = static_cast<unsigned char>(bytes[at + 1]);
        return static_cast<char32_t>(bigEndian ? first << 8 | second : second << 8 | first);
    };
    std::string out;
    out.reserve(bytes.size() / 2);
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        const char32_t c = unit(at);
        const char32_t next = at + 3 < bytes.size() ? unit(at + 2) : 0;
        if (c >= 0xD800 && c < 0xDC00 && next >= 0xDC00 && next < 0xE000) {
            appendcharacter(out, 0x10000 + ((c - 0xD800) << 10) + (next - 0xDC00));
            at += 2;
        } else {
            appendcharacter(out, c >= 0xD800 && c < 0xE000 ? 0xFFFD : c);
        }
    }
    return out;
}

/// UTF-16 without a mark: digits and signs have a zero beside them.
bool looksutf16(std::string_view text, bool bigEndian) {
    if (text.size() < 4 || text.size() % 2 != 0) return false;
    const std::size_t zero = bigEndian ? 0 : 1;
    return text[zero] == 0 && text[zero + 2] == 0 && text[1 - zero] != 0 && text[3 - zero] != 0;
}

void blankspaces(std::string& text) {
    constexpr std::string_view noBreak = "\xC2\xA0";
    std::size_t from = text.find(noBreak);
    if (from == std::string::npos) return;
    std::string out;
    out.reserve(text.size());
    std::size_t start = 0;
    for (; from != std::string::npos; from = text.find(noBreak, start)) {
        out.append(text, start, from - start) += ' ';
        start = from + noBreak.size();
    }
    text = out.append(text, start);
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
    if (!seen.separator && !seen.decimal && !seen.group && !seen.open) return Comma::none;
    const bool otherSeen = seen.separator || seen.group || pointSpeaks;
    if (seen.decimal == otherSeen) return Comma::undecided;
    return seen.decimal ? Comma::decimal : other;
}

/// "Time,Status" over rows with as many commas: the heading of a table that commas separate.
bool commaheading(const TextLines& lines, std::size_t commasOfData) {
    if (lines.fields.size() != 1 + commasOfData || lines.fields[0].framed) return false;
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
        found.open = found.open || candecimal(shape);
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
    constexpr std::string_view utf8Mark = "\xEF\xBB\xBF", littleMark = "\xFF\xFE", bigMark = "\xFE\xFF";
    const std::string_view view = text;
    if (view.starts_with(littleMark))
        text = fromutf16(view.substr(2), false);
    else if (view.starts_with(bigMark))
        text = fromutf16(view.substr(2), true);
    else if (looksutf16(view, false) || looksutf16(view, true))
        text = fromutf16(view, looksutf16(view, true));
    else if (view.starts_with(utf8Mark))
        text.erase(0, utf8Mark.size());
    if (!isutf8(text)) text = asutf8(text);
    blankspaces(text);
    return text;
}

TextLook textlook(std::string_view text) {
    TextLook look;
    if (text.find(',') == std::string_view::npos) return look;
    Evidence between, within;
    bool pointIsDecimal = false;
    std::string_view heading;
    std::size_t commasOfData = 0;
    for (TextLines lines(text, false); lines.next();) {
        if (lines.fields.empty()) continue;
        if (!beginsnumber(lines.fields[0].text)) {
            if (look.numberLines == 0) heading = lines.line;
            continue;
        }
        ++look.numberLines;
        const LineCommas found = lookatline(lines.fields, between, within);
        pointIsDecimal = pointIsDecimal || found.decimalPoint;
        if (!found.open) continue;
        if (look.undecidedLines++ == 0) look.firstLine = lines.line;
        commasOfData = found.commas;
    }
    TextLines title(heading, true);
    if (title.next() && commaheading(title, commasOfData)) between.separator = true;
    const bool pointSpeaks = pointIsDecimal && look.undecidedLines * 2 >= look.numberLines;
    look.marks.between = decided(between, pointSpeaks, Comma::separator);
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
