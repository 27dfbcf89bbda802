#pragma once

#include <cstdint>
#include <string_view>

class Database;

/// When every career begins: 1 December 1915, as Calendar::dateNumber(), and its month, yyyymm.
constexpr int32_t FirstDayOfCareer = 19151201;
constexpr int32_t FirstMonthOfCareer = FirstDayOfCareer / 100;
constexpr int32_t PilotsOfNewSquadron = 12; // and from then on: the dead are replaced

/// Makes a new career on its first day and gives the player the first slot of a squadron of his
/// service, a named one that flies the type of the day if luck allows. On error: an unknown service
/// is logged and taken for the French; a nation without any squadron is logged, and the player gets
/// one of its side.
void createCareer(Database& career, int32_t service);
/// The nation of the service, a Service; of any other number France.
int32_t nationOfService(int32_t service);
/// The nation at the start of a squadron file's key; 0 if it does not start with three digits.
int32_t nationOfKey(std::string_view key);
/// The nation of a generated squadron of that index.
int32_t nationOfGenerated(int32_t squadron);
/// Adds a squadron of twelve new pilots with a base. Returns its index.
int32_t addSquadron(Database& career, int32_t nation);
