#pragma once

#include <deque>

#include "app/book/Citation.h"

class CareerRecord;
class Database;

/// What waits for the player after a period of the war: the letter about his pilot who fell, then
/// those that bring a rank or a decoration, each shown once, and finally the diary or the end of
/// the war.
class CitationPile {
public:
    /// REQUIRES: the record outlives it.
    explicit CitationPile(CareerRecord& record) : record(record) {}

    /// Gathers what the player was given since the last flight and hasn't been shown. newlyFallen:
    /// the player's pilot who fell meanwhile, or -1.
    void gather(const Database& career, int32_t newlyFallen = -1);
    /// The pilot whose letter is shown next; -1 for none.
    int32_t fallen() const { return fallenPilot; }
    void forgetFallen() { fallenPilot = -1; }
    bool empty() const { return waiting.empty(); }
    /// The screen that shows what is next.
    const char* next(const Database& career) const;
    /// The player looks something up between two citations: back() leads to the next one, once.
    void lookUp() { isInterrupted = true; }
    /// The screen that the current page leads back to; null for its usual one.
    const char* back(const Database& career);
    /// The next citation, in the language in use. REQUIRES: !empty(), and the career that was
    /// gathered for.
    const Citation& front(const Database& career);
    /// The player has read it. REQUIRES: !empty().
    void forgetFront() { waiting.pop_front(); }

private:
    void translate(const Database& career);

    CareerRecord& record;
    std::deque<Citation> waiting;
    int32_t givenAfter = 0; // the day after which they were given
    zel::String language;   // of their texts
    int32_t fallenPilot = -1;
    bool isInterrupted = false;
    int32_t careerNumber = -1; // of the career that was gathered for last, and its pilot and day
    int32_t pilot = -1;
    int32_t date = 0;
};
