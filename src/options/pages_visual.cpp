#include "options/page.h"

std::span<const Page> visualpages() { return {}; }
