#include "standin/mission/OptionsReader.h"

#include <algorithm>
#include <iterator>

#include "standin/mission/MissionKeys.h"
#include "standin/mission/MissionValues.h"

namespace standin {

namespace {

constexpr std::string_view Seasons[] = {"su", "wi", "au", "sp"};

std::string folderOf(const std::string& path) { return path.substr(0, path.rfind('/') + 1); }

bool checkLandscape(const MissionBlock& block, tools::Finding& finding) {
    const std::string folder = folderOf(plainPath(textOf(block, "HMap")));
    if (folder.empty())
        return refuse(finding, lineOf(block, "HMap"), "HMap names no folder of a landscape");
    if (folderOf(plainPath(textOf(block, "Textures"))) != folder)
        return refuse(finding, lineOf(block, "Textures"),
                      "Textures and HMap are of two landscapes");
    if (plainPath(textOf(block, "Forests")).rfind(folder, 0) != 0)
        return refuse(finding, lineOf(block, "Forests"), "Forests and HMap are of two landscapes");
    const std::string season = textOf(block, "SeasonPrefix");
    return std::find(std::begin(Seasons), std::end(Seasons), season) != std::end(Seasons) ||
           refuse(finding, lineOf(block, "SeasonPrefix"),
                  "SeasonPrefix \"" + season + "\" is not a season");
}

/// Rows height : direction : speed, rising.
bool readWind(const MissionBlock& block, tools::Finding& finding) {
    const MissionBlock* layers = block.child("WindLayers");
    if (layers == nullptr)
        return refuse(finding, block.line, "Options without WindLayers");
    if (layers->rows.empty())
        return refuse(finding, layers->line, "WindLayers without a row");
    if (!checkRowsOnly(*layers, finding))
        return false;
    double below = -1;
    for (const MissionRow& row : layers->rows) {
        double numbers[3] = {};
        for (size_t i = 0; i < row.values.size(); ++i)
            if (row.separator != ':' || row.values.size() != 3 ||
                !parseNumber(row.values[i], numbers[i]))
                return refuse(finding, row.line, "a wind layer is 'height : direction : speed;'");
        if (numbers[0] <= below)
            return refuse(finding, row.line, "the heights of the wind layers don't rise");
        below = numbers[0];
    }
    return true;
}

bool readCountries(const MissionBlock& block, Mission& mission, tools::Finding& finding) {
    const MissionBlock* countries = block.child("Countries");
    if (countries == nullptr)
        return refuse(finding, block.line, "Options without Countries");
    if (!checkRowsOnly(*countries, finding))
        return false;
    for (const MissionRow& row : countries->rows) {
        Country country;
        if (row.separator != ':' || row.values.size() != 2 ||
            !parseWhole(row.values[0], country.code) ||
            !parseWhole(row.values[1], country.coalition) || country.coalition < 0)
            return refuse(finding, row.line, "a row of Countries is 'country : coalition;'");
        if (mission.coalitionOf(country.code) >= 0)
            return refuse(finding, row.line, "country " + row.values[0] + " is twice in Countries");
        mission.countries.push_back(country);
    }
    return true;
}

} // namespace

bool readOptions(const MissionBlock& block, Mission& mission, tools::Finding& finding) {
    if (!checkBlock(block, finding) || !checkLandscape(block, finding) ||
        !readWind(block, finding) || !readCountries(block, mission, finding))
        return false;
    int32_t parts[3] = {};
    parseTime(block.find("Time")->value, parts);
    mission.hour = parts[0];
    mission.minute = parts[1];
    mission.second = parts[2];
    parseDate(block.find("Date")->value, parts);
    mission.day = parts[0];
    mission.month = parts[1];
    mission.year = parts[2];
    mission.missionType = wholeOf(block, "MissionType");
    return mission.missionType == 0 || refuse(finding, lineOf(block, "MissionType"),
                                              "MissionType is not 0, a single-player mission");
}

} // namespace standin
