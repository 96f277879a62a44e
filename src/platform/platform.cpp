#include "platform/platform.h"

Platform* platform = nullptr;
