#pragma once

/// Bounds by the Fisher matrix of the current set: the inverse of the observed information gives the variance
/// of every parameter and of the value x_p at each probability, and z of fmzvalue how far the bounds stand
/// off: y_p -+ z sd(y_p) on the plot scale. Location and ln scale are the parameters, so that with a Weibull
/// line eta and beta lie within factors of exp(z sd(ln eta)) and exp(z sd(ln beta)), and with a Normal line
/// the mean within z sd and the deviation within a factor.
///
/// The information is that of the likelihood of the data as they are, at the line in force. A line with the
/// bias correction of the mle variant has the relative errors of the line before it. At a line of rank
/// regression, which is no maximum, the result depends on the parameters in which the curvature is taken, and
/// fisherForm tells for Weibull: 0 ln eta and ln beta, 1 (mb) eta and beta, 2 (mc) ln eta and beta. At the
/// maximum of a likelihood all forms agree.
///
/// Negative confMethod: the one probability singleP, no curve. calcError 1: the determinant of the
/// information is not positive, and there are no bounds. Nelson, Applied Life Data Analysis (1982), ch. 8;
/// Lawless, Statistical Models and Methods for Lifetime Data (2003), 5.2. To 1e-12 relative of the observed
/// information of the same data.
void confidfishermatrix();
