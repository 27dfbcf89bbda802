#include "standin/StandIn.h"

#include <algorithm>
#include <cstdio>

#include "engine/core/Clock.h"
#include "engine/core/Directory.h"
#include "engine/core/File.h"
#include "engine/core/Random.h"
#include "engine/core/System.h"
#include "engine/core/WholeFile.h"
#include "standin/fight/Dogfight.h"
#include "standin/log/MissionLog.h"
#include "standin/mission/MissionReader.h"

namespace standin {

namespace {

constexpr int32_t LargestMission = 64 * 1024 * 1024; // bytes; the largest known have a few
constexpr std::string_view StartupText = "[KEY = system]\r\n"
                                         "\tgamelog = 1\r\n"
                                         "\tkeep_binary_log = 0\r\n"
                                         "\tmission_text_log = 1\r\n"
                                         "[END]\r\n";

bool sleepFor(double seconds) {
    zel::system::sleepMilliseconds(static_cast<uint32_t>(seconds * 1000));
    return true;
}

bool writeFile(const zel::String& name, std::string_view content) {
    zel::File file(name, zel::FileWrite);
    if (!file.hasFailed())
        file.write(content.data(), static_cast<int32_t>(content.size()));
    file.close(); // reports whether everything was written
    return !file.hasFailed();
}

/// Whether the text log is on. As in the simulator, the last such line counts.
bool hasTextLog(const zel::String& startup) {
    zel::File file(startup, zel::FileRead);
    bool isOn = false;
    while (file.hasLine()) {
        const std::string_view line = file.lineView();
        const size_t equals = line.find('=');
        if (equals == line.npos)
            continue;
        std::string key(line.substr(0, equals));
        key.erase(
            std::remove_if(key.begin(), key.end(),
                           [](char character) { return character == ' ' || character == '\t'; }),
            key.end());
        std::string_view value = line.substr(equals + 1);
        value.remove_prefix(std::min(value.find_first_not_of(" \t"), value.size()));
        if (zel::equalsNoCase(key, "mission_text_log"))
            isOn = zel::toInt(value) != 0;
    }
    return isOn;
}

std::string stampOf(const zel::WallTime& time) {
    char buffer[96];
    std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02d_%02d-%02d-%02d", time.year, time.month,
                  time.day, time.hour, time.minute, time.second);
    return buffer;
}

bool readStamp(const std::string& stamp, zel::WallTime& time) {
    int used = 0;
    return std::sscanf(stamp.c_str(), "%4d-%2d-%2d_%2d-%2d-%2d%n", &time.year, &time.month,
                       &time.day, &time.hour, &time.minute, &time.second, &used) == 6 &&
           static_cast<size_t>(used) == stamp.size() && stampOf(time) == stamp;
}

/// A second later. Months end with the 28th here: a stamp only has to be free and well-formed.
void moveOn(zel::WallTime& time) {
    struct Part {
        int32_t& value;
        int32_t first, last;
    };
    const Part parts[] = {
        {time.second, 0, 59}, {time.minute, 0, 59}, {time.hour, 0, 23},
        {time.day, 1, 28},    {time.month, 1, 12},
    };
    for (const Part& part : parts) {
        if (part.value < part.last) {
            ++part.value;
            return;
        }
        part.value = part.first;
    }
    ++time.year;
}

std::string pieceName(const std::string& stamp, size_t piece) {
    return "missionReport(" + stamp + ")[" + std::to_string(piece) + "].txt";
}

/// The mission's path and its own name; false if there is no such file.
bool findMission(const zel::String& dir, const zel::String& missionFile, zel::String& path,
                 std::string& name) {
    const std::string_view given = missionFile.view();
    const size_t separator = given.find_last_of("\\/");
    name = separator == given.npos ? given : given.substr(separator + 1);
    const zel::String root = dir.empty() ? zel::String(".") : dir;
    for (const zel::String& folder : {missionsFolder(dir), root}) {
        path = folder + "/" + missionFile;
        if (!missionFile.empty() && zel::File::exists(path))
            return true;
    }
    return false;
}

bool readMissionFile(const zel::String& path, Mission& mission, tools::Finding& finding) {
    zel::File file(path, zel::FileRead);
    std::string text;
    if (file.hasFailed() || file.fileSize() > LargestMission || !file.readWhole(text)) {
        finding = {path, 0, "the mission can't be read"};
        return false;
    }
    if (readMissionText(text, mission, finding))
        return true;
    finding.file = path.view();
    return false;
}

FlightSummary summarise(const Mission& mission, const FlightCourse& flight) {
    FlightSummary summary;
    summary.seconds = flight.endTick / TicksPerSecond;
    const int32_t planes = static_cast<int32_t>(mission.planes.size());
    for (int32_t i = 0; i < planes; ++i) {
        const Plane& plane = mission.planes[i];
        const PlaneEnd& end = flight.planes[i];
        summary.planes.push_back(
            {plane.name, plane.country, 0, i == mission.human, end.destroyed, !end.pilotAlive});
    }
    std::vector<bool> counted(mission.planes.size());
    for (const Event& event : flight.events) {
        if (event.kind != EventKind::Destroyed || event.target >= 2 * planes)
            continue;
        const int32_t victim = event.target < planes ? event.target : event.target - planes;
        if (counted[victim])
            continue; // a pilot counts with his plane
        counted[victim] = true;
        if (event.attacker < 0 || event.attacker >= planes)
            continue;
        if (mission.planes[event.attacker].coalition != mission.planes[victim].coalition)
            ++summary.planes[event.attacker].victories;
    }
    return summary;
}

/// When the wound or death that the options request for the player is due; 0 if they request none.
int32_t tickOfFate(const Mission& mission, const FlightCourse& flight, const FightOptions& fight) {
    const int32_t body = mission.human + static_cast<int32_t>(mission.planes.size());
    for (const Event& event : flight.events)
        if (event.target == body && ((fight.killHuman && event.kind == EventKind::Destroyed) ||
                                     (fight.woundHuman && event.kind == EventKind::Damage)))
            return event.tick;
    return 0;
}

/// Reads the mission and checks everything that can be wrong before a flight begins.
bool prepare(const zel::String& dir, const zel::String& missionFile, const FlightOptions& options,
             Mission& mission, std::string& name, tools::Finding& finding) {
    zel::String path;
    zel::WallTime time;
    if (!findMission(dir, missionFile, path, name)) {
        finding = {missionsFolder(dir), 0, zel::String("there is no mission ") + missionFile};
        return false;
    }
    const zel::String startup = dataFolder(dir) + "/startup.cfg";
    if (!hasTextLog(startup)) {
        finding = {startup, 0, "without the line 'mission_text_log = 1' no log is written"};
        return false;
    }
    if (!options.stamp.empty() && !readStamp(options.stamp, time)) {
        finding.message = "the stamp '" + options.stamp + "' is not YYYY-MM-DD_HH-MM-SS";
        return false;
    }
    return readMissionFile(path, mission, finding);
}

/// The first free stamp, starting with the requested one.
std::string freeStamp(const zel::String& data, const FlightOptions& options) {
    zel::WallTime time = zel::wallTime();
    if (!options.stamp.empty())
        readStamp(options.stamp, time);
    while (zel::File::exists(data + "/" + pieceName(stampOf(time), 0)))
        moveOn(time);
    return stampOf(time);
}

/// Writes them one by one. An interruption leaves a truncated log, as with the simulator.
bool writePieces(const zel::String& data, const std::vector<std::string>& pieces,
                 const FlightOptions& options, FlightSummary& summary, tools::Finding& finding) {
    const Wait& wait = options.wait ? options.wait : Wait(sleepFor);
    summary.interrupted = options.delay > 0 && !wait(options.delay);
    const std::string stamp = freeStamp(data, options);
    for (size_t i = 0; i < pieces.size() && !summary.interrupted; ++i) {
        if (options.piecePause > 0 && !wait(options.piecePause)) {
            summary.interrupted = true;
            break;
        }
        const std::string name = pieceName(stamp, i);
        if (!writeFile(data + "/" + name, pieces[i])) {
            finding = {data + "/" + name, 0, "the log can't be written"};
            return false;
        }
        if (i == 0)
            summary.logName = name;
        ++summary.pieces;
    }
    summary.finished = summary.finished && !summary.interrupted;
    return true;
}

} // namespace

