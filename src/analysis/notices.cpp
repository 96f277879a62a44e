#include "analysis/notices.h"

#include "platform/platform.h"
#include "shell/prompts.h"

void keepnotice(int k) {
    std::string notice = session.msg;
    wordclean(notice);
    if (static_cast<std::size_t>(k) < session.setMessages.size())
        session.setMessages[static_cast<std::size_t>(k)].push_back(notice);
    if (session.quiet != 1) {
        session.menuTitle.clear();
        tellok();
    }
    session.msg = notice;
}

bool escaped() {
    if (platform && platform->window().pendingevents()) session.abortCode = escapePressed;
    return session.abortCode == escapePressed;
}

bool escapedat(double done) {
    if (platform) platform->window().progress(done);
    return escaped();
}

void tellbadrow(int k, int j) {
    const auto tell = [k](const auto&... cause) {
        tellset(k, Word::Outside, " ", Word::Input, " ", Word::Range, cause..., "\n", Word::For, " ",
                Word::Probit, " ", Word::Data, "\n", Word::Note, ": 0 % ", Word::Or, " 100 % ",
                Word::Occurrence, " = ", Word::Bad);
    };
    if (session.v1(k, j) <= 0)
        tell(" ... ", Word::Affected, " <= 0");
    else
        tell(" ... ", Word::Sample, " ", Word::Quantity, "?");
}

void tellnotenough(int k, bool likelihoodPossible) {
    const auto tell = [k](const auto&... ways) {
        tellset(k, Word::Not, " ", Word::Enough, " ", Word::Data, "\n", Word::Possible, " ", Word::Analysis,
                ":\n1) ", ways...);
    };
    if (likelihoodPossible)
        tell("mle");
    else
        tell("Weibayes\n2) ", Word::Method, " ... ", Word::Change, " ", Word::To, " mle");
}

void telltoosmall(int k, int count) {
    const auto tell = [k](const auto&... detail) {
        tellset(k, Word::Not, " ", Word::Enough, " ", Word::Data, detail..., "\n", Word::Possible, " ",
                Word::Analysis, " = Weibayes");
    };
    if (count == 1)
        tell("\n", Word::Inspect, " 1 <> ", Word::Possible);
    else
        tell();
}
