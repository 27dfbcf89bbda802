#pragma once

#include <cstdint>

class Database;

/// Makes a new career on 1 December 1915 and gives the player the first slot of a squadron of his
/// service, a named one that flies the type of the day if luck allows. On error: an unknown service
/// is logged and taken for the French; a nation without any squadron is logged, and the player gets
/// one of its side.
void createCareer(Database& career, int32_t service);
/// Adds a squadron of twelve new pilots with a base. Returns its index.
int32_t addSquadron(Database& career, int32_t nation);
