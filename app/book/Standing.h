#pragma once

#include <cstdint>
#include <vector>

#include "app/book/BookTables.h"

class Database;

/// A pilot's row in the squadron's roll, in the table of aces or on the board at the end of the
/// war.
struct StandingRow {
    int32_t pilot = -1; // index of the career
    int32_t place = 0;  // in the list, 1 is the first; 0 for none
    zel::String name;
    int32_t victories = 0;
    int32_t missions = 0;
    bool isOwn = false; // the player, or the last one of his who fell
    bool isAlive = true;
    const RealAce* real = nullptr; // who he was, if he is a pilot of history
};

/// The player's squadron, the best first.
std::vector<StandingRow> rosterRows(const Database& career, const BookTables& tables);
/// The best pilots of the war with five victories or more, living and dead; at most `most`.
std::vector<StandingRow> aceRows(const Database& career, const BookTables& tables, size_t most);
/// A pilot among all those of the war; without a victory he has no place.
/// REQUIRES: career.isPilot(index)
StandingRow standingOf(const Database& career, const BookTables& tables, int32_t index);

// The rows as text, in the language in use. The examples are the English ones.

/// "Albert Ball RIP", "Edward Harcourt (you!)"; with the short name "A. Ball RIP".
zel::String markedName(const StandingRow& row);
zel::String shortMarkedName(const StandingRow& row);
/// What he had brought down in the real war up to that day: "44", "?" where that isn't known; empty
/// if he isn't a pilot of history.
zel::String realScoreText(const StandingRow& row, int32_t today);
/// "9.".
zel::String placeNumber(const StandingRow& row);
/// "Your place: 14"; that he has no victory yet, if he has no place.
zel::String placeText(const StandingRow& own);
/// Place, name, victories and missions in columns of the typewriter face, RollLetters wide. A name
/// that is too long is shortened, then cut.
zel::String rollLine(const StandingRow& row);
constexpr size_t RollLetters = 50;

/// "M. von Richthofen": with the first name as an initial.
zel::String shortName(const zel::String& name);
