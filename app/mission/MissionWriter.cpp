#include "app/mission/MissionWriter.h"

#include "app/mission/MissionGenerator.h"
#include "app/mission/MissionLine.h"
#include "app/mission/PlaneEmission.h"
#include "engine/core/Log.h"

namespace {

constexpr const char* EntityBlock = "mcu_tr_entity";
constexpr const char* OptionsBlock = "options";

/// A line of the landscape: its text on the Channel map, and on the western front in winter and
/// autumn. Null keeps the template's line, which is the western front in summer.
struct LandscapeLine {
    const char* key;
    const char* prefix;
    const char* channel;
    const char* winter;
    const char* autumn;
};
// clang-format off
constexpr LandscapeLine Landscape[] = {
    {"hmap", "  HMap = ",
     "graphics\\LANDSCAPE_channel\\height.ini",
     "graphics\\landscape_winter\\height.ini",
     "graphics\\landscape_autumn\\height.ini"},
    {"textures", "  Textures = ",
     "graphics\\LANDSCAPE_channel\\textures.ini",
     "graphics\\landscape_winter\\textures.ini",
     "graphics\\landscape_autumn\\textures.ini"},
    {"forests", "  Forests = ",
     "graphics\\LANDSCAPE_channel\\trees\\woods.wds",
     "graphics\\landscape_winter\\trees\\woods.wds",
     "graphics\\landscape_autumn\\trees\\woods.wds"},
    {"guimap", "  GuiMap = ", "swf/data/maps/channel_summer.info", nullptr, nullptr},
    {"seasonprefix", "  SeasonPrefix = ", "su", "wi", "au"},
};
// clang-format on

zel::String quotedLine(const char* prefix, const char* value) {
    return zel::String(prefix) + "\"" + value + "\";";
}

const LandscapeLine* landscapeLine(const zel::String& key) {
    for (const LandscapeLine& line : Landscape)
        if (key == line.key)
            return &line;
    return nullptr;
}

const char* landscapeValue(const LandscapeLine& line, int32_t mapIndex, const zel::String& season) {
    if (mapIndex == 1)
        return line.channel;
    return season == "wi" ? line.winter : season == "au" ? line.autumn : nullptr;
}

/// The names of the blocks around a line, while a pass goes through the text.
class BlockStack {
public:
    /// Handles a brace; true if the line was one. `previous` is the line before, null for none.
    bool takeBrace(const zel::String& key, const zel::String* previous) {
        if (key == "{") {
            if (previous != nullptr)
                names.push_back(blockName(*previous).toLower());
            return true;
        }
        if (key != "}")
            return false;
        if (!names.empty())
            names.pop_back();
        return true;
    }
    /// The innermost block's name in lower case; empty outside of all blocks.
    const zel::String& top() const { return names.empty() ? none : names.back(); }

private:
    const zel::String none = zel::String();
    std::vector<zel::String> names;
};

/// Whether such a block is the mission's logic: it moves with the mission, while planes and their
/// entities are placed separately.
bool isLogicBlock(const zel::String& name) { return name.left(4) == "mcu_" && name != EntityBlock; }

/// First pass: landscape, weather, date and time; and the attack area's position in the template.
void rewriteOptions(MissionGenerator& generator, const Calendar& date, float& originX,
                    float& originZ) {
    BlockStack blocks;
    for (int32_t i = 0; i < generator.lines.lineCount(); ++i) {
        zel::String& text = generator.lines.line(i);
        const MissionLine line = splitMissionLine(text);
        const zel::String& key = line.key;
        if (blocks.takeBrace(key, i > 0 ? &generator.lines.line(i - 1) : nullptr))
            continue;
        if (key == "playerconfig") {
            text = ""; // AILevel identifies his plane
        } else if (const LandscapeLine* landscape = landscapeLine(key)) {
            if (const char* value =
                    landscapeValue(*landscape, generator.mapIndex, generator.seasonPrefix))
                text = quotedLine(landscape->prefix, value);
        } else if (key == "cloudconfig") {
            const bool clear = generator.random.getInt(0, 1) == 0;
            text = quotedLine("  CloudConfig = ", clear ? "clear\\sky.ini" : "AverageFog\\sky.ini");
        } else if (key == "date") {
            text = zel::String("  Date = ") + date.getDay() + "." + date.getMonth() + "." +
                   date.getYear() + ";";
        } else if (key == "time" && blocks.top() == OptionsBlock) {
            const int32_t minute = generator.random.getInt(0, 59);
            const int32_t hour = generator.random.getInt(8, 17);
            text = zel::String("  Time = ") + hour + ":" + minute + ":0;";
        } else if (blocks.top() == AttackAreaBlock &&
                   (key == "xpos" || key == "ypos" || key == "zpos")) {
            const float value = missionFloat(line.value);
            const char* axis = key == "xpos" ? "X" : key == "ypos" ? "Y" : "Z";
            if (key == "xpos")
                originX = value;
            else if (key == "zpos")
                originZ = value;
            zel::console(zel::String("ORG POSITION ") + axis + ": " + zel::formatFloat(value));
        }
    }
}

/// Second pass: the planes after the options, the attack area's objects, and all logic moved so
/// that the attack area is at the mission's position. Lines are inserted on the way.
void moveObjects(MissionGenerator& generator, const Database& career, float originX,
                 float originZ) {
    BlockStack blocks;
    for (int32_t i = 0; i < generator.lines.lineCount(); ++i) {
        const MissionLine line = splitMissionLine(generator.lines.line(i));
        const zel::String& key = line.key;
        if (key == "}" && blocks.top() == OptionsBlock)
            emitPlanes(generator, career, i + 1);
        if (blocks.takeBrace(key, i > 0 ? &generator.lines.line(i - 1) : nullptr))
            continue;
        if (key == "objects" && blocks.top() == AttackAreaBlock) {
            zel::String list;
            for (const int32_t object : generator.attackObjects) {
                if (!list.empty())
                    list += ",";
                list += object;
            }
            generator.lines.line(i) = "    Objects = [" + list + "];";
        } else if (isLogicBlock(blocks.top()) &&
                   (key == "xpos" || key == "ypos" || key == "zpos")) {
            float value = missionFloat(line.value);
            const char* prefix = "    XPos = ";
            if (key == "xpos") {
                value = value - originX + generator.locationX + generator.offsetX;
            } else if (key == "ypos") {
                value = value + generator.locationY + generator.offsetY;
                prefix = "    YPos = ";
            } else {
                value = value - originZ + generator.locationZ + generator.offsetZ;
                prefix = "    ZPos = ";
            }
            generator.lines.line(i) = prefix + zel::formatFloat(value) + ";";
        }
    }
}

} // namespace

void generateMission(MissionGenerator& generator, const Database& career) {
    float originX = 0;
    float originZ = 0;
    rewriteOptions(generator, career.calendar(), originX, originZ);
    moveObjects(generator, career, originX, originZ);
}
