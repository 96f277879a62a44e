#pragma once

/// Constants of the session, with exactly these digits: results that were computed with them agree with
/// results kept from earlier runs, where the longer values would not.
inline constexpr double sessionPi = 3.14159265358;
inline constexpr double sessionE = 2.718281828459;
inline constexpr double sessionEuler = 0.5772156649015; ///< Euler's constant
inline constexpr double sessionPhi = 0.61803398875;     ///< golden section ratio
