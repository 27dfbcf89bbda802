#include "app/mission/MissionGenerator.h"

#include "app/career/Aircraft.h"

namespace {

MissionGenerator* currentGenerator = nullptr;

} // namespace

MissionGenerator::MissionGenerator() : random(std::make_unique<zel::Random>()) {
    currentGenerator = this;
    setPlaneRandom(random.get());
}

MissionGenerator::~MissionGenerator() {
    if (currentGenerator != this)
        return;
    currentGenerator = nullptr;
    setPlaneRandom(nullptr);
}

MissionGenerator* MissionGenerator::instance() { return currentGenerator; }

void MissionGenerator::reseed(uint32_t seed) {
    random = std::make_unique<zel::Random>(seed);
    if (currentGenerator == this)
        setPlaneRandom(random.get());
}
