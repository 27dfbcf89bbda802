#include "app/record/OrdersTable.h"

#include "app/record/Sqlite.h"

void writeOrders(SqliteFile& file, const MissionOrders& orders) {
    SqliteStatement(file, "INSERT OR REPLACE INTO orders VALUES(?,?,?,?,?,?,?,?,?)")
        .insert(orders.date, orders.file, orders.size, orders.hash, orders.isFlyable,
                double{orders.x}, double{orders.z}, orNull(orders.reportedLog),
                orNull(orders.logFolders));
    SqliteStatement(file, "DELETE FROM orders_plane WHERE date = ?").insert(orders.date);
    SqliteStatement plane(file, "INSERT INTO orders_plane VALUES(?,?,?,?,?,?,?,?,?,?,?)");
    int32_t place = 0;
    for (const PlannedPlane& planned : orders.planes)
        plane.insert(orders.date, place++, planned.pilot, planned.name, planned.nation,
                     planned.skill, planned.shotdowns, planned.missions, planned.squadron,
                     orNull(planned.pilotFile), planned.type);
    SqliteStatement log(file, "INSERT INTO orders_log VALUES(?,?) ON CONFLICT(name) DO UPDATE"
                              " SET since = excluded.since WHERE since > excluded.since");
    for (const zel::String& name : orders.knownLogs)
        log.insert(name, orders.date);
}

std::optional<MissionOrders> readOrders(SqliteFile& file, int32_t date) {
    MissionOrders orders;
    orders.date = date;
    SqliteStatement row(file, "SELECT file, size, hash, flyable, x, z, log, folder FROM orders"
                              " WHERE date = ?");
    if (!row.with(date).next())
        return std::nullopt;
    orders.file = row.text(0);
    orders.size = row.number(1);
    orders.hash = row.text(2);
    orders.isFlyable = row.number(3) != 0;
    orders.x = static_cast<float>(row.real(4));
    orders.z = static_cast<float>(row.real(5));
    orders.reportedLog = row.text(6);
    orders.logFolders = row.text(7);
    SqliteStatement plane(file, "SELECT pilot, name, nation, skill, victories, missions, squadron,"
                                " pilot_file, aircraft FROM orders_plane WHERE date = ?"
                                " ORDER BY place");
    for (plane.with(date); plane.next();)
        orders.planes.push_back({plane.integer(0), plane.text(1), plane.integer(2),
                                 plane.integer(3), plane.integer(4), plane.integer(5),
                                 plane.integer(6), plane.index(7), plane.text(8)});
    SqliteStatement log(file, "SELECT name FROM orders_log WHERE since <= ? ORDER BY name");
    for (log.with(date); log.next();)
        orders.knownLogs.push_back(log.text(0));
    return file.failed() ? std::nullopt : std::optional<MissionOrders>(std::move(orders));
}

void noteReportedLog(SqliteFile& file, int32_t date, const zel::String& log) {
    SqliteStatement(file, "UPDATE orders SET log = ? WHERE date = ?").insert(log, date);
}

void cutOrders(SqliteFile& file, int32_t date) {
    SqliteStatement(file, "DELETE FROM orders WHERE date > ?").insert(date);
    SqliteStatement(file, "DELETE FROM orders_plane WHERE date > ?").insert(date);
}

int32_t lastUnreported(SqliteFile& file) {
    return static_cast<int32_t>(
        file.number("SELECT date FROM (SELECT date, log FROM orders ORDER BY date DESC LIMIT 1)"
                    " WHERE log IS NULL"));
}
