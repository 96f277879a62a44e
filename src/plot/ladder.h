#pragma once

#include <span>
#include <string_view>

/// The ladder of the probability axis: fixed ticks with fixed labels, from 99.9999 down to 1E-31 percent.

inline constexpr float noTickIndex = 0;
inline constexpr float reliabilityLabels = -1000; ///< tickindex: mirrored labels for a reliability axis

/// A tick of the ladder.
struct LadderTick {
    double percent;
    std::string_view label; ///< as drawn, " 63.212"
    bool heavy;             ///< a decade: drawn as a heavier line
};

/// The ticks of a probability axis in rising order: 1-2-5 in each decade up to 10, tens to 90, then 95, 99,
/// 99.9, 99.99, 99.999; without the 63.212 line.
std::span<const LadderTick> ladder();

/// True when the axis counts survivors: yScaleKind 1, 3 and 5.
bool showsreliability();

/// Label of ud percent into msg. tickindex: a ladder index chooses its label at once (22 is " 63.212"); 0
/// searches by the value; reliabilityLabels mirrors the value to 100 - ud first when the axis shows
/// reliability (yScaleKind 1, 3, 5), and ud comes back as it was; above 99.99925 the mirrored value is
/// written out with its nines, " 100" where a double holds no more of them. An index the ladder does not have
/// counts as 0. The empty text for a value that the ladder cannot place.
void probticklabel();
