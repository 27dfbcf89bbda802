#pragma once

#include <cstdint>

class Database;

/// Weighted sum of the victories of a squadron's five best, the best counting five times; 0 for an
/// index out of range.
float squadronStrength(const Database& career, int32_t squadron);

/// The best squadron of the player's nation, out of 600 draws, that would accept him; -1 for none,
/// and when his own is the best. REQUIRES: a career.
int32_t pickInvitationSquadron(const Database& career);

/// Whether an invitation is pending, with invitationSquadron set. Searches for one once the month
/// is reached, and postpones the month if none is found. REQUIRES: a career.
bool invitationDue(Database& career);
