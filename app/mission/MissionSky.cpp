#include "app/mission/MissionSky.h"

#include <cstdio>
#include <vector>

#include "app/career/EntireFile.h"
#include "app/mission/MissionLine.h"
#include "app/mission/SkyWording.h"

namespace {

constexpr const char* ClearSky = "clear";

/// The values between colons, as in a time or a layer of wind.
std::vector<float> valuesOf(std::string_view text) {
    std::vector<zel::String> parts;
    zel::String(text).split(":", parts);
    std::vector<float> values;
    values.reserve(parts.size());
    for (const zel::String& part : parts)
        values.push_back(missionFloat(part.view()));
    return values;
}

} // namespace

MissionSky skyOf(const EntireFile& mission) {
    MissionSky sky;
    int32_t depth = 0;
    bool isWindNext = false; // the layer next to the ground is the first
    for (const zel::String& text : mission.lines) {
        const MissionLine line = splitMissionLine(text);
        if (line.key == "{") {
            ++depth;
        } else if (line.key == "}") {
            if (--depth == 0)
                break; // the options are the first block
        } else if (line.key == "windlayers") {
            isWindNext = true;
        } else if (isWindNext) {
            isWindNext = false;
            if (const std::vector<float> layer = valuesOf(text.view()); layer.size() == 3) {
                sky.windFrom = static_cast<int32_t>(layer[1]);
                sky.windSpeed = static_cast<int32_t>(layer[2]);
            }
        } else if (line.key == "time") {
            if (const std::vector<float> time = valuesOf(line.value); time.size() >= 2) {
                sky.hour = static_cast<int32_t>(time[0]);
                sky.minute = static_cast<int32_t>(time[1]);
            }
        } else if (line.key == "cloudconfig") {
            sky.isClear =
                zel::String(line.value).toLower().view().find(ClearSky) != std::string_view::npos;
        }
    }
    return sky;
}

zel::String skyText(const MissionSky& sky) {
    char time[16];
    std::snprintf(time, sizeof time, "%d:%02d", sky.hour, sky.minute);
    if (sky.windSpeed <= 0)
        return textOf(sky.isClear ? wording::ClearAndCalm : wording::MistAndCalm, {time});
    return textOf(sky.isClear ? wording::ClearAndWind : wording::MistAndWind,
                  {time, sky.windSpeed, sky.windFrom});
}
