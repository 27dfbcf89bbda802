#include "app/mission/MissionGenerator.h"
#include "engine/core/Log.h"

namespace {

/// A value without ";", blanks, tabs, blanks and quotes around it, taken off in this order.
std::string_view bareValue(std::string_view value) {
    for (const char character : {';', ' ', '\t', ' ', '"'})
        value = zel::trimmed(value, character);
    return value;
}

/// Takes a coordinate into an axis of the extent. What is not a number widens nothing.
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

MissionLine splitMissionLine(const zel::String& line) {
    const std::string_view text = line.view();
    const size_t equals = text.find('=');
    const std::string_view key = zel::trimmed(zel::trimmed(text.substr(0, equals), ' '), '\t');
    return {zel::String(key).toLower(),
            equals == text.npos ? std::string_view() : text.substr(equals + 1)};
}

zel::String blockName(const zel::String& line) { return line.trim(' ').trim('\t'); }

float missionFloat(std::string_view value) {
    for (const char character : {' ', ';', ' '})
        value = zel::trimmed(value, character);
    return zel::toFloat(value);
}

bool MissionGenerator::loadTemplate(const zel::String& fileName) {
    return lines.loadFile(fileName);
}

bool MissionGenerator::saveMission(const zel::String& fileName) const {
    return lines.saveFile(fileName);
}

void MissionGenerator::scanTemplate() {
    maxIndex = 0;
    templateObjects.clear();
    attackObjects.clear();
    seenX = seenY = seenZ = false;
    minX = maxX = minY = maxY = minZ = maxZ = 0;
    attackArea = -1;

    std::vector<zel::String> blocks;
    TemplateObject object; // never cleared: an object without a name goes under the one before it
    for (int32_t i = 0; i < lines.lineCount(); ++i) {
        const MissionLine line = splitMissionLine(lines.line(i));
        const std::string_view value = bareValue(line.value);
        if (line.key == "{") {
            if (i > 0)
                blocks.push_back(blockName(lines.line(i - 1)));
        } else if (line.key == "}") {
            if (!blocks.empty())
                blocks.pop_back();
        } else if (line.key == "index") {
            maxIndex = std::max(maxIndex, zel::toInt(value));
        } else if (line.key == "name") {
            object.name = zel::String(zel::trimmed(zel::trimmed(value, ';'), '"'));
            object.type = blocks.empty() ? zel::String() : blocks.back();
        } else if (line.key == "xpos") {
            object.x = zel::toFloat(value);
            widen(object.x, seenX, minX, maxX);
        } else if (line.key == "ypos") {
            object.y = zel::toFloat(value);
            widen(object.y, seenY, minY, maxY);
        } else if (line.key == "zpos") {
            object.z = zel::toFloat(value);
            widen(object.z, seenZ, minZ, maxZ);
            templateObjects.push_back(object);
            if (object.type.toLower() == AttackAreaBlock) {
                zel::log("Attack area found", "MissionGenerator", zel::LogInfo);
                attackArea = static_cast<int32_t>(templateObjects.size()) - 1;
            }
        }
    }
    zel::log(zel::String("Index found: ") + maxIndex, "MissionGenerator", zel::LogInfo);
}
