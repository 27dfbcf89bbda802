#pragma once

#include <cstdint>

#include "app/career/CareerEvents.h"

class Database;

/// Adds `count` flights of the player's pilot to the record of the career in memory, two a day from
/// its date on, and leaves the date after them. Each is a fight of his squadron against four
/// others, with its places; every third brings a victory. The save knows nothing of them.
void addFlightsToBook(Database& career, int32_t count);
/// The player falls to somebody of the other side in one more flight, which is carried into the
/// career too.
void addFallToBook(Database& career);
/// Adds a flight of the player with that number of victories, as the record is notified of it.
void addFlight(Database& career, int32_t victories);
/// A victory over a man of that name, whose machine, one of five, follows from the number. The
/// victor isn't set.
Victory victoryOver(const char* victim, int32_t number, bool isGerman = true);
/// The victor brings the pilot down, who dies.
void fell(Database& career, int32_t pilot, int32_t victor);
