#pragma once

#include "session/session.h"

/// The arrays of the session by what indexes them. Sizing, clearing and the removal of a set all walk these
/// lists, so that an array added here is never forgotten by one of them.
namespace members {

inline constexpr List<float> Session::*setFloats[] = {
    &Session::t0,         &Session::rSquaredMinusCcc, &Session::CI,
    &Session::PVALUE,     &Session::cccSquared,       &Session::pvePercent,
    &Session::pADPercent, &Session::PVALUEFF,         &Session::ETABARR1,
    &Session::BETABARR1,  &Session::ETABARR2,         &Session::BETABARR2,
    &Session::BARRN,      &Session::NINSPECT,         &Session::RecurrentIDQTY,
    &Session::RELMARKER,  &Session::SDEVMARKER,       &Session::CORRCOEFMARKER,
    &Session::PVEMARKER,  &Session::PVESET1,          &Session::PVESET2,
    &Session::FITI};

inline constexpr List<double> Session::*setDoubles[] = {
    &Session::countOccr, &Session::setCorrelation, &Session::countSusp,      &Session::countDisc,
    &Session::countIntv, &Session::countQuantity,  &Session::occurrenceMean, &Session::timeTotal,
    &Session::sampleSd,  &Session::LOGLYKMLE,      &Session::modifiedA2,     &Session::DUANEC,
    &Session::DUANEI};

inline constexpr List<int16_t> Session::*setFlags[] = {&Session::setFitted, &Session::setCorrected,
                                                       &Session::setPlaced, &Session::setInputType,
                                                       &Session::FITKIND};

inline constexpr List<std::string> Session::*setTexts[] = {
    &Session::setLabel,  &Session::setBoundLabel, &Session::DUANEGROWTHS, &Session::CRAMERVONMISESTEXTS,
    &Session::curveType, &Session::IRECURSET,     &Session::BARRINDEXREL, &Session::BARREFF};

/// A list of numbers a set.
inline constexpr List<std::vector<float>> Session::*setLists[] = {&Session::DUANEX, &Session::DUANEY,
                                                                  &Session::PVEMARKERS};

inline constexpr List<float> Session::*lineFloats[] = {&Session::lineStyle, &Session::correlation,
                                                       &Session::paramThree};

inline constexpr List<std::string> Session::*lineTexts[] = {&Session::lineLabelA, &Session::lineLabelB,
                                                            &Session::correlationLabel};

/// Point tables by (row, point).
inline constexpr Table<float> Session::*rowPoints[] = {&Session::X, &Session::Y, &Session::entryX,
                                                       &Session::entryY, &Session::plotRank};

/// Point tables by (set, point).
inline constexpr Table<float> Session::*setPoints[] = {&Session::v1, &Session::v2, &Session::W2X,
                                                       &Session::W2Y};

} // namespace members
