#pragma once

#include <cstdint>
#include <vector>

class Database;
enum class PostingCause : uint8_t;

/// The squadron's pilots, best first: the living, then by shotdowns, missions and skill; ties in
/// slot order. Empty for an index out of range.
std::vector<int32_t> squadronRoster(const Database& career, int32_t squadron);
/// Exchanges two pilots of different squadrons; the cause is why the first one moves. False,
/// changing nothing, if that can't be.
bool swapPilots(Database& career, int32_t first, int32_t second, PostingCause cause);
