#pragma once

#include "standin/fight/DogfightFire.h"

namespace standin {

/// How the planes of a fight fly: steers, turns and moves each plane in a step.
class DogfightMoves : protected DogfightFire {
protected:
    using DogfightFire::DogfightFire;

    void fly(int32_t index);
    /// Turns away for that many seconds.
    void breakOff(int32_t index, double seconds);

private:
    void steer(int32_t index);
    void steerAttack(int32_t index);
    void steerHome(Fighter& fighter) const;
    void keepClear(int32_t index);
    double turnNose(int32_t index);
    void changeSpeed(int32_t index, double load);
    void roll(int32_t index);
    void touchGround(int32_t index);
};

} // namespace standin
