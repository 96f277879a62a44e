#pragma once

/// Safe narrowing, used wherever a double lands in a single. Zero, infinity and not-a-number give 0; a value
/// with |ln|v|| <= 78 is rounded to single precision; beyond that the sign is dropped on purpose and the
/// result is 9e-30 for a tiny and 9e30 for a huge magnitude.
float sngguard(double value);
