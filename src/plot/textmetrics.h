#pragma once

#include <string_view>

/// Length of a UTF-8 text in thousandths of its character size, as a common sans-serif face sets it: what a
/// device without font metrics of its own lays a plot out by.
int textadvance(std::string_view text);
