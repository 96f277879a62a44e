#include "shell/helppages.h"

#include "shell/prompttext.h"

namespace {

template <class... Parts>
std::string shown(const Parts&... parts) {
    std::string text;
    extend(text, parts...);
    wordclean(text);
    return text;
}

/// One line of a page. The term is a literal: a cell, a key, a name.
struct Line {
    HelpKind kind;
    std::string_view term, text;
};
constexpr HelpKind heading = HelpKind::heading;
constexpr HelpKind text = HelpKind::text;
constexpr HelpKind item = HelpKind::item;
constexpr HelpKind entry = HelpKind::entry;

constexpr Line practice[] = {
    {heading, "", "Before the fit"},
    {item, "",
     "One failure mode, one set. A line through several modes describes none of them. Parts that failed in "
     "another mode are suspensions of the mode in hand."},
    {item, "",
     "Enter every unit: those that still run, or were taken out whole, are suspensions. Leaving them out "
     "makes "
     "the life look shorter than it is."},
    {item, "",
     "Use the age that does the damage: cycles, starts, distance or hours under load, counted from new."},
    {item, "",
     "A failure found at an inspection happened at some time since the one before: enter it as an interval, "
     "not at the age at which it was found."},
    {heading, "", "Choosing the family"},
    {item, "",
     "Let physics speak first. Weibull suits the weakest link of many, LogNormal a damage that grows by "
     "proportion (fatigue cracks, many repair times), Normal the sum of many small effects, Gumbel extreme "
     "values: the minimum for strengths, the maximum for loads."},
    {item, "",
     "With fewer than about twenty failures the data alone seldom tell Weibull from LogNormal. Weibull is "
     "the "
     "careful choice where early failures matter: its lower tail lies lower."},
    {item, "",
     "A curve on the plot is a question, not yet a threshold: look for mixed modes, mixed batches and wrong "
     "ages first. A threshold t0 needs a reason why nothing can fail before it, and some twenty failures."},
    {heading, "", "Reading the slope of a Weibull line"},
    {entry, "Beta < 1", "Early failures: the failure rate falls. Look at production, installation, quality."},
    {entry, "Beta = 1", "Chance: the failure rate is constant. An old unit is as good as a new one."},
    {entry, "Beta > 1", "Wear: the failure rate grows. A planned replacement can pay from here on."},
    {heading, "", "Before a decision"},
    {item, "", "Give bounds with every estimate. Few failures make wide bounds; that is what the data say."},
    {item, "",
     "Extrapolate in steps: far below the first failure the family decides, not the data. Compare two "
     "families there."},
    {item, "",
     "Keep the assumption of each result beside it: mode, ages, family, fit method, confidence. The report "
     "of "
     "the program prints them."},
    {text, "",
     "Sources: W. Nelson, Applied Life Data Analysis (1982); W. Q. Meeker and L. A. Escobar, Statistical "
     "Methods for Reliability Data (1998); IEC 61649, Weibull analysis (2008)."},
};

constexpr Line methods[] = {
    {heading, "", "Ranks and plotting positions"},
    {text, "",
     "Points are ordered by value. Each failure moves the rank on; a suspension makes the steps behind it "
     "larger (Johnson 1964). The rank becomes a probability by Benard's median rank (r - 0.3)/(N + 0.4) "
     "unless "
     "another position is chosen."},
    {heading, "", "Regression or likelihood"},
    {entry, "rr",
     "Least squares on the probability plot. What is seen is what is fitted; steady for small samples with "
     "few "
     "suspensions. The goodness of fit r^2 with its critical value belongs to it."},
    {entry, "mle",
     "Maximum likelihood uses each suspension at its own age and each interval as it is. The choice for many "
     "suspensions, intervals and large samples; for few failures its slope is biased upwards."},
    {entry, "mle-RBA",
     "Maximum likelihood with its slope or spread corrected for a small sample by the unbiasing factor C4."},
    {heading, "", "Confidence bounds"},
    {entry, "fm",
     "Fisher matrix: quick, for large samples. Symmetrical on its own scale, too narrow for few "
     "failures."},
    {entry, "lr",
     "Likelihood ratio: the extremes over all lines that the data do not reject. Unsymmetrical "
     "as it should be for small samples (Meeker and Escobar 1998)."},
    {entry, "bi", "Beta binomial: by the ranks alone, whatever the family. Wide, and none beyond the data."},
    {entry, "pv, mc",
     "Simulated samples. The pivotal bounds of complete data are exact but for the count of "
     "samples (Lawless 2003)."},
    {heading, "", "Weibayes"},
    {text, "",
     "With few failures, or none, a slope known from earlier tests of the same mode leaves only the scale to "
     "the data: eta = (Sum t^beta / r)^(1/beta). Without a failure r = 1 stands for one about to happen; "
     "the line is then a lower bound at 63.2 percent confidence. The result is as good as the slope that was "
     "put in: try the least and the largest that are believable."},
    {heading, "", "Goodness of fit"},
    {entry, "r^2", "For regression: compare with ccc^2, which nine of ten samples of the family exceed."},
    {entry, "pve%",
     "The share of samples of the family that fit no better; below 10 doubt the family, or the "
     "data."},
    {entry, "LL",
     "For maximum likelihood: of two families the larger one fits better; small differences "
     "prove nothing."},
    {entry, "AD", "Anderson-Darling test of complete data (D'Agostino and Stephens 1986)."},
    {text, "", "A good fit does not prove a family, it only fails to speak against it."},
    {text, "",
     "Sources: J. F. Lawless, Statistical Models and Methods for Lifetime Data (2003); W. Nelson (1982); "
     "Meeker and Escobar (1998)."},
};

constexpr Line cells[] = {
    {heading, "", "Ages of units"},
    {entry, "150", "A failure at 150."},
    {entry, "-150", "A suspension at 150: the unit ran so long without this failure."},
    {entry, "150_pump 7", "What follows the mark _ is the label of the point."},
    {entry, "150x0x4", "Value x 0 x quantity: four failures at 150."},
    {entry, "-150x0x4", "Four suspensions at 150."},
    {heading, "", "Unknown and bounded ages"},
    {entry, "<150", "Discovery: it had failed before 150, and nobody knows when."},
    {entry, ">150", "Beyond 150, not known how far: a suspension."},
    {entry, ">100<150",
     "Interval: it failed between 100 and 150. In the interval form 100x0x1x150 says the "
     "same."},
    {heading, "", "Pairs"},
    {entry, "12.5x3.1", "X-value x Y-value, on the visual side and in grouped forms."},
    {heading, "", "In general"},
    {text, "",
     "Each column is a set, its heading the title of the set. The line above the grid tells what a cell "
     "holds "
     "under the input method in force. A cell that cannot be read stays as it was typed, marked, and is left "
     "out. Rows from a spreadsheet are pasted as they stand."},
};

constexpr Line keys[] = {
    {heading, "", "Everywhere"},
    {entry, "F1", "Help"},
    {entry, "F2", "About"},
    {entry, "F3", "Statistics of the set in hand"},
    {entry, "Esc", "Leaves: the entry, the page, the mode, at last the program"},
    {entry, "Ctrl+Z, Ctrl+Y", "Undo, redo"},
    {heading, "", "Grid"},
    {entry, "Enter", "Takes the entry and goes down"},
    {entry, "Arrows", "Take an open entry and go on"},
    {entry, "Shift+Arrows", "Select cells"},
    {entry, "Ctrl+X, Ctrl+C, Ctrl+V", "Cut, copy, paste"},
    {entry, "Del", "Deletes the cells selected"},
    {entry, "Ctrl+T", "Title of the set in hand"},
    {entry, "Menu, Shift+F10", "As the right button on the cell in hand, or on the former results"},
    {heading, "", "Drop-downs and pages"},
    {entry, "Letter", "Picks the item of that letter"},
    {entry, "Up, Down", "Move the selection; headings are passed over"},
    {entry, "Enter", "Takes the selected item"},
    {entry, "Right button", "On an icon or a cell: explains, and changes nothing"},
    {heading, "", "Entry of a number"},
    {entry, "Up, Down", "Step the number; held, they go faster"},
    {entry, "PgUp, PgDn", "Make the step ten times larger or smaller"},
};

HelpPage page(std::string title, std::span<const Line> lines) {
    HelpPage made{std::move(title), {}};
    for (const Line& line : lines)
        made.parts.push_back({line.kind, std::string(line.term), std::string(line.text)});
    return made;
}

} // namespace

