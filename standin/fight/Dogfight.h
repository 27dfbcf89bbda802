#pragma once

#include "standin/fight/DogfightMoves.h"

namespace standin {

/// A fight of all planes of a mission, in steps of a tenth of a second, until the human is down or
/// home. Everybody follows the same few rules and the figures of his type and level; who wins is
/// left to them and to the generator.
class Dogfight : private DogfightMoves {
public:
    Dogfight(const Mission& mission, const FightOptions& options, zel::Random& random)
        : DogfightMoves(mission, options, random) {}
    FlightCourse run();

private:
    void step();
    void decide(int32_t index);
    void chooseTarget(int32_t index);
    bool isFighting(const Fighter& fighter) const;
    bool isOver() const;
    void sendHome(int32_t index);
    void checkEnd();
    void tellPosition();
    int32_t threatTo(int32_t index) const;
};

} // namespace standin
