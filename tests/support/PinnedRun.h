#pragma once

#include "app/mission/Configuration.h"
#include "engine/core/Clock.h"
#include "engine/core/Random.h"
#include "engine/core/Registry.h"
#include "engine/core/UserDirectory.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TemporaryFolder.h"

/// A run over the delivered data with a user's folder and a simulator's folder of its own, in which
/// everything follows from the seed. The simulator's folder isn't made yet.
class PinnedRun {
public:
    explicit PinnedRun(uint32_t seed) {
        zel::setUserDirectory(userFolder());
        zel::Registry::reset();
        Configuration::reset();
        Configuration::set("rof.directory", simulatorFolder());
        zel::setTickSource([] { return uint32_t(0); });
        zel::setWallTimeSource([] { return zel::WallTime{2009, 5, 7, 12, 0, 0}; });
        zel::sharedRandom(); // built at its first use, which takes a static number
        zel::Random::setStaticNumber(seed);
        zel::seedSharedRandom(0);
    }
    ~PinnedRun() {
        zel::setTickSource(nullptr);
        zel::setWallTimeSource(nullptr);
        zel::setUserDirectory("");
        zel::Registry::reset();
        Configuration::reset();
    }
    PinnedRun(const PinnedRun&) = delete;
    PinnedRun& operator=(const PinnedRun&) = delete;

    std::string userFolder() const { return folder.path() + "/user"; }
    std::string simulatorFolder() const { return folder.path() + "/sim"; }
    std::string save() const { return folder.read("user/Saves/savegame_v03.wty"); }

    TemporaryFolder folder;
    LogCapture lines;
};
