#pragma once

#include "standin/fight/DogfightMoves.h"

namespace standin {

/// A fight of all planes of a mission, in steps of a tenth of a second, until the human is down or
/// home. All pilots follow the same few rules and the figures of their type and level; only these
/// and the random generator decide who wins.
class Dogfight : private DogfightMoves {
public:
    Dogfight(const Mission& mission, const FightOptions& options, zel::Random& random)
        : DogfightMoves(mission, options, random) {}
    /// Flies the whole flight, from the mission's start on. Call it once.
    FlightCourse run();

private:
    void step();
    void decide(int32_t index);
    void chooseTarget(int32_t index);
    bool isFighting(const Fighter& fighter) const;
    bool isOver() const;
    void sendHome(int32_t index);
    void checkEnd();
    void writePosition();
    int32_t threatTo(int32_t index) const;
};

} // namespace standin
