#pragma once

#include <memory>

#include "app/career/CareerEvents.h"
#include "app/career/MissionOrders.h"
#include "app/mission/DailyMission.h"
#include "app/mission/MissionGenerator.h"
#include "app/report/CombatReport.h"
#include "app/report/LogWatch.h"

class Database;

/// Whether the mission file in the simulator's folder is that of the orders.
enum class OrdersFile { Same, Changed, Missing };

/// A mission under way, from its orders to its report: the plan that it was written from, the watch
/// for the simulator's logs, and the report that is read from them.
///
/// The application, or a session of the command line, owns one and passes it to whatever needs it.
class Flight {
public:
    /// The book keeps the orders beyond the end of the program; it outlives this. Without one
    /// (null) they end with the program.
    explicit Flight(OrdersBook* book = nullptr) : book(book) {}

    /// Plans and writes the mission of the day, and keeps its orders. Logs already in the
    /// simulator's folder count as earlier flights. If this day's mission is written again before
    /// its report arrives, logs since the first time stay new. If the logs can't be
    /// listed, no mission is written. On error: as writeDailyMission. Orders that were out stay
    /// out.
    DailyMission begin(Database& career);
    /// The orders for the career's present day, whoever wrote them: those of an earlier run are
    /// taken up with their plan and the logs known to them. Null if none are out. Call this
    /// before findReport() unless begin() was called.
    const MissionOrders* orders(const Database& career);
    /// Whether the orders that are out will still be out in a later run.
    bool areOrdersKept() const { return areKept; }
    /// Whether these orders were taken up from an earlier run, and no log was sought since.
    bool isToBeSought() const { return isTakenUp; }
    /// The day of orders that don't apply, as OrdersBook::voidOrders(); 0 for none.
    int32_t voidOrders(const Database& career) const;
    /// Looks once for the log of the mission that was flown. True when a finished mission was
    /// found: it is in the report and has been applied to the career. Otherwise the report is
    /// empty. A log that has an end but doesn't name everybody of the plan may be incomplete: it is
    /// left to the next look, and accepted once it stops growing or if this is the last look. Logs
    /// of other missions, of other days and those that were reported before are passed over. So are
    /// those whose player isn't in the plan, but the last look accepts one unless another log may
    /// still become the report.
    bool findReport(Database& career, bool isLastLook = false);
    /// What the looks since begin() have found.
    LogNews news() const;

    /// All that is known of the flight that findReport found last; empty before the first.
    const FlownMission& flown() const { return account; }

    MissionGenerator& generator() { return missionGenerator; }
    CombatReport& report() { return combatReport; }
    LogWatch& logs() { return watch; }

private:
    zel::String ownLog(const zel::String& folder, const std::vector<zel::String>& names,
                       bool isLastLook);
    zel::String strangersLog(const zel::String& folder);
    LogNews readLog(const zel::String& folder, const zel::String& name);
    bool namesEverybody() const;
    bool wasReported(const zel::String& folder, const zel::String& name) const;
    void takeUp();
    void followFolder();
    void keepOrders(const Database& career, const DailyMission& mission);

    OrdersBook* book;
    MissionGenerator missionGenerator;
    CombatReport combatReport;
    FlownMission account;
    LogWatch watch;
    std::shared_ptr<const MissionOrders> out; // the orders of this flight; null for none
    bool areKept = false;
    bool isTakenUp = false;
    bool hasTextLog = true; // at the last look that found no log
};

/// Compares the mission file with the one that the orders were given with.
OrdersFile fileOf(const MissionOrders& orders);
