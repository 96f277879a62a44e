#pragma once

#include <array>
#include <cstdint>
#include <string>

/// What the user sees on the probability axis.
enum YScaleKind : int16_t {
    occurrencePercent = 0,
    reliabilityPercent = 1,
    occurrenceProbability = 2,
    reliabilityProbability = 3,
    occurrencePerThousand = 4,
    reliabilityPerThousand = 5
};

/// What a tick stands for, and so how its grid line is drawn.
enum AxisTickKind : int { lightTick = 0, heavyTick = 1, scaleTick = 2 };

/// Ticks of one axis, from index 1.
struct AxisTicks {
    static constexpr int most = 150;
    float tickcount = 0;
    std::array<float, most + 1> position{};  ///< canvas units along the axis
    std::array<float, most + 1> value{};     ///< on the data scale; a probability in percent
    std::array<float, most + 1> kind{};      ///< AxisTickKind
    std::array<std::string, most + 1> label; ///< empty: a tick without a label
};

/// A button drawn on the plot of the screen, canvas units; empty while none is drawn.
struct PlotButton {
    double left = 0, top = 0, right = 0, bottom = 0;
};

/// The window of a plot and where it stands on the canvas. The mouse reads values off the plot by it.
struct PlotWindow {
    double left = 0, top = 0, right = 0, bottom = 0; ///< plot area, canvas units
    double xlow = 0, xhigh = 0, ylow = 0, yhigh = 0; ///< its edges on the plot scales (transformed)
    double xfactor = 0, yfactor = 0;                 ///< canvas units a plot-scale unit
    std::array<PlotButton, 4> buttons{};             ///< Y scale smaller, larger, X scale smaller, larger
};

inline constexpr int16_t functionAxes = 3; ///< plotMode while a function is drawn on plain axes

/// What the plot shows and how.
struct PlotState {
    int16_t plotMode = 1;     ///< 1 probability plot; any other value an X-Y plot
    float xyscale = 0;        ///< axis pair of an X-Y plot: 1 log-lin, 2 lin-log, 3 log-log, 4, 5 reciprocal
    int16_t replotNeeded = 0; ///< 1: the plot must be redrawn at the end of the cycle
    int16_t familyDrawn = 0;  ///< family of the last cycle: a change clears the fit marks
    int16_t gumbeltypeDrawn = 0;
    std::string plotTitle;                  ///< main title
    std::string titleWanted;                ///< main title by the user's wish; empty: by the data
    std::string runTitle;                   ///< method and fit of the run
    std::string titleSecond;                ///< second title line
    std::string axisTitleX;                 ///< empty: the standard title
    std::string axisTitleY;                 ///< further text behind the standard title
    std::array<std::string, 3> labelText;   ///< further lines of the label block, kept as they are
    int16_t yScaleKind = occurrencePercent; ///< YScaleKind
    int16_t pointHide = 0;                  ///< 1: the points are not drawn
    int16_t pointLabelsShown = 1;           ///< 1: the label of each point stands beside it
    int16_t legendPlace = 1;                ///< 1: the legend stands under the parameters, 0: no legend
    int16_t functionPlot = 0;               ///< letter of the function in place of the plot; 0 none
    int16_t groupDisplay = 0;               ///< 1: sets are shown in groups
    int16_t parameterReminder = 0; ///< 1: say once that bounds on parameters need the parameter display
    float barCount = 0;            ///< histogram: the count its bars follow from

    double xlowd = 0, xhighd = 0;       ///< X window on the data scale, after the automatic rules
    double ylowd = 0, yhighd = 0;       ///< Y window; on a probability plot, probabilities
    double xAxisLow = 0, xAxisHigh = 0; ///< edges of the drawn axes: the window rounded outwards to ticks
    double yAxisLow = 0, yAxisHigh = 0;
    double xLimitLow = 0, xLimitHigh = 0; ///< manual X limits; 0 automatic
    double yLimitLow = 0, yLimitHigh = 0; ///< manual Y limits; 0 automatic
    int16_t manualScale = 0;              ///< 1: a manual limit has been taken
    std::string windowText;               ///< the window in words, for a diagnosis
    float tickindex =
        0; ///< ladder index of the tick being labelled; reliabilityLabels asks for mirrored ones
    AxisTicks xTicks, yTicks;
    PlotWindow window, windowSaved; ///< of the plot in hand, and of the last plot
    int16_t plotStopped = 0;        ///< 1: the analysis of the window refuses the plot
    int16_t segmentState = 0;       ///< 2: a traced line continues
};
