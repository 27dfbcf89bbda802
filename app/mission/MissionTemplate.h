#pragma once

#include "engine/core/String.h"

class MissionGenerator;

/// A named object of the mission template.
struct TemplateObject {
    zel::String name; // without quotes
    zel::String type; // the name of its block, as written
    float x = 0;      // metres north, up and east in the template
    float y = 0;
    float z = 0;
};

/// The block that orders an attack, lowered: the template has one, and its planes are its objects.
constexpr const char* AttackAreaBlock = "mcu_cmd_attackarea";

/// Collects the objects, the highest Index and the attack area of the template in the generator's
/// lines. Without an attack area, `attackArea` is -1.
void scanTemplate(MissionGenerator& generator);
