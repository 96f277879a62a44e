#pragma once

#include <string>

#include "options/page.h"

/// The ends of the plot's window, asked for and shown in the unit of the axis.

/// An axis of the plot.
enum class LimitAxis { x, y };

/// Asks for one end of an axis; 0 leaves it to the plot. On the probability axis the value is what the axis
/// shows there: percent, fraction or count of 1000, of the failures or of the survivors. `limit` is kept in
/// the form of the session, a failed fraction on the probability axis. False on a cancel; `limit` then stays.
bool askaxislimit(const Label& lead, LimitAxis axis, double& limit);

/// Appends a limit as askaxislimit asks for it; "Automatic" for 0.
void appendaxislimit(std::string& text, LimitAxis axis, double limit);

/// Two ends, in the form of the session, of which the lower is not below the upper. 0 crosses nothing.
bool limitscross(double low, double high);
