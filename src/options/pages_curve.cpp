#include "options/page.h"

std::span<const Page> curvepages() { return {}; }
