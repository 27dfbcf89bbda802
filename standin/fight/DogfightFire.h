#pragma once

#include "standin/fight/Battle.h"

namespace standin {

/// What the planes of a fight do to each other, and the ground to them: bullets, damage, wounds,
/// crashes, collisions and the gun on the ground.
class DogfightFire : protected Battle {
protected:
    using Battle::Battle;

    void fire(size_t index);
    void crash(size_t index);
    void collide();
    void placeGun();
    void fireGun();
    void meddle();

private:
    void hit(int32_t attacker, size_t target);
    void hurtPilot(int32_t attacker, size_t target, int32_t amount);
    void damagePlane(int32_t attacker, size_t target, int32_t amount);
    void destroy(int32_t attacker, size_t target);
    void loseControl(size_t index);
    void hurtInCrash(size_t index, bool soft);
    void ram(size_t other, size_t target);
    void woundOrKill(int32_t attacker);
    int32_t nearestEnemy(size_t index) const;
};

} // namespace standin
