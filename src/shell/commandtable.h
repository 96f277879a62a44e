#pragma once

#include <cstdint>
#include <span>
#include <string>

/// The commands of the main window as a table: what each is called, its icon, and where it is offered.

/// Side of the program that offers a command or an item.
enum class Offered : int8_t { both, life, visual };

/// True when the side of the session is offered it.
bool offered(Offered where);

/// Appends a text composed of word slots.
using Phrase = void (*)(std::string& text);

/// One command. A number can stand for one command on each side.
struct Command {
    int number; ///< 0 to 91
    Offered where;
    const char* icon; ///< name of its picture; empty: it stands in no icon strip
    Phrase name;
    Phrase more; ///< what its explanation says beside the name; null: nothing
    void (*run)();
};
std::span<const Command> commands();

/// The command of a number on the side of the session; null when there is none.
const Command* commandof(int number);

inline constexpr int iconGap = -1;

/// The icon strip of the session's side: command numbers from left to right, iconGap between groups.
std::span<const int> iconstrip();

/// Short name of a command, "Open / Get / Import", and its explanation, in the language in force. Empty for a
/// number without a command.
std::string commandname(int number);
std::string commandtip(int number);
