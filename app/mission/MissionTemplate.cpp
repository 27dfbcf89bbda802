#include "app/mission/MissionTemplate.h"

#include <algorithm>

#include "app/mission/MissionGenerator.h"
#include "app/mission/MissionLine.h"
#include "engine/core/Log.h"

namespace {

/// A value without ";", blanks, tabs, blanks and quotes around it, removed in this order.
std::string_view bareValue(std::string_view value) {
    for (const char character : {';', ' ', '\t', ' ', '"'})
        value = zel::trimmed(value, character);
    return value;
}

/// Extends an axis of the extent by a coordinate. Ignores text that is not a number.
void widen(float value, bool& seen, float& least, float& most) {
    if (!seen)
        least = most = value;
    seen = true;
    if (value < least)
        least = value;
    if (value > most)
        most = value;
}

} // namespace

void scanTemplate(MissionGenerator& generator) {
    generator.maxIndex = 0;
    generator.templateObjects.clear();
    generator.attackObjects.clear();
    generator.seenX = generator.seenY = generator.seenZ = false;
    generator.minX = generator.maxX = generator.minY = generator.maxY = generator.minZ =
        generator.maxZ = 0;
    generator.attackArea = -1;

    std::vector<zel::String> blocks;
    TemplateObject object; // never cleared: an object without a name goes under the one before it
    for (int32_t i = 0; i < generator.lines.lineCount(); ++i) {
        const MissionLine line = splitMissionLine(generator.lines.line(i));
        const std::string_view value = bareValue(line.value);
        if (line.key == "{") {
            if (i > 0)
                blocks.push_back(blockName(generator.lines.line(i - 1)));
        } else if (line.key == "}") {
            if (!blocks.empty())
                blocks.pop_back();
        } else if (line.key == "index") {
            generator.maxIndex = std::max(generator.maxIndex, zel::toInt(value));
        } else if (line.key == "name") {
            object.name = zel::String(zel::trimmed(zel::trimmed(value, ';'), '"'));
            object.type = blocks.empty() ? zel::String() : blocks.back();
        } else if (line.key == "xpos") {
            object.x = zel::toFloat(value);
            widen(object.x, generator.seenX, generator.minX, generator.maxX);
        } else if (line.key == "ypos") {
            object.y = zel::toFloat(value);
            widen(object.y, generator.seenY, generator.minY, generator.maxY);
        } else if (line.key == "zpos") {
            object.z = zel::toFloat(value);
            widen(object.z, generator.seenZ, generator.minZ, generator.maxZ);
            generator.templateObjects.push_back(object);
            if (object.type.toLower() == AttackAreaBlock) {
                zel::log("Attack area found", "MissionGenerator", zel::LogInfo);
                generator.attackArea = static_cast<int32_t>(generator.templateObjects.size()) - 1;
            }
        }
    }
    zel::log(zel::String("Index found: ") + generator.maxIndex, "MissionGenerator", zel::LogInfo);
}
