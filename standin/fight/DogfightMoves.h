#pragma once

#include "standin/fight/DogfightFire.h"

namespace standin {

/// How the planes of a fight fly: where each is steered, turned and moved in a step.
class DogfightMoves : protected DogfightFire {
protected:
    using DogfightFire::DogfightFire;

    void fly(size_t index);
    void breakOff(size_t index, double seconds);

private:
    void steer(size_t index);
    void steerAttack(size_t index);
    void steerHome(Fighter& fighter) const;
    void keepClear(size_t index);
    double turnNose(size_t index);
    void changeSpeed(size_t index, double load);
    void roll(size_t index);
    void touchGround(size_t index);
};

} // namespace standin
