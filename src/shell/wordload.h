#pragma once

#include <array>
#include <span>
#include <string>

#include "shell/languages.h"

using WordTable = std::array<std::string, wordSlots + 1>; ///< by slot; index 0 stays empty

/// A translated text as it goes into its slot: without blanks at its ends, "_" for every "?". The tables of
/// old joined words by "?".
std::string wordrepaired(std::string_view text);

/// Puts the texts of a table over the words, slot after slot. An empty text ends the walk: the words from
/// there on stay as they are.
void wordwalk(std::span<const TableWord> table, WordTable& words);
