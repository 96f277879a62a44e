/// Plain logarithms and their inverses, with the sentinels of the ends.

#include "plot/transforms_register.h"

void txz2lnz() { session.u = session.u <= 0 ? -9e30f : std::log(session.u); }

void txlnz2z() {
    if (std::fabs(session.u) >= 80)
        session.u = session.u < 0 ? -9e30f : 9e30f;
    else
        session.u = std::exp(session.u);
}

void txz2logzd() { session.ud = session.ud <= 0 ? noAnswer : std::log10(session.ud); }

void txlogz2zd() {
    if (std::fabs(session.ud) >= 300)
        session.ud = session.ud < 0 ? 9e-300 : 9e300;
    else
        session.ud = std::pow(10.0, session.ud);
}

void txz2logzprg() {
    const int16_t family = currentline().family;
    if ((family == weibull || family == lognormal) && session.u > 0) session.u = std::log10(session.u);
}
