#pragma once

#include "standin/fight/Battle.h"

namespace standin {

/// Bullets, damage, wounds, crashes, collisions and the gun on the ground.
class DogfightFire : protected Battle {
protected:
    using Battle::Battle;

    void fire(int32_t index);
    void crash(int32_t index);
    void collide();
    void placeGun();
    void fireGun();
    void meddle();

private:
    void hit(int32_t attacker, int32_t target);
    void hurtPilot(int32_t attacker, int32_t target, int32_t amount);
    void damagePlane(int32_t attacker, int32_t target, int32_t amount);
    void destroy(int32_t attacker, int32_t target);
    void loseControl(int32_t index);
    void hurtInCrash(int32_t index, bool soft);
    void ram(int32_t attacker, int32_t target);
    void woundOrKill(int32_t attacker);
    int32_t nearestEnemy(int32_t index) const;
};

} // namespace standin
