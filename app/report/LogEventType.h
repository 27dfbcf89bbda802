#pragma once

#include <cstdint>

/// The event types (AType) of the simulator's log that say something about a flight.
enum LogEventType : int32_t {
    LogHit = 1,
    LogDamage = 2,
    LogDestroyed = 3,
    LogTakeOff = 5,
    LogLanding = 6,
    LogHumanPlane = 10,
    LogObject = 12,
    LogCrewEnded = 16,
    LogPosition = 17,
};
