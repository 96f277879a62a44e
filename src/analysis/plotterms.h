#pragma once

#include <vector>

#include "analysis/lifeterms.h"

/// Appends what set k, which has been ordered, tells of the life distribution, on the plot scale of the
/// family: the terms of a likelihood search. What cannot matter is left out.
void appendplotterms(std::vector<LifeTerm>& terms, int k, const StandardLine& family);

/// The scale on the plot scale that a fixed slope gives; 0 when the slope is free.
double fixedscale();

/// The same as a list of its own.
std::vector<LifeTerm> plotterms(int k, const StandardLine& family);
