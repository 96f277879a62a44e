#include "shell/phrases.h"

#include <array>

#include "shell/words.h"

namespace {

using Phrases = std::array<std::string, phraseCount>;

template <class... Parts>
void put(Phrases& phrases, Phrase which, const Parts&... parts) {
    compose(phrases[static_cast<std::size_t>(which)], parts...);
}

void headings(Phrases& p) {
    put(p, Phrase::MeanHeading, Word::Mean);
    put(p, Phrase::StdDevHeading, Word::StdDev);
    put(p, Phrase::LocationHeading, Word::Location);
}

/// Names of methods, the same in every language.
void names(Phrases& p) {
    put(p, Phrase::MCF, "MCF");
    put(p, Phrase::RSquared, "r^2");
    put(p, Phrase::MTBF, "MTBF");
}

void composed(Phrases& p) {
    put(p, Phrase::AcceleratedTest, Word::Accelerated, " ", Word::Test, " / ", Word::Degradation,
        " / CoVariate");
    put(p, Phrase::SelectDrag, Word::Select, " + ", Word::Drag, " = ", Word::Activate);
    put(p, Phrase::SelectExit, Word::Select, " ", Word::Exit, " ", Word::Or, " <Esc> ", Word::If, " ",
        Word::Done);
    put(p, Phrase::FormerUsageRatio, "Vasan-Tarnbrook ", Word::Former, " ", Word::Usage, " ", Word::To, " ",
        Word::Test, " ", Word::Ratio, " ... FUTR");
    put(p, Phrase::QASet, Word::QA, " ", Word::Set);
    put(p, Phrase::QASets, Word::QA, " ", Word::Sets);
    put(p, Phrase::LnLikelihood, "Ln ", Word::Likelihood);
    put(p, Phrase::LogNormal, Word::Log, Word::Normal);
    put(p, Phrase::MeanCumulativeFunction, Word::Mean, " ", Word::Cumulative, " ", Word::Function);
    put(p, Phrase::PFEV, "PFEV ... ", Word::Parameter, " = ", Word::Function, " [", Word::Engineering, " ",
        Word::Variable, "]");
    put(p, Phrase::OccurrenceQuantity, Word::Occurrence, " ", Word::Quantity);
    put(p, Phrase::PointQuantity, Word::Point, " ", Word::Quantity);
    put(p, Phrase::SuspensionQuantity, Word::Suspension, " ", Word::Quantity);
    put(p, Phrase::NelsonRecurrentEventPlot, "Nelson ", Word::Recurrent, " ", Word::Event, " ", Word::Plot);
}

void fill(Phrases& p) {
    headings(p);
    names(p);
    composed(p);
}

/// Filled at the first look, in English before the first load, as the words are.
Phrases& phrases() {
    static Phrases table = [] {
        Phrases first;
        fill(first);
        return first;
    }();
    return table;
}

} // namespace

const std::string& phrase(Phrase which) { return phrases()[static_cast<std::size_t>(which)]; }

void phraseload() { fill(phrases()); }

void append(std::string& text, Phrase which) { text += phrase(which); }
