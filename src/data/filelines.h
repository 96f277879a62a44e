#pragma once

#include <string>
#include <string_view>

#include "platform/files.h"

/// The line primitives of the program's own files. One input and one output are open at a time; lines go
/// through the registers msg, u and ud. A line ends at CR LF, LF or a lone CR. With wrapperReading in
/// htmlMode a line is what stands between "<P>" and "</P>"; with wrapperWriting lines are written so.

/// Takes a text as the input, from its first line; a text that is no UTF-8 is read as windows-1252, a
/// byte-order mark is passed over. Clears eofFlag.
void inputtext(std::string text);
/// The same for a file, or "-". False when it cannot be read; there is then no input.
bool inputopen(const std::string& path);
void inputclose();

/// Place of the next line in the input, for inputseek.
std::size_t inputplace();
void inputseek(std::size_t place);
/// What is left of the input, as it stands.
std::string_view inputrest();

/// The next line as a view, good until the next one is taken or the input closed. Behind the end: empty, and
/// eofFlag is 1.
std::string_view nextline();
void lineget();  ///< the next line in msg
void lineread(); ///< and as a number in u and ud; 0 when it is none, or behind the end
void r8read();   ///< the same, for callers that take ud

/// Takes a sink as the output. It stays the caller's, who commits or drops it; lines that cannot be written
/// make outputend false.
void outputbegin(TextSink& sink);
/// Writes what is held back. False when any line could not be written.
bool outputend();

void linewrite(std::string_view line); ///< a line that holds no line end
void textwrite(std::string_view text); ///< a text of the user: line ends within it become blanks
void numwrite(float value);            ///< a number, with the session's decimal symbol
void numwrite(double value);

/// Appends a number as numwrite writes it: the shortest digits that read back to the same value.
void appendfilenumber(std::string& line, float value);
void appendfilenumber(std::string& line, double value);
