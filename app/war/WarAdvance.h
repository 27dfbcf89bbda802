#pragma once

#include "app/career/Calendar.h"

class Database;
class MissionGenerator;

/// One period of the war: the date moves on, the unseen missions are fought, some squadrons change
/// base, the history is applied. Without a generator (null) no missions are fought. In years other
/// than 1915 to 1918 the date stays as it is.
void advanceWar(Database& career, MissionGenerator* generator);

/// Hears of the progress of a long stretch of war, to show it. It may not touch the career.
class WarObserver {
public:
    virtual ~WarObserver() = default;
    /// After each unseen mission: the date reached, and the share of the present stretch that is
    /// done, 0 to 1.
    virtual void onWarProgress(const Calendar& date, float share) = 0;
};

/// Null, as at the start, for nobody. The observer must outlive its registration.
void setWarObserver(WarObserver* observer);
