#pragma once

#include <set>
#include <vector>

#include "engine/core/String.h"

namespace menucheck {

/// The texts that a "says" note describes: those that code may put into an element, in the current
/// language. "60..61 10" is two texts of the language table with one argument, "( 31..42 )" as an
/// argument is another text, and texts in parentheses one after the other are joined by blanks:
///
///     20 30 ( 31..42 ) 1918
///     ( 710 "Max Immelmann" ( 57 10 ) ) ( 720 187 )
struct SaidTexts {
    std::vector<zel::String> texts; // all combinations, at most a thousand
    std::set<int32_t> numbers;      // of the table
    zel::String fault;              // the fault of the note; empty if it is valid
};

/// Numbers that the table lacks give no text, and no fault either.
SaidTexts readSaidTexts(const std::vector<zel::String>& words);

/// The marks of a text, such as '1' and '2' for "$2 of $1", in the order of the text.
std::vector<char> marksOf(std::string_view text);

} // namespace menucheck