zel::String dataFolder(const zel::String& dir) {
    const std::string_view folder = zel::withoutSeparator(dir.view());
    return folder.empty() ? zel::String("data") : zel::String(folder) + "/data";
}

zel::String missionsFolder(const zel::String& dir) { return dataFolder(dir) + "/Missions"; }

zel::String startupFile(const zel::String& dir) { return dataFolder(dir) + "/startup.cfg"; }

bool makeSimulatorFolder(const zel::String& dir, tools::Finding& finding) {
    if (dir.empty() || !zel::Directory::create(missionsFolder(dir))) {
        finding = {missionsFolder(dir), 0, "the folder can't be made"};
        return false;
    }
    return zel::File::exists(startupFile(dir)) || writeStartup(dir, finding);
}

bool writeStartup(const zel::String& dir, tools::Finding& finding) {
    const zel::FileFault fault = zel::writeFileWhole(startupFile(dir), StartupText);
    if (fault == zel::FileFault::None)
        return true;
    finding = {startupFile(dir), 0,
               zel::String("the file can't be written: ") + zel::faultText(fault)};
    return false;
}

zel::String newestMission(const zel::String& dir) {
    zel::String newest;
    int64_t changed = 0;
    if (!zel::system::isDirectory(missionsFolder(dir)))
        return newest;
    const zel::Directory missions(missionsFolder(dir), "*.mission");
    for (int32_t i = 0; i < missions.count(); ++i) {
        const auto status = zel::system::fileStatus(missionsFolder(dir) + "/" + missions.name(i));
        if (!status.exists || (!newest.empty() && status.changed <= changed))
            continue;
        newest = missions.name(i);
        changed = status.changed;
    }
    return newest;
}

