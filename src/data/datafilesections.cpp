#include "data/datafilesections.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "data/datafileoptions.h"
#include "data/filelines.h"
#include "data/filevalue.h"
#include "data/labels.h"
#include "data/numbertext.h"
#include "data/rangeline.h"
#include "session/session.h"

namespace {

using S = Session;

// ---- places of single values ----

/// An item at the place that a function gives for group g.
template <auto At>
constexpr FileItem at() {
    return {[](std::string& line, int g) { appendvalue(line, At(g)); },
            [](std::string_view line, int g) { takevalue(line, At(g)); }};
}

template <auto Member>
auto& listplace(int g) {
    return (session.*Member)(g);
}
template <auto Member>
auto& arrayplace(int g) {
    return (session.*Member)[static_cast<std::size_t>(g)];
}
template <auto Member>
auto& theplace(int) {
    return session.*Member;
}

template <auto Member>
constexpr FileItem ofset[] = {at<listplace<Member>>()};
template <auto Member>
constexpr FileItem inarray[] = {at<arrayplace<Member>>()};
template <auto Member>
constexpr FileItem single[] = {at<theplace<Member>>()};

// ---- lists that grow with what the file holds ----

template <auto Member>
auto& grownplace(int g) {
    auto& list = session.*Member;
    const auto wanted = static_cast<std::size_t>(g);
    if (list.size() < wanted) list.resize(wanted);
    return list[wanted - 1];
}
template <auto Member>
constexpr FileItem grown[] = {at<grownplace<Member>>()};
template <auto Member>
int sizeoflist() {
    return static_cast<int>((session.*Member).size());
}
template <auto Member>
void emptylist() {
    (session.*Member).clear();
}
template <auto Member>
bool listholds() {
    return !(session.*Member).empty();
}
int nolimit() { return std::numeric_limits<int>::max(); }
int mostColumns() { return 200; }
int mostSteps() { return 720; }

// ---- counts of groups ----

template <int Count>
int fixed() {
    return Count;
}
int sets() { return setcount(); }
int extralines() {
    const int lines = static_cast<int>(session.maxLines - session.maxSets);
    return session.htmlMode == plainLines ? std::max(lines, 3) : lines;
}
int plotlines() { return static_cast<int>(session.maxLines - session.maxSets); }

bool haslines() { return session.maxLines > session.maxSets; }
bool hassets() { return setcount() > 0; }
bool hasbounds() { return session.progSide == lifeSide && (session.confLow != 0 || session.confHigh != 0); }

// ---- places that an index alone does not give ----

int rowof(int s) { return static_cast<int>(rowofset(static_cast<float>(s))); }
int lineof(int g) { return static_cast<int>(session.maxSets) + g; }
int methodline() { return session.fitMethodSaved == maximumLikelihood ? 2 : 1; }
bool mixing() { return session.mixFlag != 0; }

double& fittedeta(int s) { return session.etaFit(rowof(s), 1); }
double& fittedbeta(int s) { return session.betaFit(rowof(s), 1); }
double& etaofset(int s) { return session.paramA(methodline(), s); }
double& betaofset(int s) { return session.paramB(methodline(), s); }
template <int J>
double& extraofset(int s) {
    return session.paramExtra(J, s);
}
template <int J>
double& extraofline(int g) {
    return session.paramExtra(J, lineof(g));
}

/// A value of a line above the sets: the fit's, or the part of a mixture in its place.
template <auto Fitted, auto Mixture>
constexpr FileItem ofline() {
    return {[](std::string& line, int g) {
                mixing() && g <= session.mixEtas.bound() ? appendvalue(line, (session.*Mixture)(g))
                                                         : appendvalue(line, Fitted(g));
            },
            [](std::string_view line, int g) {
                mixing() && g <= session.mixEtas.bound() ? takevalue(line, (session.*Mixture)(g))
                                                         : takevalue(line, Fitted(g));
            }};
}
double& etaofline(int g) { return session.paramA(methodline(), lineof(g)); }
double& betaofline(int g) { return session.paramB(methodline(), lineof(g)); }
float& thirdofline(int g) { return session.paramThree(lineof(g)); }

// ---- lines of more than one value ----

void writecurve(std::string& line, int s) {
    const std::string& curve = session.curveType(s);
    const char first = curve.empty() || curve[0] < ' ' || curve[0] > '~' ? ' ' : curve[0];
    line += first >= 'a' && first <= 'z' ? static_cast<char>(first - 'a' + 'A') : first;
}
void readcurve(std::string_view line, int s) {
    const bool none = line.empty() || line[0] == ' ';
    session.curveType(s) = none ? std::string_view() : line.substr(0, 1);
}

void writevisible(std::string& line, int g) { appendvalue(line, session.lineVisible(g)); }
void readvisible(std::string_view line, int g) {
    session.lineVisible(g) = readentry(line).value != 0 ? 1 : 0;
}
void writeplotline(std::string& line, int g) { writevisible(line, lineof(g)); }
void readplotline(std::string_view line, int g) {
    readvisible(line, lineof(g));
    const bool first = session.fileSide == lifeSide && session.firstPlotLine == 0;
    if (first && readentry(line).value > 0) session.firstPlotLine = static_cast<int16_t>(lineof(g));
}

void writecorrelation(std::string& line, int s) {
    appendvalue(line, session.correlationLabel(s));
    line += ' ';
    appendvalue(line, session.cccSquared(s));
}
void readcorrelation(std::string_view line, int s) {
    const auto blank = line.find_last_of(' ');
    if (blank == std::string_view::npos) return;
    session.correlationLabel(s) = line.substr(0, blank);
    takevalue(line.substr(blank + 1), session.cccSquared(s));
}

void writeline(std::string& line, int g) {
    appendlabel(line, session.lineLabelA(lineof(g)), session.lineRange(lineof(g)));
}
void readline(std::string_view line, int g) {
    session.lineLabelA(lineof(g)) = takelabel(line, session.lineRange(lineof(g)));
}

double& bound(int s, int i) {
    auto& limits = i % 2 == 0 ? session.paramLow : session.paramHigh;
    return limits(s, 1 + i / 2);
}
void writebounds(std::string& line, int s) {
    for (int i = 0; i < 4; ++i) {
        if (i > 0) line += '_';
        appendvalue(line, bound(s, i));
    }
}
void readbounds(std::string_view line, int s) {
    for (int i = 0; i < 4 && !line.empty(); ++i) {
        const auto end = std::min(line.find('_'), line.size());
        takevalue(line.substr(0, end), bound(s, i));
        line.remove_prefix(std::min(end + 1, line.size()));
    }
}

// ---- tables of the items ----

constexpr FileItem visible[] = {{writevisible, readvisible}};
constexpr FileItem plotline[] = {{writeplotline, readplotline}};
constexpr FileItem curve[] = {{writecurve, readcurve}};
constexpr FileItem label[] = {at<labelline>()};
constexpr FileItem duane[] = {at<fittedeta>(), at<fittedbeta>(), at<listplace<&S::correlationLabel>>(),
                              at<listplace<&S::lineStyle>>()};
constexpr FileItem parameters1[] = {at<etaofset>(), at<betaofset>(), at<listplace<&S::t0>>(),
                                    at<extraofset<1>>(), at<extraofset<2>>()};
constexpr FileItem parameters2[] = {ofline<etaofline, &S::mixEtas>(), ofline<betaofline, &S::mixBetas>(),
                                    ofline<thirdofline, &S::mixPortions>(), at<extraofline<1>>(),
                                    at<extraofline<2>>()};
constexpr FileItem correlation[] = {{writecorrelation, readcorrelation}};
constexpr FileItem lineLabels[] = {{writeline, readline}};
constexpr FileItem paramConf[] = {{writebounds, readbounds}};

template <auto Field>
auto& normalising(int g) {
    return session.NORMXD[static_cast<std::size_t>(g)].*Field;
}
using N = FileTables::Normalising;
constexpr FileItem normxd[] = {at<normalising<&N::a>>(),    at<normalising<&N::b>>(),
                               at<normalising<&N::text>>(), at<normalising<&N::c>>(),
                               at<normalising<&N::d>>(),    at<normalising<&N::e>>(),
                               at<normalising<&N::f>>(),    at<normalising<&N::g>>()};

// ---- lists of numbers a set ----

template <auto Member>
constexpr FileList setlist = {
    [](int s) { return static_cast<int>((session.*Member)(s).size()); },
    [](int s, int j) { return (session.*Member)(s)[static_cast<std::size_t>(j - 1)]; },
    [](int s, int j, float value) {
        auto& list = (session.*Member)(s);
        j == 0 ? list.clear() : list.push_back(value);
    }};

/// Points of the process reliability plot: X and Y share their count.
template <auto Member>
constexpr FileList barrlist = {[](int s) {
                                   return std::clamp(static_cast<int>(session.BARRN(s)), 0,
                                                     static_cast<int>((session.*Member).firstbound()));
                               },
                               [](int s, int j) { return (session.*Member)(j, s); },
                               [](int s, int j, float value) {
                                   if (j > (session.*Member).firstbound()) return;
                                   session.BARRN(s) = static_cast<float>(j);
                                   if (j > 0) (session.*Member)(j, s) = value;
                               }};

int pointsofsecond(int s) {
    return std::clamp(static_cast<int>(session.W2n(s)), 0, static_cast<int>(session.maxPoints));
}
constexpr FileList w2list = {pointsofsecond, [](int s, int j) { return session.W2X(s, j); },
                             [](int s, int j, float value) {
                                 if (static_cast<float>(j) > session.maxPoints) return;
                                 session.W2n(s) = static_cast<float>(j);
                                 if (j > 0) session.W2X(s, j) = value;
                             }};

// ---- the table of the fitted terms ----

constexpr double mostTermValues = 30000;

bool hasterms() { return session.fitTermCount >= 1 && session.W2n(0) < mostTermValues; }

/// Numbers behind the value: whole groups of one more than there are terms.
int64_t termvalues(double value) {
    const int64_t group = session.fitTermCount + int64_t{1};
    return std::max<int64_t>(0, static_cast<int64_t>(value) / group * group);
}

void writeterms() {
    if (!hasterms()) {
        linewrite(" 0");
        return;
    }
    numwrite(session.W2n(0));
    const int64_t count = termvalues(static_cast<double>(session.W2n(0)));
    for (int j = 1; j <= count; ++j) {
        std::string line;
        appendvalue(line, static_cast<float>(j) <= session.maxPoints ? session.W2X(0, j) : 0.0f);
        linewrite(line);
    }
}

bool readterms() {
    const double value = readentry(nextline()).value;
    if (session.fitTermCount < 1 || !(value >= 0) || !(value < mostTermValues)) return true;
    session.W2n(0) = static_cast<float>(std::trunc(value));
    const int64_t count = termvalues(value);
    for (int j = 1; j <= count && session.eofFlag == 0; ++j) {
        const std::string_view line = nextline();
        if (static_cast<float>(j) <= session.maxPoints) takevalue(line, session.W2X(0, j));
    }
    return true;
}

// ---- the sections ----

/// One value for each set.
template <auto Member>
constexpr FileSection persettag(std::string_view tag) {
    return {.tag = tag, .items = ofset<Member>, .groups = sets, .ofSets = true};
}
/// A fixed array, from 1.
template <auto Member, int Count>
constexpr FileSection arraytag(std::string_view tag) {
    return {.tag = tag, .items = inarray<Member>, .groups = fixed<Count>};
}
/// A list that has the size the file gives it; it stands in the file when it is not empty.
template <auto Member>
constexpr FileSection growntag(std::string_view tag, int (*most)(), bool whenEmpty = false) {
    return {.tag = tag,
            .items = grown<Member>,
            .groups = sizeoflist<Member>,
            .most = most,
            .written = whenEmpty ? nullptr : listholds<Member>,
            .begin = emptylist<Member>};
}
/// A single line.
template <auto Member>
constexpr FileSection linetag(std::string_view tag) {
    return {.tag = tag, .items = single<Member>, .groups = fixed<1>};
}
/// A list for each set.
constexpr FileSection listtag(std::string_view tag, const FileList& list) {
    return {.tag = tag, .items = {}, .groups = sets, .countsGroups = true, .ofSets = true, .list = &list};
}
constexpr FileSection older(FileSection section) {
    section.readerOnly = true;
    return section;
}

constexpr FileSection sections[] = {
    {.tag = "STYLE1", .items = {}, .groups = fixed<10>, .writeAll = stylewrite, .readAll = styleread},
    {.tag = "STYLE2", .items = visible, .groups = sets, .ofSets = true},
    {.tag = "CURVE_TYPE", .items = curve, .groups = sets, .ofSets = true},
    older(linetag<&S::xyLogFit>("XYLOGFIT")),
    linetag<&S::fontName>("FONT"),
    {.tag = "LABELSWVW", .items = label, .groups = fixed<7>},
    {.tag = programTag,
     .items = {},
     .groups = fixed<programCount>,
     .writeAll = programwrite,
     .readAll = programread},
    arraytag<&S::SOLCOEF, 10>("SOLCOEF"),
    {.tag = "PARAMETERS_DUANE", .items = duane, .groups = sets, .ofSets = true},
    {.tag = "PLOTLINEONLY", .items = plotline, .groups = plotlines, .written = haslines, .ofSets = true},
    {.tag = "PARAMETERS1", .items = parameters1, .groups = sets, .ofSets = true},
    {.tag = "PARAMETERS2", .items = parameters2, .groups = extralines, .ofSets = true},
    {.tag = "CORRELATION(R*R)", .items = correlation, .groups = sets, .ofSets = true},
    growntag<&S::plotB>("PLOT_B-VALUES", nolimit),
    growntag<&S::reportValue>("REPORT_VALUES", nolimit),
    {.tag = "LINE_LABELS", .items = lineLabels, .groups = extralines, .ofSets = true},
    {.tag = "PARAMCONF", .items = paramConf, .groups = sets, .written = hasbounds, .ofSets = true},
    {.tag = "PVALUE", .items = ofset<&S::PVALUE>, .groups = sets, .written = hassets, .ofSets = true},
    {.tag = "PVALUEFF", .items = ofset<&S::PVALUEFF>, .groups = sets, .written = hassets, .ofSets = true},
    arraytag<&S::palette, 25>("COLORS"),
    growntag<&S::riskUsageRate>("RISKUSAGERATE()", mostSteps, true),
    growntag<&S::riskProdRate>("RISKPRODRATE()", mostSteps, true),
    arraytag<&S::riskParamFactor, 60>("RISKPARAMFACTOR()"),
    growntag<&S::columnText>("XLS()", mostColumns),
    persettag<&S::CI>("CI()"),
    persettag<&S::LOGLYKMLE>("LOGLYKMLE()"),
    persettag<&S::lineHide>("LINEHIDE()"),
    persettag<&S::FITKIND>("FITKIND()"),
    listtag("W2()", w2list),
    older(persettag<&S::ETABARR1>("ETABARR()")),
    older(persettag<&S::BETABARR1>("BETABARR()")),
    persettag<&S::ETABARR1>("ETABARR1()"),
    persettag<&S::BETABARR1>("BETABARR1()"),
    persettag<&S::ETABARR2>("ETABARR2()"),
    persettag<&S::BETABARR2>("BETABARR2()"),
    older(listtag("BARRX()", barrlist<&S::BARRXA>)),
    older(listtag("BARRY()", barrlist<&S::BARRYA>)),
    listtag("BARRXA()", barrlist<&S::BARRXA>),
    listtag("BARRYA()", barrlist<&S::BARRYA>),
    persettag<&S::DUANEGROWTHS>("DUANEGROWTHS()"),
    persettag<&S::CRAMERVONMISESTEXTS>("CRAMERVONMISESTEXTS()"),
    growntag<&S::POINTMARKERX>("POINTMARKERX()", nolimit),
    growntag<&S::POINTMARKERY>("POINTMARKERY()", nolimit),
    persettag<&S::NINSPECT>("NINSPECT()"),
    linetag<&S::libraryItem>("LIBRARYITEM"),
    arraytag<&S::SOLCOEFA, 10>("SOLCOEFA"),
    arraytag<&S::SOLCOEFB, 10>("SOLCOEFB"),
    persettag<&S::DUANEC>("DUANEC"),
    persettag<&S::DUANEI>("DUANEI"),
    arraytag<&S::FITIXSAVE, 3>("FITIXSAVE"),
    growntag<&S::FITO1>("FITO1", nolimit, true),
    {.tag = "NORMXD", .items = normxd, .groups = fixed<10>, .countsGroups = true},
    linetag<&S::analysisComment>("ANALYSISCOMMENT"),
    persettag<&S::IRECURSET>("IRECURSET"),
    persettag<&S::RecurrentIDQTY>("RecurrentIDQTY"),
    listtag("DUANEX", setlist<&S::DUANEX>),
    listtag("DUANEY", setlist<&S::DUANEY>),
    persettag<&S::RELMARKER>("RELMARKER"),
    persettag<&S::SDEVMARKER>("SDEVMARKER"),
    persettag<&S::CORRCOEFMARKER>("CORRCOEFMARKER"),
    {.tag = "PVEMARKER",
     .items = ofset<&S::PVEMARKER>,
     .groups = sets,
     .ofSets = true,
     .list = &setlist<&S::PVEMARKERS>},
    persettag<&S::PVESET1>("PVESET1"),
    persettag<&S::PVESET2>("PVESET2"),
    persettag<&S::FITI>("FITI"),
    {.tag = "W2(0)",
     .items = {},
     .groups = fixed<1>,
     .ofSets = true,
     .writeAll = writeterms,
     .readAll = readterms},
    growntag<&S::riskUsageRate1>("RISKUSAGERATE1()", mostSteps, true),
    growntag<&S::riskProdRate1>("RISKPRODRATE1()", mostSteps, true),
    arraytag<&S::riskParamFactor1, 60>("RISKPARAMFACTOR1()"),
    persettag<&S::BARRINDEXREL>("BARRINDEXREL()"),
    persettag<&S::BARREFF>("BARREFF()"),
};

/// Lines that are looked over to see whether the count of a section is right.
constexpr double mostTrusted = 5000;

/// Lists of all groups, behind the items of the section.
void writelists(const FileSection& section) {
    std::string line;
    for (int g = 1; g <= section.groups(); ++g) {
        const int count = section.list->size(g);
        appendvalue(line.assign({}), int32_t{count});
        linewrite(line);
        for (int j = 1; j <= count; ++j) {
            appendvalue(line.assign({}), section.list->get(g, j));
            linewrite(line);
        }
    }
}

/// Items of the groups up to `most`. A text among them may read like a tag: where the section ends just as
/// its count says, nothing within it is taken for one.
void readitems(int number, bool countsGroups, double count, int most) {
    const std::span<const FileItem> items = sections[static_cast<std::size_t>(number)].items;
    const auto each = static_cast<double>(items.size());
    const double lines = countsGroups ? count * each : count;
    const bool exact = lines <= std::min(most * each, mostTrusted) && countholds(number, lines);
    int g = 1;
    std::size_t item = 0;
    for (double n = 1; n <= lines; ++n) {
        std::string_view line = exact ? nextline() : std::string_view();
        if (exact ? session.eofFlag == 1 : !sectionline(number, line)) return;
        if (g <= most) items[item].read(line, g);
        if (++item == items.size()) item = 0, ++g;
    }
}

void readlists(int number, double groups) {
    const FileSection& section = filesections()[static_cast<std::size_t>(number)];
    for (int g = 1; g <= groups; ++g) {
        std::string_view line;
        if (!sectionline(number, line)) return;
        const bool known = g <= section.groups();
        const double count = readentry(line).value;
        if (known) section.list->put(g, 0, 0);
        for (int j = 1; j <= count; ++j) {
            if (!sectionline(number, line)) return;
            float value = 0;
            takevalue(line, value);
            if (known) section.list->put(g, j, value);
        }
    }
}

} // namespace

