#include "app/record/RecordOrders.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "app/career/Database.h"
#include "app/record/OrdersTable.h"
#include "app/record/RecordSeal.h"
#include "app/record/Sqlite.h"
#include "engine/core/Log.h"

namespace {

void logVoidOrders(int32_t date, const zel::String& why) {
    zel::log(zel::String("The orders of ") + date + " are void: " + why, "Record", zel::LogWarning);
}

bool canBeOf(const Database& career, const std::vector<PlannedPlane>& planes) {
    return !planes.empty() && planes.front().pilot == career.playerPilot &&
           std::all_of(planes.begin(), planes.end(), [&](const PlannedPlane& plane) {
               return career.isPilot(plane.pilot) &&
                      plane.name == zel::arrayText(career.pilot(plane.pilot).name);
           });
}

} // namespace

void RecordOrders::takeUp(SqliteFile& file, const Database& career, int32_t date) {
    const int32_t last = lastUnreported(file);
    orders.reset();
    voidDay = last != date ? last : 0;
    if (voidDay > date)
        logVoidOrders(voidDay, zel::String("the career is at ") + date);
    std::optional<MissionOrders> found = readOrders(file, date);
    if (!found)
        return;
    if (!canBeOf(career, found->planes)) {
        voidDay = date;
        return logVoidOrders(voidDay, "their pilots aren't those of the career");
    }
    found->careerNumber = career.careerNumber;
    orders = std::make_shared<const MissionOrders>(std::move(*found));
}

void RecordOrders::replace(MissionOrders newOrders) {
    orders = std::make_shared<const MissionOrders>(std::move(newOrders));
    voidDay = 0;
}

std::shared_ptr<const MissionOrders> RecordOrders::out(const Database& career) const {
    const bool areOut = orders != nullptr && orders->careerNumber == career.careerNumber &&
                        orders->date == career.calendar().dateNumber();
    return areOut ? orders : nullptr;
}

int32_t RecordOrders::voidDate(const Database& career) const {
    return orders != nullptr && out(career) == nullptr ? orders->date : voidDay;
}

void RecordOrders::save(SqliteFile& file, int32_t lastSaved) const {
    cutOrders(file, lastSaved);
    write(file);
}

void RecordOrders::write(SqliteFile& file) const {
    if (orders != nullptr)
        writeOrders(file, *orders);
}

bool RecordOrders::commit(SqliteFile& file) const {
    file.rollback();
    beginRecord(file);
    write(file);
    return file.commit();
}
