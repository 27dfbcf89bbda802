#pragma once

#include <cstdint>

/// Nation codes, as the simulator numbers its countries. They are in save files.
enum NationCode : int32_t { France = 101, England = 102, Usa = 103, Germany = 501 };

/// The one test for the sides of the war: Allied below 200, otherwise Central.
constexpr bool isAllied(int32_t nation) { return nation < 200; }
/// Codes that are neither an ally nor a central power: their squadrons take part in no mission.
constexpr bool belongsToNobody(int32_t nation) { return nation >= 200 && nation <= 499; }
constexpr bool isSameSide(int32_t a, int32_t b) { return isAllied(a) == isAllied(b); }
