#pragma once

#include <cstdint>
#include <string>

struct PlayerHome;

/// A save as another career of the player left it.
struct ShelvedBook {
    const char* pilot;
    int32_t nation;   // Nation.h
    const char* unit; // six digits; null for the squadron of the career in memory, and its nation
    const char* base; // and base: such a book can be taken up, others can only be shown
    int32_t date;     // yyyymmdd
    int32_t victories;
    int32_t missions;
    bool isFallen;
    const char* written; // "2009-05-06 21:40"
};

/// Puts the book on the shelf, as the career of that number. Returns its folder, in the home's.
/// REQUIRES: a career in memory, which stays as it is: everything else in the save is from it.
std::string putBook(const PlayerHome& home, int32_t number, const ShelvedBook& book);
/// Adds an earlier page to a career's folder. A damaged one differs from its checksum.
void putPage(const PlayerHome& home, const std::string& folder, int32_t number,
             const ShelvedBook& page, bool isDamaged = false);
/// Makes the file look as if it had been written then.
void setWritten(const std::string& file, const char* written);
