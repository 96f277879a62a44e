#pragma once

#include <array>
#include <cstdint>
#include <string>

/// Output devices. The plotter codes write a wire format of their own; every other code draws on a surface.
enum OutputDevice : int {
    screenDevice = 1,
    pictureDevice = 2, ///< the printed picture, as shown on the screen
    bitmapDevice = 3,
    plotterDevice = 4, ///< plotter text to a port or a file
    laserDevice = 5,   ///< the same text inside printer control codes
    printerDevice = 6  ///< printer page at full resolution
};

/// Parts of the palette. Entries 1 to 24 are the colours of the sets.
enum PaletteEntry : int {
    backgroundColour = 0,
    drawingColour = 15, ///< the one pen of a monochrome output
    gridColour = 25,    ///< light grid lines
    decadeColour = 26,  ///< heavier grid lines
    overlayColour = 27, ///< marks that must stay visible above other marks
    frameColour = 28,   ///< frame, axes and plain text
    paletteSize = 26
};

/// A palette: colour number to 0xRRGGBB.
using Palette = std::array<int32_t, paletteSize + 3>;

/// Twenty-four set colours that stay apart on white paper and from their neighbours in number.
inline constexpr Palette standardPalette = {
    0xFFFFFF, 0x1F5FAD, 0xC8321E, 0x1E7D3C, 0x7A3E9D, 0xD07A00, 0x20242A, 0x008C95, 0xB01E6E, 0x6B5B00,
    0x4A78D8, 0x8C2F14, 0x4E9A2B, 0xA66BBE, 0x9A5B14, 0x000000, 0x2E8FA8, 0xD64C8A, 0x8A8000, 0x35459C,
    0xE05A3C, 0x3E6E5A, 0x6C2C7A, 0xB88A2A, 0x596A80, 0xD3D9E0, 0xA3AFBD, 0x000000, 0x20242A};

/// Registers of the drawing layer: the plot loads them and calls plotline, plottext or strokemark, and never
/// asks what the output is. Canvas units, 15 to the pixel on a surface; y grows downwards.
struct Drawing {
    double plotx1 = 0,
           ploty1 = 0; ///< start of the next line; plotx1 = continueLine: from where the pen stands
    double plotx2 = 0, ploty2 = 0; ///< its end, and the anchor of marks and text
    float plotpen = 0;             ///< colour number, and by range the line style (see penparts)
    float plotw = 0, ploth = 0;    ///< canvas size
    float outdev = screenDevice;   ///< OutputDevice
    int16_t plotspeed = 20;        ///< plotter velocity by magnitude, cm/s; at least 0: a frame is drawn
    int16_t linewidth = 1;         ///< line width class, used by magnitude
    int16_t colormode = 0;         ///< 0 colour, 1 monochrome

    float textSize = 0;       ///< character size (em) of the next text, canvas units
    int16_t textRotation = 0; ///< 0 level, 90 upwards

    int16_t marksize = 0;  ///< size of the marks: 0 and 1 standard, 2 dot, 3 medium, 4 large, 20 a fixed form
    int16_t marksteps = 1; ///< above 1: every step of a mark is multiplied by it
    int16_t markFixed = 0; ///< 1: marks keep their size in pixels whatever the canvas
    float setCounter = 0;  ///< row of the set being drawn: its number times sg
    std::array<int16_t, 25> groupColour{}; ///< colour of a set in a group display; 0 its own number

    Palette palette = standardPalette;     ///< the working colour table
    Palette paletteKept = standardPalette; ///< its copy while a plot is drawn

    std::string outputName; ///< file that the user named for the output; empty: the port
    int16_t outputPort = 1; ///< index into outputPorts
    std::array<std::string, 7> outputPorts = {"", "LPT1", "LPT2", "COM1", "COM2", "LPT3", "COM3"};
    float serialBaud = 9600;
    char serialParity = 'S';
    int16_t serialDataBits = 7;
    float serialStopBits = 1;
};

inline constexpr double continueLine = -30000;
