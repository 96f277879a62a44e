#pragma once

#include <string>

/// Plots as files. The extension names the kind: .hgl plotter text, .svg vector picture, .trace every drawing
/// operation in words, .bmp, .png and .pdf a picture that the platform paints.

/// True for a name that ends in one of the extensions.
bool plotfileknown(const std::string& path);

/// True for those that the platform paints, .bmp, .png and .pdf: a run without a desktop has none.
bool plotfilepainted(const std::string& path);

/// Draws the session's plot into a file; pixels size a picture, plotter text has a canvas of its own. False,
/// after telling the user, when it could not be drawn or written; a file of that name then stays as it was.
bool plotfile(const std::string& path, int pixelsAcross, int pixelsDown);

/// Sends the plot as plotter text to the output port of the session. False, after telling the user, when the
/// device is not there or takes nothing.
bool plotport();

/// The same picture as text in the SVG form.
bool plotsvg(std::string& text, int pixelsAcross, int pixelsDown);
