#pragma once

#include "app/career/Calendar.h"

class Database;
class MissionGenerator;

/// One period of the war: the date moves on, the unseen missions are fought, some squadrons change
/// base, the history is applied. Without a generator (null) no missions are fought. In years other
/// than 1915 to 1918 the date stays as it is.
void advanceWar(Database& career, MissionGenerator* generator);
/// Fights the start-up missions and moves the war on until the date is reached or passed.
void simulateToDate(Database& career, MissionGenerator& generator, const Calendar& target);

/// Receives the progress of a long simulation, to show it. It must not change the career.
class WarObserver {
public:
    virtual ~WarObserver() = default;
    /// Called after each unseen mission with the date reached and the fraction of the current
    /// stretch that is done, 0 to 1.
    virtual void onWarProgress(const Calendar& date, float share) = 0;
};

/// Null, the default, for none. The observer must outlive its registration.
void setWarObserver(WarObserver* observer);
