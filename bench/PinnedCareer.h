#pragma once

#include <cstdint>
#include <memory>

#include "app/career/Database.h"
#include "app/mission/MissionGenerator.h"
#include "engine/core/Clock.h"
#include "engine/core/Random.h"

constexpr uint32_t PinnedSeed = 20260;

/// A career and a generator, begun from one number so that every run draws the same.
struct PinnedCareer {
    explicit PinnedCareer(CareerObserver* observer = nullptr) {
        zel::setTickSource([] { return uint32_t(0); }); // seeds would differ with the time
        zel::Random::setStaticNumber(PinnedSeed);
        zel::seedSharedRandom(PinnedSeed);
        career = std::make_unique<Database>();
        generator = std::make_unique<MissionGenerator>();
        generator->reseed(PinnedSeed);
        career->random.seed(PinnedSeed);
        career->observer = observer;
        career->createCareer(ServiceEnglish);
    }
    std::unique_ptr<Database> career;
    std::unique_ptr<MissionGenerator> generator;
};
