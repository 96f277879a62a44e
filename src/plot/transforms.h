#pragma once

/// The one place where a number moves between its four views: the value x on the data scale, the
/// probability p, the plot coordinate of an axis, and the density at x. Register routines: load u or ud,
/// call, read the same register back. Every guard and saturation value is part of the contract.

#include <cstdint>

// Quantile of the current line.
void txp2x();
void txp2xd();
void txp2xmixd();
// Distribution function of the current line.
void txx2p();
void txx2pd();
void txx2pmixd();
void txx2pprg();
// Density of the current line.
void txx2dp();
void txx2dpd();
void txx2dpmixd();
void txx2dpprg();
void txx2zd(); ///< standardised value
// Data to plot coordinates and back; the w form takes the probability branch whatever the plot mode.
void txx2txx();
void txx2txxd();
void txx2txxdw();
void txy2txy();
void txy2txyd();
void txy2txydw();
void txtxx2x();
void txtxx2xd();
void txtxy2y();
void txtxy2yd();
// Logarithms.
void txz2logzd();
void txz2logzprg();
void txlogz2zd();
void txz2lnz();
void txlnz2z();
// Standard normal density.
void txz2dphi();
void txz2dphid();
// The location of the line with slope beta through (ud, ydd), and that of a wanted mean.
void txYandXandBeta2EtaD();
void txYandXandBeta2EtaDw();
void txmean2etad();

/// Kernels of the probability plot, for loops over points; the register routines call the same.
double plotxofx(int16_t family, double x);                     ///< data x to plot X (txx2txxdw)
double plotyofp(int16_t family, int16_t extreme, double p);    ///< probability to plot Y (txy2txydw)
double xofplotx(int16_t family, double plotx);                 ///< plot X to data x
