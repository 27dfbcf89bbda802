#pragma once

#include <cstdint>

/// The figures of an unseen fight, in the order in which a meeting uses them. docs/rules.md
/// explains them to players. Changing one changes every career.
///
/// Attack, defence and hits are parts of the damage that downs a plane. Levels are 1 to 4, skills 0
/// to about 12. A whole number named as a draw is its highest result; the lowest is 0.
namespace fight {

// The upper bound of the attacker's two draws is his level's part plus, from LevelThatUsesSkill on,
// his skill's part.
constexpr float AttackOfLevel = 0.06F;
constexpr float AttackOfSkill = 0.06F;
constexpr int32_t LevelThatUsesSkill = 3;

// The upper bound of the target's draws is the sum of these, divided for missing experience.
constexpr float DefenceOfLevel = 0.092F;
constexpr float DefenceOfSkill = 0.01F;
constexpr float NoVictoryDivisor = 1.2F;
constexpr float GreenDivisor = 1.05F;    // for each missing victory and each missing mission
constexpr int32_t VictoriesNotGreen = 5; // from here on none is missing
constexpr int32_t MostVictoriesLacking = 4;
constexpr int32_t MissionsNotGreen = 4;

constexpr uint32_t ThirdDefenceDraw = 13; // a skill above the draw defends a third time
// Each of these takes a draw.
constexpr int32_t Aims = 7;
constexpr uint32_t AimDraw = 15; // a draw above the skill spoils the aim
constexpr float Luck = 0.305F;   // up to this much is added, and up to this much taken off

constexpr float LeastWoundingHit = 0.1F; // a hit above it wounds
constexpr uint32_t WoundDraw = 4;
constexpr float WoundStep = 0.25F; // of each point of that draw
// Sums of a plane's hits and of its pilot's wounds. He dies if it goes down from then on.
constexpr float DamageThatDowns = 1.0F;
constexpr float InjuryThatKills = 1.0F;

} // namespace fight
