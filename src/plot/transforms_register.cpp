#include "plot/transforms_register.h"

#include <utility>

void tellformula(std::string location, double result) {
    session.msg = std::move(location);
    if (tellfault) tellfault(std::isnan(result) ? domainFault : overflowFault);
}

bool negdataok() { return session.negativeXAllowed == 1; }

FamilyLine currentline() {
    const int16_t family = static_cast<int16_t>(session.dist < 0 ? -session.dist : session.dist);
    return {family, session.gumbeltype, session.eta, session.beta};
}