bool flyMission(const zel::String& dir, const zel::String& missionFile,
                const FlightOptions& options, tools::Finding& finding, FlightSummary* summary) {
    Mission mission;
    std::string name;
    if (!prepare(dir, missionFile, options, mission, name, finding))
        return false;
    const uint32_t seed = options.seed != 0 ? options.seed : std::max(zel::Random(0).next(), 1U);
    zel::Random random(seed);
    const FightOptions fight{options.killPlayer, options.woundPlayer && !options.killPlayer};
    const FlightCourse flight = Dogfight(mission, fight, random).run();
    LogOptions log;
    log.missionName = name.substr(0, name.rfind('.'));
    log.breakOff = options.breakOff;
    log.notBefore = tickOfFate(mission, flight, fight);
    log.truncate = options.truncateLastPiece;
    const std::vector<std::string> pieces = writeLog(mission, flight, log, random);

    FlightSummary result = summarise(mission, flight);
    result.seed = seed;
    result.mission = name;
    result.finished = !options.breakOff;
    const bool written = writePieces(dataFolder(dir), pieces, options, result, finding);
    if (summary != nullptr)
        *summary = std::move(result);
    return written;
}

std::string describe(const FlightSummary& summary) {
    std::string text = summary.mission + ": ";
    if (summary.pieces == 0)
        return text + "not flown.\n";
    text += std::to_string(summary.seconds / 60) + " min " + std::to_string(summary.seconds % 60) +
            " s, seed " + std::to_string(summary.seed) + ", log " + summary.logName;
    if (summary.pieces > 1)
        text += " to [" + std::to_string(summary.pieces - 1) + "]";
    if (!summary.finished)
        return text + ", left before its end\n";
    text += "\n";
    for (const PlaneResult& plane : summary.planes) {
        text += "  " + std::to_string(plane.country) + "  " + plane.name;
        text += plane.isPlayer ? " (you)" : "";
        if (plane.victories > 0)
            text += ", " + std::to_string(plane.victories) +
                    (plane.victories == 1 ? " victory" : " victories");
        text += plane.dead ? ", dead\n" : plane.lost ? ", shot down, alive\n" : ", home\n";
    }
    return text;
}

} // namespace standin
