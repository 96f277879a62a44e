#include "analysis/runresults.h"

#include "session/members.h"

namespace {

constexpr std::ptrdiff_t lastMethod = 2;    ///< of the parameter tables
constexpr std::ptrdiff_t lastParameter = 2; ///< of the tables by set or row

/// Points of the longest row, bound curves included.
std::ptrdiff_t longestrow(std::ptrdiff_t lines) {
    float longest = 0;
    for (std::ptrdiff_t i = 0; i <= lines; ++i) longest = std::max(longest, session.n(i));
    return static_cast<std::ptrdiff_t>(longest);
}

/// Calls use(list) for every list of one type of the session, in one order.
template <class Use>
void eachlist(const List<float>&, Use use) {
    for (const auto list : members::setFloats) use(session.*list);
    for (const auto list : members::lineFloats) use(session.*list);
    use(session.n);
}
template <class Use>
void eachlist(const List<double>&, Use use) {
    for (const auto list : members::setDoubles) use(session.*list);
}
template <class Use>
void eachlist(const List<int16_t>&, Use use) {
    for (const auto list : members::setFlags) use(session.*list);
}
template <class Use>
void eachlist(const List<std::string>&, Use use) {
    for (const auto list : members::setTexts) use(session.*list);
    for (const auto list : members::lineTexts) use(session.*list);
}

template <class T>
std::vector<List<T>> copies() {
    std::vector<List<T>> kept;
    eachlist(List<T>{}, [&kept](const List<T>& list) { kept.push_back(list); });
    return kept;
}

template <class T>
void putback(std::vector<List<T>>& kept) {
    auto next = kept.begin();
    eachlist(List<T>{}, [&next](List<T>& list) { list = std::move(*next++); });
}

} // namespace

KeepResults::KeepResults()
    : sets(setcount()),
      lines(static_cast<std::ptrdiff_t>(session.lastRow)),
      points(longestrow(lines)),
      floats(copies<float>()),
      doubles(copies<double>()),
      flags(copies<int16_t>()),
      texts(copies<std::string>()),
      etaFit(session.etaFit, lines, lastParameter),
      betaFit(session.betaFit, lines, lastParameter),
      paramA(session.paramA, lastMethod, lines),
      paramB(session.paramB, lastMethod, lines),
      paramLow(session.paramLow, sets, lastParameter),
      paramHigh(session.paramHigh, sets, lastParameter),
      plotX(session.pointPlotX, sets, points),
      X(session.X, lines, points),
      Y(session.Y, lines, points),
      entryX(session.entryX, lines, points),
      entryY(session.entryY, lines, points),
      plotRank(session.plotRank, lines, points),
      order(session.pointOrder, sets, points),
      types(session.pointTypes, sets, points) {}

KeepResults::~KeepResults() {
    putback(floats);
    putback(doubles);
    putback(flags);
    putback(texts);
}
