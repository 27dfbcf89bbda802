#include "app/mission/MissionGenerator.h"

#include "app/career/Aircraft.h"

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
