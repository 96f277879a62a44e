#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/numbertext.h"
#include "options/page.h"
#include "shell/output.h"
#include "shell/prompts.h"

/// Output: what goes out and where, and the ports.

namespace {

using S = Session;

constexpr PlaceOf kind = placeof<&S::outputKind>;

constexpr Item deviceItems[] = {
    pickitem('B', {Word::Printer, "... HI-RES"}, kind, 'B'),
    pickitem('C', {Word::Data, Word::List, Word::To, Word::Clipboard}, kind, 'C'),
    pickitem('D', {Word::Data, Word::List, Word::To, Word::Printer}, kind, 'D'),
    pickitem('E', {Word::Data, Word::List, Word::Export, Word::To, Word::Text, Word::File}, kind, 'E'),
    pickitem('H', {"HPGL =", Word::Picture, Word::File, "...", Word::Save, Word::As, ".HGL"}, kind, 'H'),
    pickitem('L', {"HPGL =", Word::Plotter, Word::Port}, kind, 'L'),
    pickitem('M', {"BITMAP", Word::Picture, Word::File, "...", Word::Save, Word::As, ".BMP"}, kind, 'M'),
    pickitem('P', {Word::Save, Word::Parameter, Word::Only, Word::To, Word::Clipboard}, kind, 'P'),
    pickitem('R', {Word::Report, Word::To, Word::Printer}, kind, 'R'),
    pickitem('S', {Word::Report, Word::To, Word::Clipboard}, kind, 'S'),
    pickitem('T', {Word::Report, Word::Export, Word::To, Word::Text, Word::File}, kind, 'T'),
    pickitem('W', {Word::Printer, "... WYSIWYG"}, kind, 'W'),
};

/// The label of the output chosen.
void appendoutput(std::string& text) {
    for (const Item& item : deviceItems)
        if (item.letter == static_cast<char>(session.outputKind)) append(text, item.label);
}

bool put() {
    outputactivate();
    return false;
}

bool values() {
    copyvalues();
    return false;
}

bool copies() {
    copyplot();
    return false;
}

/// Percentages in a text, blanks or semicolons between them; nothing where one is none.
std::optional<std::vector<double>> percentsof(std::string_view text) {
    std::vector<double> percents;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(" ;"), text.size());
        const std::string_view field = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (field.empty()) continue;
        const NumberText number = readentry(field);
        if (!number.readable || !(number.value > 0) || !(number.value < 100)) return std::nullopt;
        percents.push_back(number.value);
    }
    return percents;
}

/// Percentages that the values are put out at, as the user types them; none: the usual ones.
bool askvalues() {
    std::string present;
    for (const double percent : session.reportValue) {
        if (!present.empty()) present += ' ';
        appendshown(present, percent);
    }
    compose(session.msg, Word::Input, " ", Word::For, " ", Word::Value, " ", Word::Only, " ", Word::Text, " ",
            Word::Output, " (B%)");
    textprompt(present);
    if (session.msg == noAnswerText || session.msg == present) return false;
    const auto percents = percentsof(session.msg);
    if (!percents) {
        tell("0 < B% < 100");
        return false;
    }
    session.reportValue = *percents;
    return true;
}

void appendvalues(std::string& text) {
    for (const double percent : session.reportValue) {
        appendshown(text, percent, 6);
        text += ' ';
    }
    if (session.reportValue.empty()) append(text, Word::Default);
}

constexpr Item outputItems[] = {
    actionitem('A', {Word::Activate, Word::Output}, put),
    pageitem('B', {Word::Output, Word::Type}, OptionPage::outputDevice).shows(appendoutput),
    actionitem('G', {Word::Graphics, Word::To, Word::Clipboard}, copies),
    flipitem('D', {Word::Data, Word::Output, Word::Format}, placeof<&S::dataColumns>,
             {Word::Data, Word::Grid}, {Word::Column, Word::Text}),
    actionitem('M', {Word::Input, Word::For, Word::Value, Word::Only, Word::Text, Word::Output}, askvalues)
        .shows(appendvalues)
        .when(onlifeside),
    actionitem('N',
               {Word::Value, Word::Only, Word::Results, Word::Text, Word::Output, Word::To, Word::Clipboard},
               values),
    pageitem('P', {Word::Plotter, "/", Word::Port, Word::Setup, Word::Options}, OptionPage::ports),
    numberitem('S', {Word::Size, Word::For, Word::Printer, Word::Output, "[%]"}, placeof<&S::printPercent>,
               10, 100),
    flipitem('T', {Word::Total, Word::Report, Word::For, Word::Soft, Word::Copy}, placeof<&S::totalReport>),
    exititem('X', {Word::Exit, Word::To, Word::Main, Word::Display}),
};

// ---- ports ----

void appendport(std::string& text) {
    const int last = static_cast<int>(session.outputPorts.size()) - 1;
    text += session.outputPorts[static_cast<std::size_t>(std::clamp<int>(session.outputPort, 1, last))];
}

