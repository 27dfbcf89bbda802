#pragma once

#include <vector>

#include "engine/core/String.h"

class Calendar;
class Database;
struct Pilot;

// The texts of the career's pages in the language in use, for the screens and for the command line.
// The examples are the English ones.

constexpr int32_t FirstDayOfPeace = 19181111; // as Calendar::dateNumber()

/// "Service: English"; any number but 1 and 2 is French.
zel::String serviceText(int32_t service);
/// "Start date: March 1917".
zel::String startDateText(int32_t year, int32_t month);
/// "Your pilot's name: First Last".
zel::String pilotNameText(const zel::String& name);

/// "1-December-1915".
zel::String dateInLanguage(const Calendar& date);
/// "10 June 1917", as log books and letters have it.
zel::String bookDate(const Calendar& date);
/// "10 June 1917" with a month of at most five letters.
zel::String shortDate(const Calendar& date);
/// "Sept"; empty for a month outside 1 to 12.
zel::String shortMonth(int32_t month);

/// The parts that are not empty, with `between` between them.
zel::String joined(const std::vector<zel::String>& parts, const char* between);
/// "A, B, C"; empty without any.
zel::String listed(const std::vector<zel::String>& parts);
/// "A, B and C"; empty without any.
zel::String enumerated(const std::vector<zel::String>& parts);

/// Whether the career's date is the day of the Armistice or later.
bool isWarOver(const Database& career);
/// "Next Mission" or "The War is over!".
zel::String missionButtonText(const Database& career);
/// "Current base: Near Arras".
zel::String baseText(const Database& career);
/// The name of the player's squadron; empty for one that has none.
zel::String squadronText(const Database& career);

/// "Name (you!): 12" for each pilot of the player's squadron, best first, at most that many.
std::vector<zel::String> squadronLines(const Database& career, size_t most = 12);

/// Indices of the pilots with the most shotdowns, then missions, then the lower index.
std::vector<int32_t> bestPilots(const std::vector<Pilot>& pilots, size_t count);
/// The war's ten best, living and dead, a line each and empty lines for those below five victories:
/// "Name (you!): 12 RIP".
std::vector<zel::String> aceLines(const Database& career);
