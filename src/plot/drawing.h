#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "plot/device.h"

/// The drawing layer. Everything on a plot is drawn by these calls from the registers of session/drawing.h;
/// nothing above this layer knows what the output is.

/// Takes a pen number apart. At least 0: a solid line in that colour. Below 0 the hundreds select the style
/// and are added back: [-100, 0) dashed; [-200, -100) outline; [-300, -200) filled; then dash-dot,
/// dash-dot-dot, dotted. -172 is an outline in colour 28. The colour is held inside the palette.
Pen penparts(float plotpen);

/// Snaps to the pixel grid of the canvas, 15 units to the pixel.
double snapped(double v);

/// Loads the line registers with four numbers, each snapped.
void plotsnap(double x1, double y1, double x2, double y2);

void plotline(); ///< line or rectangle from the line registers in plotpen; plotx1 = continueLine goes on
void plottext(std::string_view text); ///< text at (plotx2, ploty2) in plotpen, textSize, textRotation
double plottextwidth(std::string_view text, double size); ///< its length, canvas units
int32_t setcolor(); ///< 0xRRGGBB of plotpen's colour in the palette in force
void plotwidth(int widthClass);

/// Opens the device: keeps the palette, makes it one-coloured for monochrome output, sends the header, takes
/// the canvas size, and draws the frame when plotspeed is at least 0. False, after telling the user, when the
/// device cannot be opened; the session is then as before.
bool plotbegin(Device& device);

/// Trailer, close, palette back. False, after telling the user, when the plot could not be written whole.
bool plotend();

/// Ends the plot in hand without its trailer: nothing of it stays.
void plotabandon();

/// True while the plot in hand can go on: between plotbegin and plotend, and no write has failed.
bool plotting();

/// The device in hand; null outside a plot.
Device* plotdevice();

/// Text of the port open: a serial port ("COM…") gets its parameters, "COM1" ->
/// "COM19600,S,7,1,RS,CS65535,…".
std::string portconfig(const std::string& port);

/// Where the plotter text goes: the file that the user named, else the port.
std::string plotteroutput();
