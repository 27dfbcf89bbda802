#pragma once

#include <deque>

#include "app/book/Citation.h"

class CareerRecord;
class Database;

/// The letters that wait after a period of the war, each of which is shown once.
class CitationPile {
public:
    /// REQUIRES: the record outlives it.
    explicit CitationPile(CareerRecord& record) : record(record) {}

    /// Gathers what the player was given since the last flight and hasn't been shown.
    void gather(const Database& career);
    bool empty() const { return waiting.empty(); }
    /// Takes the next one. REQUIRES: !empty().
    Citation take();

private:
    CareerRecord& record;
    std::deque<Citation> waiting;
    int32_t careerNumber = -1; // of the career that was gathered for last, and its pilot and day
    int32_t pilot = -1;
    int32_t date = 0;
};
