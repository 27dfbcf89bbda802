#pragma once

#include <string>
#include <vector>

#include "standin/mission/Mission.h"
#include "standin/mission/MissionText.h"

namespace standin {

/// A linked object of a mission: any block with an Index.
struct Node {
    std::string block;            // name of the block
    int32_t line = 0;             // of the block, from 1
    int32_t index = 0;            // its own
    int32_t linkTrId = 0;         // index of the object's entity; 0 none
    int32_t misObjId = 0;         // index of the entity's object; 0 if this isn't an entity
    std::vector<int32_t> targets; // what it triggers; of an entity: its leader's entity
    std::vector<int32_t> objects; // entities on which a command works
    std::vector<int32_t> events;  // what the events of an entity trigger
    int32_t targetsLine = 0;      // of these two lists, from 1
    int32_t objectsLine = 0;
    double seconds = 0; // of a timer's delay
    bool fires = true;  // false for what is switched off

    bool isLogic() const { return block.rfind("MCU_", 0) == 0; }
    bool isEntity() const { return block == "MCU_TR_Entity"; }
};

/// Follows and checks the links: objects and entities match, lists name existing blocks, wingmen
/// have leaders, and the orders to attack are triggered. Fills the mission's fields that depend on
/// links. On error: false with the first finding.
[[nodiscard]] bool resolveLinks(const std::vector<Node>& nodes, Mission& mission,
                                tools::Finding& finding);

} // namespace standin
