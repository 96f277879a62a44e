#pragma once

#include <cstdint>
#include <string>

/// Phrases composed from slots and literals, once for each load of the words. Marks of a language stand in
/// them until they are cleaned like any other text.
enum class Phrase : int16_t {
    MeanHeading,
    StdDevHeading,
    LocationHeading,
    MCF,
    RSquared,
    MTBF,
    AcceleratedTest,
    SelectDrag,
    SelectExit,
    FormerUsageRatio,
    QASet,
    QASets,
    LnLikelihood,
    LogNormal,
    MeanCumulativeFunction,
    PFEV,
    OccurrenceQuantity,
    PointQuantity,
    SuspensionQuantity,
    NelsonRecurrentEventPlot
};
inline constexpr int phraseCount = static_cast<int>(Phrase::NelsonRecurrentEventPlot) + 1;

const std::string& phrase(Phrase which);

/// Composes all phrases from the words in force.
void phraseload();

void append(std::string& text, Phrase which);
