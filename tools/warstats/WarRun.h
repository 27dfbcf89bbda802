#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "tools/warstats/RealWarTables.h"
#include "tools/warstats/WarTally.h"

namespace warstats {

/// Hits among tries.
struct Share {
    double hits = 0;
    double tries = 0;

    /// One more try.
    void add(bool isHit) {
        hits += isHit ? 1 : 0;
        ++tries;
    }
    void add(const Share& other) {
        hits += other.hits;
        tries += other.tries;
    }
    double percent() const { return tries > 0 ? 100 * hits / tries : 0; }
};

/// The months (yyyymm) in which the player's enemies are compared with history.
constexpr std::array<int32_t, 3> EnemyMonths = {191703, 191704, 191804};

/// The figures of one war.
struct WarFigures {
    int32_t historicAmongTen = 0; // named men among the ten best at the Armistice
    int32_t realAmongTwenty = 0;  // of the real twenty best, among the simulated twenty best
    int32_t historicForty = 0;    // named men of 40 victories and more
    int32_t best = 0;             // the highest score
    std::array<int32_t, NationCount> bestOf{}; // likewise, by nation
    Share survivorsDead;                       // named men who survived the war and die
    Share deadEarly;       // named men who died in the war and die before their date
    int32_t joined = 0;    // named men who came to their squadron
    int32_t men = 0;       // all pilots of the war
    int32_t aceNames = 0;  // made-up men with the name of an ace
    int32_t namesakes = 0; // men with the name of one who came before them
    /// Enemies whose squadron really flew the type in which they meet an Allied player, and a
    /// German one.
    std::array<Share, EnemyMonths.size()> realGermans;
    std::array<Share, EnemyMonths.size()> realAllies;
    Share
        unnamedInvitations; // searches in which a unit without a name would have invited the player
    Share metHistoric;      // Allied missions of 1917 with a named man among the enemies
    WarTally tally;
};

/// Fights a war without flights of the player, from December 1915 to the Armistice. service: of the
/// player. Everything follows from the seed. The current folder has the Data that the war is made
/// of; REQUIRES: no career and no mission generator in the program.
WarFigures fightWar(uint32_t seed, int32_t service, const RealWarTables& real);

/// How many of `count` German careers begin in a Jasta, in whatever month: the player's squadron is
/// drawn before the war moves on to it. firstSeed: of the first career; each further one has the
/// next.
Share startsInJasta(uint32_t firstSeed, int32_t count);

} // namespace warstats