std::vector<HelpPage> helppages() {
    return {page(shown(Word::BestPracticesGuide), practice),
            page(shown(Word::Method, " ", Word::Information), methods),
            page(shown(Word::Data, " ", Word::Input), cells), page(shown(Word::Keyboard), keys)};
}

/// Questions run down the first column, what to do stands beside them.
FlowChart flowchart() {
    const std::string yes = shown(Word::Yes), no = shown(Word::No);
    FlowChart chart{shown(Word::FlowChart), 2, 7, {}, {}};
    struct Stage {
        const char *question, *answer;
    };
    constexpr Stage stages[] = {
        {"Several failure modes, or a kink in the plot?",
         "Separate the modes, one a set, the others as suspensions. Else Competing or Mixture."},
        {"No failure, or fewer than about three?",
         "Weibayes with a slope known from earlier data of the same mode. Else go on testing."},
        {"Ages known between inspections only?", "Interval cells, maximum likelihood (mle)."},
        {"Many suspensions, or hundreds of points?",
         "Maximum likelihood (mle), bounds by likelihood ratio (lr)."},
        {"Fewer than about twenty failures?",
         "Rank regression (rr) or mle-RBA, Weibull first. Bounds: lr or pivotal (pv)."},
        {"Does the line miss the points? r^2 < ccc^2, or pve% < 10?",
         "Check ages and modes again, then LogNormal, then a threshold t0 if physics gives a reason."},
    };
    int row = 0;
    for (const Stage& stage : stages) {
        const int question = static_cast<int>(chart.boxes.size());
        chart.boxes.push_back({0, row, true, stage.question});
        chart.boxes.push_back({1, row, false, stage.answer});
        chart.ways.push_back({question, question + 1, yes});
        chart.ways.push_back({question, question + 2, no});
        ++row;
    }
    chart.boxes.push_back({0, row, false, "Report the line with its bounds, and what was assumed."});
    return chart;
}