bool chooseport() {
    const std::vector<std::string> ports(session.outputPorts.begin() + 1, session.outputPorts.end());
    const int chosen = choosefrom({Word::Plotter, Word::Port}, ports, session.outputPort - 1);
    if (chosen < 0 || chosen + 1 == session.outputPort) return false;
    session.outputPort = static_cast<int16_t>(chosen + 1);
    return true;
}

bool choosebaud() {
    constexpr int rates[] = {300, 600, 1200, 2400, 4800, 9600, 19200, 38400, 57600, 115200};
    std::vector<std::string> names;
    int present = -1;
    for (const int rate : rates) {
        if (static_cast<float>(rate) == session.serialBaud) present = static_cast<int>(names.size());
        names.push_back(std::to_string(rate));
    }
    const int chosen = choosefrom({Word::Baud}, names, present);
    if (chosen < 0 || chosen == present) return false;
    session.serialBaud = static_cast<float>(rates[chosen]);
    return true;
}

/// The settings file keeps the parity behind the "@" of the line's text.
bool takeparity(char parity) {
    if (session.serialParity == parity) return false;
    session.serialParity = parity;
    session.serialLine = session.serialLine.substr(0, session.serialLine.find('@')) + '@' + parity;
    return true;
}

bool chooseparity() {
    constexpr char letters[] = {'N', 'E', 'O', 'M', 'S'};
    const std::vector<std::string> names = {"N  None", "E  Even", "O  Odd", "M  Mark", "S  Space"};
    const auto* const at = std::find(std::begin(letters), std::end(letters), session.serialParity);
    const int chosen = choosefrom({Word::Parity}, names, static_cast<int>(at - std::begin(letters)));
    return chosen >= 0 && takeparity(letters[chosen]);
}

/// The parity and the line's text that holds it go together.
Held parityinforce() { return {{static_cast<double>(session.serialParity)}, session.serialLine}; }

void putparity(const Held& held) {
    session.serialParity = static_cast<char>(held.numbers[0]);
    session.serialLine = held.text;
}

/// The line as it comes. The plotter's speed is no matter of the line, and its sign none of the port.
bool resetports() {
    const Drawing standard;
    const bool changed =
        session.serialBaud != standard.serialBaud || session.serialParity != standard.serialParity
        || session.serialDataBits != standard.serialDataBits
        || session.serialStopBits != standard.serialStopBits || session.outputPort != standard.outputPort;
    session.serialBaud = standard.serialBaud;
    session.serialDataBits = standard.serialDataBits;
    session.serialStopBits = standard.serialStopBits;
    session.outputPort = standard.outputPort;
    takeparity(standard.serialParity);
    return changed;
}

/// Velocity of the plotter; its sign says whether there is a frame, and stays.
bool askspeed() {
    double speed = std::abs(int{session.plotspeed});
    if (!asknumberwithin({Word::Speed, "(", Word::Plotter, ")"}, speed, 1, 100, true)) return false;
    const int sign = session.plotspeed < 0 ? -1 : 1;
    session.plotspeed = static_cast<int16_t>(sign * static_cast<int>(speed));
    return true;
}

constexpr Item portItems[] = {
    acceptitem('A', {Word::Activate}),
    actionitem('B', {Word::Baud, "(", Word::Com, ")"}, choosebaud).shows([](std::string& text) {
        appendshown(text, static_cast<double>(session.serialBaud), 7);
    }),
    wholeitem('D', {Word::Data, Word::Bit, "(", Word::Com, ")"}, placeof<&S::serialDataBits>, 5, 8),
    actionitem('K', {Word::Plotter, Word::Port}, chooseport).shows(appendport),
    actionitem('M', {Word::Speed, "(", Word::Plotter, ")"}, askspeed).shows([](std::string& text) {
        append(text, std::abs(int{session.plotspeed}));
    }),
    wholeitem('N', {Word::Pen, Word::Quantity, "(", Word::Plotter, "- HPGL )"}, placeof<&S::penCount>, 1, 8),
    actionitem('P', {Word::Parity, "(", Word::Com, ")"}, chooseparity).shows([](std::string& text) {
        text += session.serialParity;
    }),
    actionitem('R', {Word::Reset, Word::To, Word::Default}, resetports),
    numberitem('S', {Word::Stop, Word::Bit, "(", Word::Com, ")"}, placeof<&S::serialStopBits>, 1, 2),
    exititem('X', {Word::Exit}),
};
constexpr PlaceOf portPlaces[] = {placeof<&S::serialBaud>, placeof<&S::outputPort>, placeof<&S::plotspeed>};

constexpr Page pages[] = {
    {OptionPage::output, {Word::Output}, outputItems},
    {.page = OptionPage::outputDevice,
     .title = {Word::Output, Word::Type},
     .items = deviceItems,
     .list = true},
    {.page = OptionPage::ports,
     .title = {Word::Port},
     .items = portItems,
     .also = portPlaces,
     .keep = parityinforce,
     .restore = putparity},
};

} // namespace

std::span<const Page> outputpages() { return pages; }
