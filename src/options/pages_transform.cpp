#include "options/page.h"

std::span<const Page> transformpages() { return {}; }
