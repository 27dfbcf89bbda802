#pragma once

#include <cstdint>
#include <memory>

#include "app/career/MissionOrders.h"

class SqliteFile;

/// The orders of a career, as its record keeps them; OrdersBook says what they are for.
class RecordOrders {
public:
    /// Takes the orders of the save's day out of the file, if the career can have flown them.
    void takeUp(SqliteFile& file, const Database& career, int32_t date);
    void replace(MissionOrders newOrders);
    /// The orders of the present day, or null.
    std::shared_ptr<const MissionOrders> out(const Database& career) const;
    /// The day of the orders that don't apply, or 0.
    int32_t voidDate(const Database& career) const;
    /// Writes them, if there are any, in place of those of all days after the last save: these are
    /// of a timeline that was never saved, or already reported.
    void save(SqliteFile& file, int32_t lastSaved) const;
    /// Commits and syncs only the orders. An open transaction is rolled back. On error: false, and
    /// the file has failed. REQUIRES: there are some.
    bool commit(SqliteFile& file) const;

private:
    void write(SqliteFile& file) const;

    std::shared_ptr<const MissionOrders> orders; // the last ones without a report; or null
    int32_t voidDay = 0;                         // of orders in the file that don't apply; or 0
};
