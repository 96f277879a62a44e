#pragma once

#include <vector>

#include "analysis/lifeterms.h"

/// What the data of set k tell of its life distribution, on the plot scale of `family` (a line of the family
/// in force): ln x for Weibull and Lognormal. Points that tell nothing are left out: suspensions from before
/// anything could fail, and empty rows.
std::vector<LifeTerm> plotterms(int k, const StandardLine& family);
