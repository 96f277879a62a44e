#include "data/oldforms.h"

#include <algorithm>
#include <utility>

#include "data/numbertext.h"
#include "data/textpieces.h"
#include "session/session.h"
#include "shell/prompts.h"
#include "shell/words.h"

namespace {

constexpr std::string_view cuts = " \t;";
constexpr std::string_view fieldLetters = "XYQSZL-";

bool startsnumber(std::string_view text) {
    const auto first = text.find_first_not_of("+-.");
    return first < 3 && text[first] >= '0' && text[first] <= '9';
}

/// Takes the next field off a record; cuts in a row count as one.
std::string_view takefield(std::string_view& record) {
    const auto begin = std::min(record.find_first_not_of(cuts), record.size());
    record.remove_prefix(begin);
    const auto end = std::min(record.find_first_of(cuts), record.size());
    const std::string_view field = record.substr(0, end);
    record.remove_prefix(end);
    return field;
}

/// A record cut into its fields; an empty view for one that is missing.
struct Record {
    std::string_view value, ordinate, quantity, suspensions, upper, label;

    std::string_view* at(OldField field) {
        switch (field) {
        case OldField::value: return &value;
        case OldField::ordinate: return &ordinate;
        case OldField::quantity: return &quantity;
        case OldField::suspensions: return &suspensions;
        case OldField::upper: return &upper;
        case OldField::label: return &label;
        case OldField::passed: break;
        }
        return nullptr;
    }
};

Record recordof(std::string_view line, const OldFields& fields) {
    Record record;
    for (const OldField field : fields) {
        if (field == OldField::label) {
            record.label = trimmed(line);
            break;
        }
        const std::string_view text = takefield(line);
        if (std::string_view* const place = record.at(field)) *place = text;
    }
    return record;
}

bool positive(std::string_view number) { return readnumber(number).value > 0; }

/// The cell of a record: as short as what it says allows.
std::string cellof(const Record& record, std::string_view value, std::string_view quantity) {
    std::string cell(value);
    const bool plain = quantity.empty() || readnumber(quantity).value == 1;
    if (!record.ordinate.empty() || !plain || !record.upper.empty())
        cell.append("x").append(record.ordinate.empty() ? "0" : record.ordinate);
    if (!plain || !record.upper.empty()) cell.append("x").append(plain ? "1" : quantity);
    if (!record.upper.empty()) cell.append("x").append(record.upper);
    if (!record.label.empty()) cell.append("_").append(record.label);
    return cell;
}

/// One record may say both occurrences and suspensions at a value: a cell each.
void putrecord(std::vector<std::string>& column, const Record& record) {
    const bool suspended = positive(record.suspensions);
    // A quantity that is no number makes a cell that the grid tells of.
    const NumberText quantity = readnumber(record.quantity);
    const bool occurred = record.quantity.empty() ? !suspended : !quantity.readable || quantity.value != 0;
    if (occurred) column.push_back(cellof(record, record.value, record.quantity));
    if (!suspended) return;
    const std::string_view size = record.value.starts_with('-') ? record.value.substr(1) : record.value;
    column.push_back(cellof(record, "-" + std::string(size), record.suspensions));
}

bool commainnumber(const Record& record) {
    for (const auto text : {record.value, record.ordinate, record.quantity, record.suspensions, record.upper})
        if (text.find(',') != std::string_view::npos) return true;
    return false;
}

/// A way to read the columns of an old history.
struct HistoryForm {
    char letter;
    std::string_view fields;
    std::string (*columns)();
};
constexpr HistoryForm historyForms[] = {{'A', "XQL",
                                         [] {
                                             std::string text;
                                             return compose(text, "X-", Word::Value, "  ", Word::Quantity);
                                         }},
                                        {'B', "XYL",
                                         [] {
                                             std::string text;
                                             return compose(text, "X-", Word::Value, "  Y-", Word::Value);
                                         }},
                                        {'S', "XQSL", [] {
                                             std::string text;
                                             return compose(text, "X-", Word::Value, "  ", Word::Occurrence,
                                                            "-", Word::Quantity, "  ", Word::Suspension, "-",
                                                            Word::Quantity);
                                         }}};

OldFields fieldsof(std::string_view letters) {
    OldFields fields;
    for (const char letter : letters) fields.push_back(static_cast<OldField>(letter));
    return fields;
}

} // namespace

std::optional<OldData> oldplainread(std::string_view text, const OldFields& fields) {
    OldData data;
    std::string title;
    bool within = false; // a set is being filled
    while (!text.empty()) {
        const std::string_view line = trimmed(takeline(text));
        if (line.empty()) {
            within = false;
        } else if (!startsnumber(line)) {
            within = false;
            title = line;
        } else {
            const Record record = recordof(line, fields);
            if (commainnumber(record)) return std::nullopt;
            if (!within) {
                data.columns.emplace_back();
                data.titles.push_back(std::exchange(title, {}));
            }
            within = true;
            putrecord(data.columns.back(), record);
        }
    }
    return data;
}

OldFields fieldsofheading(std::string_view heading) {
    std::string letters;
    for (const char c : uppercase(heading.substr(std::min<std::size_t>(2, heading.size())))) {
        if (c == ' ' || c == '\t' || c == ',') continue;
        if (fieldLetters.find(c) == std::string_view::npos) return {};
        letters += c;
    }
    return fieldsof(letters);
}

OldFields oldplainfields() { return fieldsof(session.progSide == lifeSide ? "XQSL" : "XYL"); }

OldFields askhistoryfields() {
    menuclear();
    for (const HistoryForm& form : historyForms) {
        auto& item = session.menuItem[static_cast<std::size_t>(++session.menuCount)];
        compose(item, std::string(1, form.letter), "...", AsTyped{form.columns()});
    }
    compose(session.menuItem[static_cast<std::size_t>(++session.menuCount)], "X...", Word::Exit);
    compose(session.msg, Word::Column, " ", Word::Format, ":");
    session.menuChoice = 1;
    menushow();
    const auto chosen = static_cast<std::size_t>(session.menuChoice);
    return chosen >= 1 && chosen <= std::size(historyForms) ? fieldsof(historyForms[chosen - 1].fields)
                                                            : OldFields();
}
