#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "session/session.h"

/// What the settings file holds: one row a value. Reader, writer, reset and the options of scripts all walk
/// these rows.

/// Where a value lives.
using Place = std::variant<int16_t*, int32_t*, float*, double*, std::string*>;

/// The place of a member, or of an element of one.
template <auto Member>
Place placeof(Session& s) {
    return &(s.*Member);
}
template <auto Member, std::size_t I>
Place placeof(Session& s) {
    return &(s.*Member)[I];
}

struct Setting {
    int position;          ///< line of its section, from 1; 0: not in the file
    std::string_view name; ///< as scripts call it; empty: no option of theirs
    Place (*at)(Session&);
    double low = -9e30, high = 9e30; ///< limits of a number; a value beyond them is not taken
    double scale = 1;                ///< the file holds the value divided by this
    std::string_view choices = {};   ///< the texts that serve, blanks between them; empty: any
    bool writeOnly = false;          ///< told in the file, but settled otherwise
};

/// A line that no value of this version stands behind.
struct FixedLine {
    int position;
    std::string_view text;
};

/// A section of the file: values at fixed positions, or a list of as many as there are.
struct Section {
    std::string_view name;
    int count; ///< values; of a list the most that are taken
    std::span<const Setting> settings = {};
    std::span<const FixedLine> fixed = {};
    std::vector<float> Session::*numbers = nullptr;
    std::vector<std::string> Session::*texts = nullptr;

    bool islist() const { return numbers || texts; }
};

/// The sections in the order of the file.
std::span<const Section> settingsections();

/// Options that follow the data at hand: a script sets them, the file does not keep them.
std::span<const Setting> dataoptions();
