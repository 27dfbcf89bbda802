#pragma once

#include <vector>

#include "app/book/LogBook.h"

// The log book's pages as text, in the language in use. The examples are the English ones.

/// The columns of a flight's row, each cut to its letters.
struct LogBookRow {
    zel::String number;
    zel::String date;    // "18 Apr 17"
    zel::String near;    // the base
    zel::String machine; // "SE5a"
    zel::String with;    // "Ball +3": the first companion and how many more
    zel::String against; // "3 Albatros D.III": the type that was met most
    zel::String result;  // "One down, damaged"
    zel::String total;
};
constexpr size_t NumberLetters = 3;
constexpr size_t DateLetters = 10;
constexpr size_t NearLetters = 16;
constexpr size_t MachineLetters = 14;
constexpr size_t WithLetters = 15;
constexpr size_t AgainstLetters = 18;
constexpr size_t ResultLetters = 19;

/// A flight's row, its texts cut to the columns' widths.
LogBookRow logBookRow(const BookFlight& flight);
/// The same where there is room for everything: nothing is cut.
LogBookRow wholeRow(const BookFlight& flight);
/// The heads of the columns.
LogBookRow logBookHeads();

/// "Two down", "Slightly injured", "One down, damaged": the result of the flight. Only the more
/// important half where both have more than `letters` characters.
zel::String resultText(const BookFlight& flight, size_t letters = ResultLetters);
/// "You came back slightly wounded.", by the percent of an injury.
zel::String woundText(int32_t percent);
/// "14 flights, 2 months".
zel::String flightsText(const LogBook& book);
/// "7 victories: 6 Albatros, 1 Halberstadt": by maker, as many as fit that many letters, and how
/// many more.
zel::String victoriesText(const LogBook& book, size_t letters);
/// "Lieutenant Edward Harcourt MC fell on 21 September 1917."
zel::String fallText(const BookFlight& flight);
/// "In his place: Second Lieutenant Albert Reed.", after that flight; empty while nobody has taken
/// it.
zel::String successionText(const LogBook& book, size_t flight);

/// "von Richthofen": the name without first names and initials.
zel::String lastName(const zel::String& name);
/// "M. von Richthofen" for a name that is longer than that; cut with "..." if that is too long as
/// well.
zel::String initialName(const zel::String& name, size_t letters);
/// "Albatros D.III" for an identifier, "observation balloon" for an object on the ground; any other
/// text unchanged.
zel::String machineText(const zel::String& aircraft);
/// The same in at most `letters` characters: "Halberstadt" for "Halberstadt D.II", "Triplane" for
/// "Sopwith Triplane".
zel::String machineText(const zel::String& aircraft, size_t letters);
/// The text in at most `letters` characters: a longer one is cut and ends in "...". REQUIRES:
/// letters is three or more.
zel::String cutTo(const zel::String& text, size_t letters);
/// The text padded with blanks to `letters` bytes, or cut to them.
zel::String column(const zel::String& text, size_t letters);

/// What a book without flights says in its first row.
zel::String emptyBookText(const LogBook& book);
/// The whole book as lines: heads, flights, successions, totals.
std::vector<zel::String> logBookLines(const LogBook& book);
