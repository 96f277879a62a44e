#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "data/datafilesave.h"
#include "data/settitle.h"
#include "options/limits.h"
#include "options/page.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/platform.h"
#include "plot/markerline.h"
#include "plot/window.h"
#include "session/opendata.h"
#include "shell/calcplot.h"
#include "shell/commands.h"
#include "shell/plotpress.h"
#include "shell/prompts.h"
#include "shell/savename.h"

/// What the plot shows and how: window, style, points, lines, scale, and which view is in front.

namespace {

using S = Session;

// ---- window ----

bool totalreset() {
    const bool changed = session.xLimitLow != 0 || session.xLimitHigh != 0 || session.yLimitLow != 0
                         || session.yLimitHigh != 0;
    LOCKZOOMOUT();
    return changed;
}

struct LimitPlace {
    Label lead;
    LimitAxis axis;
    double Session::*low; ///< the two ends of the axis
    double Session::*high;
    bool lower; ///< which of them it is
    double& end() const { return session.*(lower ? low : high); }
};
constexpr LimitPlace limitPlaces[] = {
    {{"X-", Word::Lower}, LimitAxis::x, &S::xLimitLow, &S::xLimitHigh, true},
    {{"X-", Word::Upper}, LimitAxis::x, &S::xLimitLow, &S::xLimitHigh, false},
    {{"Y-", Word::Lower}, LimitAxis::y, &S::yLimitLow, &S::yLimitHigh, true},
    {{"Y-", Word::Upper}, LimitAxis::y, &S::yLimitLow, &S::yLimitHigh, false},
};

/// Asks for one end of the window. An end that crosses the other is refused.
bool asklimit(const LimitPlace& limit) {
    double value = limit.end();
    if (!askaxislimit(limit.lead, limit.axis, value)) return false;
    if (limit.lower ? limitscross(value, session.*limit.high) : limitscross(session.*limit.low, value)) {
        tell(Word::Lower, " >= ", Word::Upper);
        return false;
    }
    return std::exchange(limit.end(), value) != value;
}

template <std::size_t Which>
bool asklimit() {
    return asklimit(limitPlaces[Which]);
}

bool askall() {
    bool changed = false;
    for (const LimitPlace& limit : limitPlaces) changed = asklimit(limit) || changed;
    return changed;
}

template <std::size_t Which>
void appendlimit(std::string& text) {
    const LimitPlace& limit = limitPlaces[Which];
    appendaxislimit(text, limit.axis, limit.end());
}

constexpr Item limitItems[] = {
    actionitem('0', {Word::All}, askall),
    actionitem('1', {"X-", Word::Lower, Word::Select}, asklimit<0>).shows(appendlimit<0>),
    actionitem('2', {"X-", Word::Upper, Word::Select}, asklimit<1>).shows(appendlimit<1>),
    actionitem('3', {"Y-", Word::Lower, Word::Select}, asklimit<2>).shows(appendlimit<2>),
    actionitem('4', {"Y-", Word::Upper, Word::Select}, asklimit<3>).shows(appendlimit<3>),
    exititem('X', {Word::Exit}),
};

// ---- hidden sets ----

/// The sets by name, each with the mark that it is hidden; a choice turns the mark.
bool hidesets() {
    bool changed = false;
    for (;;) {
        std::vector<std::string> names;
        for (int k = 1; k <= setcount(); ++k) {
            std::string& name = names.emplace_back();
            compose(name, Word::Set, " ", k, " ", AsTyped{titleofset(k)}, " = ",
                    session.lineHide(k) == 1 ? Word::Hide : Word::View);
            wordclean(name);
        }
        const int chosen = choosefrom({Word::Set, Word::Hide}, names);
        if (chosen < 0) return changed;
        session.lineHide(chosen + 1) = session.lineHide(chosen + 1) == 1 ? 0 : 1;
        changed = true;
    }
}

void appendhidden(std::string& text) {
    int hidden = 0;
    for (int k = 1; k <= setcount(); ++k) hidden += session.lineHide(k) == 1 ? 1 : 0;
    if (hidden == 0)
        append(text, Word::No);
    else
        append(text, hidden);
}

bool anysets() { return setcount() > 0; }

bool plainscales() { return !onlifeside() && session.xyscale == 0; }

constexpr Item zoomItems[] = {
    actionitem('A', {Word::Automatic, Word::Total, Word::Reset}, totalreset),
    pageitem('R', {Word::Range, Word::For, Word::Linear, Word::PlotScale, Word::Zoom}, OptionPage::zoomLimit),
    actionitem('S', {Word::Set, Word::Hide}, hidesets).shows(appendhidden).when(anysets),
    pageitem('D', {Word::Data, Word::On, Word::Plot}, OptionPage::dataOnPlot).leaving().when(anysets),
    flipitem('U', {Word::Scientific, Word::PlotScale, Word::Value, Word::Display},
             placeof<&S::scientificScale>),
    flipitem('V', {"1:1", Word::Plot}, placeof<&S::equalScales>).when(plainscales),
    flipitem('X', {"X-", Word::PlotScale, Word::Value, Word::Display}, placeof<&S::xValuesShown>),
    flipitem('Y', {"Y-", Word::PlotScale, Word::Value, Word::Display}, placeof<&S::yValuesShown>),
    pageitem('Z', {Word::Zoom, Word::Symbol, "/", Word::Point, Word::Symbol, Word::Display},
             OptionPage::pointSymbols),
    exititem('0', {Word::OK, "...", Word::Exit}),
};

constexpr Item zoomRangeItems[] = {
    exititem('0', {Word::OK, "...", Word::Exit}),
    actionitem('A', {Word::Automatic, Word::Total, Word::Reset}, totalreset),
    pageitem('R', {Word::Range, Word::For, Word::Linear, Word::PlotScale, Word::Zoom}, OptionPage::zoomLimit),
    actionitem('S', {Word::Set, Word::Hide}, hidesets).shows(appendhidden).when(anysets),
    pageitem('F', {Word::Select, Word::At, Word::Value, "+", Word::On, Word::Plot}, OptionPage::dataOnPlot)
        .leaving(),
    pageitem('U', {Word::Extended, Word::Options}, OptionPage::extendedOptions).when(onlifeside),
    flipitem('W', {Word::Set, Word::Label, Word::Hide}, placeof<&S::legendPlace>, Word::No, Word::Yes, 1, 0),
    pageitem('Z', {Word::Style, Word::Options}, OptionPage::style),
    exititem('X', {Word::Exit, "...", Word::OK}),
};

// ---- style ----

/// The frame is drawn while the velocity of the plotter is not negative.
bool flipframe() {
    constexpr int16_t usual = 20;
    const int16_t speed = session.plotspeed;
    session.plotspeed = static_cast<int16_t>(speed == 0 ? -usual : -speed);
    return true;
}

constexpr Word gridNames[] = {Word::All, Word::Big, Word::None};

bool nextgrid() {
    session.gridLines =
        static_cast<int16_t>((session.gridLines + 1) % static_cast<int>(std::size(gridNames)));
    return true;
}

void appendgrid(std::string& text) {
    append(text, gridNames[std::clamp<std::size_t>(static_cast<std::size_t>(session.gridLines), 0, 2)]);
}

FilePage labeldialog(const std::string& header, const std::string& folder) {
    return {.header = header, .filter = "Label (*.lbl)|*.lbl|All (*.*)|*.*", .folder = folder};
}

/// Asks for a file; its name in msg.
template <class Ask>
bool withlabelfile(Word what, Ask ask) {
    if (!platform) return false;
    std::string header;
    wordclean(compose(header, what, " ", Word::Label, " ", Word::File));
    const std::string folder = nativepath(session.dataPath);
    const auto native = ask(labeldialog(header, folder));
    if (!native || native->empty()) return false;
    session.msg = ownpath(*native);
    return true;
}

bool getlabels() {
    if (!withlabelfile(Word::Get, [](const FilePage& page) { return platform->prompts().openfile(page); }))
        return false;
    const std::string name = session.msg;
    // A file of data is none of labels: its sets would join those that are there.
    const bool labels = readstart(name, 200).find("LABELS") != std::string::npos;
    if (labels && opendata(name, true) == DataRead::read) {
        session.resultsDirty = 1;
        return true;
    }
    tell(Word::Cannot, " ", Word::Get, ": ", AsTyped{name});
    return false;
}

bool savelabels() {
    if (!withlabelfile(Word::Save, [](const FilePage& page) { return platform->prompts().savefile(page); }))
        return false;
    const auto name = extendedname(session.msg, ".lbl");
    if (!name) return false;
    const Keep keep{session.u, session.fileName, session.resultsDirty};
    session.u = labelsWanted;
    datafilesave(*name);
    return false;
}

constexpr Item styleItems[] = {
    acceptitem('A', {Word::OK}),
    actionitem('F', {Word::Frame}, flipframe).shows([](std::string& text) {
        const bool drawn = session.plotspeed >= 0;
        extend(text, drawn ? Word::Yes : Word::No, " (/ ", drawn ? Word::No : Word::Yes, ")");
    }),
    actionitem('G', {Word::Grid, Word::Options}, nextgrid).shows(appendgrid),
    pageitem('L', {Word::Line, Word::Display, Word::Options}, OptionPage::lines),
    pageitem('P', {Word::Point, Word::Symbol, Word::Display, Word::Options}, OptionPage::pointSymbols),
    actionitem('R', {Word::Get, Word::Label, Word::Set, Word::From, Word::Label, Word::Only, Word::File},
               getlabels),
    actionitem('S', {Word::Save, Word::Label, Word::Only, Word::File}, savelabels),
    pageitem('Y', {"Y-", Word::PlotScale, Word::Type}, OptionPage::yScaleKind).when(onlifeside),
    exititem('X', {Word::Exit}),
};
constexpr PlaceOf stylePlaces[] = {placeof<&S::plotspeed>, placeof<&S::gridLines>};

bool resetsymbols() {
    const bool changed = session.pointHide != 0 || session.pointInterval != 1 || session.marksize != 0
                         || session.markFixed != 0 || session.pointLabelsShown != 1;
    session.pointHide = session.marksize = session.markFixed = 0;
    session.pointInterval = session.pointLabelsShown = 1;
    return changed;
}

constexpr Item symbolItems[] = {
    acceptitem('A', {Word::OK, "...", Word::Activate}),
    flipitem('H', {Word::Point, Word::Hide}, placeof<&S::pointHide>),
    wholeitem('K', {Word::Point, Word::Display, Word::Interval}, placeof<&S::pointInterval>, 1, 1000),
    flipitem('L', {Word::Point, Word::Label, Word::Display}, placeof<&S::pointLabelsShown>),
    actionitem('R', {Word::Reset, Word::To, Word::Standard}, resetsymbols),
    wholeitem('S', {Word::Symbol, Word::Size}, placeof<&S::marksize>, 0, 4),
    flipitem('T', {Word::Symbol, Word::Size, Word::Lock}, placeof<&S::markFixed>),
    exititem('X', {Word::Exit}),
};

constexpr Item lineItems[] = {
    acceptitem('A', {Word::OK, "...", Word::Activate}),
    flipitem('D', {Word::Set, Word::Label, Word::Display}, placeof<&S::legendPlace>),
    flipitem('L', {Word::Data, Word::Fit, Word::Line, Word::Hide}, placeof<&S::fitLinesHidden>),
    pageitem('N', {Word::Marker, Word::Line, Word::Delete}, OptionPage::markerLine).when([] {
        return !markerlines().empty();
    }),
    wholeitem('S', {Word::Plot, Word::Line, Word::Size}, placeof<&S::linewidth>, 1, 9),
    flipitem('T', {Word::Fit, Word::Line, Word::Display, Word::Truncated}, placeof<&S::fitLineTruncated>),
    flipitem('U', {Word::Label, Word::Pointer, Word::Line}, placeof<&S::labelPointers>),
    flipitem('V', {Word::Set, Word::Color, Word::For, Word::Same, Word::Title}, placeof<&S::groupDisplay>),
    exititem('X', {Word::Exit}),
};

constexpr Item yScaleItems[] = {
    pickitem('F', {Word::Occurrence, Word::As, "% ...", Word::Standard}, placeof<&S::yScaleKind>,
             occurrencePercent),
    pickitem('G', {"100 -", Word::Occurrence, Word::As, "%", "[", Word::Reliability, "%]"},
             placeof<&S::yScaleKind>, reliabilityPercent),
    pickitem('O', {Word::Occurrence, Word::Probability}, placeof<&S::yScaleKind>, occurrenceProbability),
    pickitem('R', {"1 -", Word::Occurrence, Word::Probability, "[", Word::Reliability, "]"},
             placeof<&S::yScaleKind>, reliabilityProbability),
    pickitem('T', {Word::Occurrence, "/ K ...", Word::Occurrence, Word::For, "1000"}, placeof<&S::yScaleKind>,
             occurrencePerThousand),
    pickitem('U', {"1000 -", Word::Occurrence, "/ K", "[", Word::Reliability, "/ K]"},
             placeof<&S::yScaleKind>, reliabilityPerThousand),
    exititem('X', {Word::Exit}),
};

// ---- data ----

/// What is done with the cells selected in the grid. The cycle has run when it is done.
bool selectedcells() {
    constexpr Word names[] = {Word::Delete, Word::Cut, Word::Copy};
    constexpr int actions[] = {editDelete, editCut, editCopy};
    std::vector<std::string> entries;
    for (const Word name : names) wordclean(entries.emplace_back(word(name)));
    const int chosen = choosefrom({Word::Data}, entries);
    if (chosen >= 0) editaction(actions[chosen]);
    return false;
}

/// What a press on the plot does from here on.
template <int Mode>
bool begin() {
    plotpressbegin(Mode);
    return false;
}

constexpr Item dataItems[] = {
    actionitem('D', {Word::Data, Word::Delete, "/", Word::Cut, "/", Word::Copy}, selectedcells),
    actionitem('E', {Word::Add, Word::Data, Word::On, Word::Plot}, begin<addPointMode>).leaving(),
    actionitem('F', {Word::Select, Word::At, Word::Value, "+", Word::On, Word::Plot}, begin<selectPointMode>)
        .leaving(),
    actionitem('H', {Word::Reset, Word::To, Word::Former},
               [] {
                   editaction(editUndo);
                   return false;
               }),
    exititem('X', {Word::Exit}),
};

// ---- views ----

template <ViewTab Tab>
bool view() {
    if (platform) platform->window().showview(Tab);
    return false;
}

/// The report in its whole form, or the table of ranks alone. It is shown as it then stands.
template <int16_t Ranks>
bool content() {
    const bool changed = std::exchange(session.ranksOnly, Ranks) != Ranks;
    if (changed) calcplot();
    return view<ViewTab::report>();
}

constexpr Item reportItems[] = {
    actionitem('P', {Word::Plot}, view<ViewTab::plot>).leaving(),
    actionitem('R', {Word::Report, "...", "ccc +", Word::BValue}, content<0>).leaving(),
    actionitem('T', {Word::Rank, Word::Table, "[", Word::Only, "]"}, content<1>).leaving().when(onlifeside),
    exititem('X', {Word::Exit}),
};

constexpr Item plotOrReportItems[] = {
    acceptitem('A', {Word::Activate, Word::Plot}),
    flipitem('C', {Word::Color, Word::Plot, Word::Output}, placeof<&S::colormode>, Word::No, Word::Yes, 1, 0),
    actionitem('P', {Word::Plot}, view<ViewTab::plot>).leaving(),
    actionitem('R', {Word::Report}, view<ViewTab::report>).leaving(),
    pageitem('S', {Word::Report, Word::Type}, OptionPage::reportContent).leaving(),
    pageitem('U', {Word::Type, Word::Of, Word::Plot, "/", Word::PlotScale}, OptionPage::yScaleKind)
        .when(onlifeside),
    exititem('X', {Word::Exit}),
};

constexpr Page pages[] = {
    {OptionPage::zoom, {Word::Zoom}, zoomItems},
    {OptionPage::zoomRange, {Word::Zoom, "/", Word::Range}, zoomRangeItems},
    {OptionPage::zoomLimit, {Word::Zoom, Word::Limit, Word::Select}, limitItems},
    {.page = OptionPage::style, .title = {Word::Style}, .items = styleItems, .also = stylePlaces},
    {OptionPage::pointSymbols, {Word::Point, Word::Symbol}, symbolItems},
    {OptionPage::lines, {Word::Line}, lineItems},
    {.page = OptionPage::yScaleKind,
     .title = {"Y-", Word::PlotScale, Word::Type},
     .items = yScaleItems,
     .list = true},
    {OptionPage::dataOnPlot, {Word::Data, Word::On, Word::Plot}, dataItems},
    {OptionPage::reportContent, {Word::Report}, reportItems},
    {OptionPage::plotOrReport, {Word::Plot, "/", Word::Report}, plotOrReportItems},
};

} // namespace

std::span<const Page> plotpages() { return pages; }
