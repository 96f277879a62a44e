#include "shell/wordagree.h"

#include <algorithm>

#include "shell/languages.h"
#include "shell/words.h"

namespace {

// ---- typed text ----

/// Letters of typed text that would be read as marks, and the control bytes that stand for them until the
/// composed text has been cleaned.
constexpr std::string_view meaningful = " _*{}";
constexpr char firstStandIn = '\x01';
constexpr char lastStandIn = static_cast<char>(firstStandIn + meaningful.size() - 1);

constexpr bool isstandin(char c) { return c >= firstStandIn && c <= lastStandIn; }

// ---- braces ----

void dropbraces(std::string& text) {
    for (auto open = text.find('{'); open != std::string::npos; open = text.find('{', open)) {
        const auto close = text.find('}', open);
        if (close == std::string::npos) return;
        text.erase(open, close - open + 1);
    }
}

// ---- agreement ----

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

constexpr char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

/// Reads the two letters of a mark. Any other letters are no usable mark.
void readmark(std::string_view part, WordForms::Form& form) {
    if (part.size() < 2) return;
    const char wordClass = upper(part[0]);
    const char gender = upper(part[1]);
    if ((wordClass != 'N' && wordClass != 'A') || (gender != 'M' && gender != 'F' && gender != 'N')) return;
    form.wordClass = wordClass;
    form.gender = gender;
}

/// The form of an adjective that goes with a noun; its first where it has none of that gender.
std::string_view agreeing(const WordForms& adjective, const WordForms& noun) {
    for (std::size_t i = 0; i < adjective.count; ++i) {
        const WordForms::Form& form = adjective.forms[i];
        if (form.wordClass == 'A' && form.gender == noun.forms[0].gender) return form.text;
    }
    return adjective.forms[0].text;
}

/// What stands around a word and takes no part in agreement.
struct Shell {
    std::string_view lead, word, trail;
};

Shell shelled(std::string_view word) {
    Shell shell{{}, word, {}};
    if (word.size() < 2) return shell;
    if (std::string_view("{[(").find(word.front()) != std::string_view::npos) {
        shell.lead = word.substr(0, 1);
        shell.word.remove_prefix(1);
    }
    if (std::string_view(":}])").find(word.back()) != std::string_view::npos) {
        shell.trail = word.substr(word.size() - 1);
        shell.word.remove_suffix(1);
    }
    return shell;
}

/// "A..." at the start of an item, with a letter of any length in bytes.
std::size_t menuletter(std::string_view text) {
    std::size_t letter = 1;
    while (letter < text.size() && (static_cast<unsigned char>(text[letter]) & 0xC0) == 0x80) ++letter;
    const bool dots = text.size() > letter + 3 && text.substr(letter, 3) == "...";
    return dots ? letter + 3 : 0;
}

/// One line of a text: its leading blanks, then word after word.
void agreeline(std::string_view line, std::string& out) {
    const std::size_t blanks = std::min(line.find_first_not_of(' '), line.size());
    out += line.substr(0, blanks);
    line.remove_prefix(blanks);
    const std::size_t start = out.size();
    WordBefore before;
    for (auto end = line.find(' '); end != std::string_view::npos; end = line.find(' ')) {
        wordpair(line.substr(0, end), before, out, start);
        line.remove_prefix(end + 1);
    }
    wordpair(line, before, out, start);
}

/// Cleans both halves around " _ ", and whatever has none as a whole.
void agreehalves(std::string_view text, std::string_view no, std::string& out) {
    constexpr std::string_view joint = " _ ";
    const auto at = text.size() > joint.size() ? text.find(joint) : std::string_view::npos;
    if (at == std::string_view::npos) {
        wordagree(text, no, out);
        return;
    }
    wordagree(text.substr(0, at), no, out);
    out += joint;
    agreehalves(text.substr(at + joint.size()), no, out);
}

} // namespace

WordForms wordforms(std::string_view word) {
    constexpr std::size_t mostParts = 7;
    WordForms forms;
    for (std::size_t part = 0; part < mostParts; ++part) {
        const auto end = word.find('_');
        const std::string_view text = word.substr(0, end);
        if (part % 2 == 0) {
            if (!text.empty() || part == 0) forms.forms[forms.count++].text = text;
        } else {
            if (forms.count > 0) readmark(text, forms.forms[forms.count - 1]);
            if (text.size() > 2) {
                // What follows belongs to another word, glued to this one by a slash or the like.
                forms.suffix = text.substr(2);
                break;
            }
        }
        if (end == std::string_view::npos) break;
        word.remove_prefix(end + 1);
    }
    return forms;
}

void wordpair(std::string_view word, WordBefore& before, std::string& out, std::size_t start) {
    const Shell shell = shelled(word);
    const WordForms forms = wordforms(shell.word);
    std::string_view shown = forms.forms[0].text.empty() ? shell.word : forms.forms[0].text;
    const char now = forms.wordClass();
    const char earlier = before.forms.wordClass();
    if (earlier == 'N' && now == 'A' && forms.count > 1) shown = agreeing(forms, before.forms);
    if (earlier == 'A' && now == 'N') out.replace(before.at, before.size, agreeing(before.forms, forms));
    if (out.size() > start && out.back() != ' ') out += ' ';
    out += shell.lead;
    before = {forms, out.size(), shown.size()};
    out += shown;
    out += forms.suffix;
    out += shell.trail;
}

void wordagree(std::string_view text, std::string_view no, std::string& out) {
    constexpr std::string_view lineEnds = "\r\n\t";
    if (!no.empty() && trimmed(text) == no) {
        out += "Nee";
        return;
    }
    if (text.find('*') != std::string_view::npos) {
        out += text;
        return;
    }
    const std::size_t letter = menuletter(text);
    out += text.substr(0, letter);
    text.remove_prefix(letter);
    for (auto end = text.find_first_of(lineEnds); end != std::string_view::npos;
         end = text.find_first_of(lineEnds)) {
        agreeline(text.substr(0, end), out);
        out += text[end];
        text.remove_prefix(end + 1);
    }
    agreeline(text, out);
}

void wordclean(std::string& text) {
    dropbraces(text);
    const Language* const language = languageinforce();
    if (language && !language->table.empty() && !text.empty()) {
        const bool dutch = language->file == "VXLNGNED.TXT";
        std::string out;
        out.reserve(text.size());
        agreehalves(text, dutch ? std::string_view(word(Word::No)) : std::string_view(), out);
        text = out;
    }
    wordrestore(text);
}

void wordrestore(std::string& text) {
    for (char& c : text)
        if (isstandin(c)) c = meaningful[static_cast<std::size_t>(c - firstStandIn)];
}

void append(std::string& text, AsTyped part) {
    for (const char c : part.text) {
        const auto at = meaningful.find(c);
        if (at != std::string_view::npos)
            text += static_cast<char>(firstStandIn + at);
        else
            text += isstandin(c) ? firstStandIn : c; // a control byte that was typed shows as a blank
    }
}
