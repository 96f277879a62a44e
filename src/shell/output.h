#pragma once

/// What leaves the program: printed, copied, saved. Every routine tells why when it cannot.

/// Command 6: the Output page; "No Data" under the header "Data" while the session has none.
void outputpage();

/// Puts out what outputKind names: the letter of an item of the page Output device. False when nothing went
/// out, on a cancel too. A letter
/// that names none stands for the printed picture.
bool outputactivate();

/// Command 54: the plot to the clipboard as a picture; with totalReport the report goes before it as text,
/// and stays there until the user goes on.
bool copyplot();

/// The B-lives of every line, a value a line, to the clipboard.
bool copyvalues();
