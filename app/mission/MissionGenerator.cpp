#include "app/mission/MissionGenerator.h"

#include "app/career/Aircraft.h"
#include "app/mission/MissionWriter.h"
#include "app/mission/PlaneEmission.h"
#include "engine/core/Log.h"

namespace {

MissionGenerator* currentGenerator = nullptr;

} // namespace

MissionGenerator::MissionGenerator() {
    currentGenerator = this;
    setPlaneRandom(&random);
}

MissionGenerator::~MissionGenerator() {
    if (currentGenerator != this)
        return;
    currentGenerator = nullptr;
    setPlaneRandom(nullptr);
}

MissionGenerator* MissionGenerator::instance() { return currentGenerator; }

void MissionGenerator::reseed(uint32_t seed) { random.seed(seed); }

void MissionGenerator::setMissionLocation(int32_t newMapIndex, float x, float y, float z,
                                          float rangeX, float rangeY, float rangeZ) {
    mapIndex = newMapIndex;
    locationX = x;
    locationY = y;
    locationZ = z;
    offsetX = random.getFloat(-rangeX, rangeX);
    offsetY = random.getFloat(-rangeY, rangeY);
    offsetZ = random.getFloat(-rangeZ, rangeZ);
    zel::console("LOCATION X: " + zel::formatFloat(locationX) +
                 " ; LOCATION Y: " + zel::formatFloat(locationZ)); // sic
    zel::console("OFFSET X: " + zel::formatFloat(offsetX) +
                 " ; OFFSET Z: " + zel::formatFloat(offsetZ));
}

bool MissionGenerator::loadTemplate(const zel::String& fileName) {
    return lines.loadFile(fileName);
}

bool MissionGenerator::saveMission(const zel::String& fileName) const {
    return lines.saveFile(fileName);
}

void MissionGenerator::scanTemplate() { ::scanTemplate(*this); }

void MissionGenerator::planMission(bool withPlayer) {
    ::planMission(*this, *Database::instance(), withPlayer);
}

void MissionGenerator::selectPlanes(bool withPlayer) {
    ::selectPlanes(*this, *Database::instance(), withPlayer);
}

zel::String MissionGenerator::seasonFor(int32_t /*year*/, int32_t month, int32_t day) {
    return drawSeason(random, month, day);
}

void MissionGenerator::generateMission() { ::generateMission(*this, *Database::instance()); }

void MissionGenerator::emitPlanes(int32_t insertLine) {
    ::emitPlanes(*this, *Database::instance(), insertLine);
}
