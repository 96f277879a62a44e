#pragma once

/// Puts built-in sample `number` into the grid, in place of what stands there, with its title and the input
/// type under which it is to be read. False, and told, when the sample is for the other side of the program;
/// false when there is no sample of that number. The session then is as it was.
bool sampleload(int number);