std::span<const FileSection> filesections() { return sections; }

int sectionat(std::string_view line, int first) {
    for (int i = 0; i < static_cast<int>(std::size(sections)); ++i) {
        const FileSection& section = sections[static_cast<std::size_t>(i)];
        if (section.tag == line && (i >= first || section.readerOnly)) return i;
    }
    return -1;
}

bool countholds(int number, double lines) {
    const std::size_t place = inputplace();
    std::string_view line;
    for (double n = 0; n <= lines && session.eofFlag == 0; ++n) line = nextline();
    const bool holds = session.eofFlag == 1 || sectionat(line, number + 1) >= 0;
    inputseek(place);
    return holds;
}

bool sectionline(int number, std::string_view& line) {
    const std::size_t place = inputplace();
    line = nextline();
    if (session.eofFlag == 1) return false;
    if (sectionat(line, number + 1) < 0) return true;
    inputseek(place);
    return false;
}

void writesection(const FileSection& section) {
    if (section.readerOnly || (section.written && !section.written())) return;
    linewrite(section.tag);
    if (section.writeAll) {
        section.writeAll();
        return;
    }
    const int groups = section.groups();
    const auto lines = section.items.size();
    std::string line;
    appendvalue(line,
                int32_t{section.countsGroups || lines == 0 ? groups : groups * static_cast<int>(lines)});
    linewrite(line);
    for (int g = 1; g <= groups; ++g)
        for (const FileItem& item : section.items) {
            item.write(line.assign({}), g);
            linewrite(line);
        }
    if (section.list) writelists(section);
}

bool readsection(int number) {
    const FileSection& section = sections[static_cast<std::size_t>(number)];
    if (section.readAll) return section.readAll();
    std::string_view line;
    if (!sectionline(number, line)) return true;
    const double count = readentry(line).value;
    if (section.begin) section.begin();
    const int most = section.most ? section.most() : section.groups();
    if (!section.items.empty()) readitems(number, section.countsGroups, count, most);
    if (section.list) readlists(number, count);
    return true;
}
