#pragma once

#include <array>
#include <string>
#include <string_view>

/// Agreement of words in a composed text. A word from a translated table is cut at "_" into forms and marks;
/// a mark is the word class, N noun or A adjective, and its gender, M, F or N: "Sprache_nf",
/// "Nuovo_am_Nuova_af".

/// Forms and marks of one word, as views into it.
struct WordForms {
    static constexpr std::size_t most = 4; ///< seven parts: three marks between four forms
    struct Form {
        std::string_view text;
        char wordClass = 0; ///< 'N', 'A', or 0 without a usable mark
        char gender = 0;    ///< 'M', 'F' or 'N'
    };
    std::array<Form, most> forms;
    std::size_t count = 0;
    std::string_view suffix; ///< what stood behind a mark

    char wordClass() const { return forms[0].wordClass; }
};
WordForms wordforms(std::string_view word);

/// What a word leaves for the next one.
struct WordBefore {
    WordForms forms;
    std::size_t at = 0;   ///< where its form stands in the output
    std::size_t size = 0; ///< bytes of that form
};

/// Puts a word behind the output, one blank between, in the form that agrees with the word before; or the
/// word before into the form that agrees with this one. `start` is where the output began.
void wordpair(std::string_view word, WordBefore& before, std::string& out, std::size_t start);

/// Appends a text with its words in agreement and without marks. Only for a text of a translated language;
/// `no` is the word of the slot No where a lone one is to be "Nee", as in Dutch, and empty elsewhere.
void wordagree(std::string_view text, std::string_view no, std::string& out);
