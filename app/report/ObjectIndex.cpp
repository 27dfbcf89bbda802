#include "app/report/ObjectIndex.h"

#include <algorithm>

namespace {

constexpr int32_t FirstBits = 6; // 64 slots

uint32_t hashOf(int32_t id) { return uint32_t(id) * 2654435769U; } // ids are near each other

} // namespace

int32_t ObjectIndex::find(int32_t id) {
    if (known != records.size())
        addRecords();
    const Slot* slot = slotOf(id);
    if (slot == nullptr || id < 0)
        return None;
    return int32_t(std::min(uint32_t(slot->plane), uint32_t(slot->body))); // None is the largest
}

int32_t ObjectIndex::findPlane(int32_t id) {
    if (known != records.size())
        addRecords();
    const Slot* slot = slotOf(id);
    return slot != nullptr ? slot->plane : None;
}

void ObjectIndex::setBody(int32_t record, int32_t body) {
    addRecords();
    const int32_t before = records[record].bodyId;
    records[record].bodyId = body;
    if (Slot& slot = makeSlot(before); before >= 0 && slot.body == record) {
        slot.body = None;
        for (int32_t next = 0; sharesBodies && next < int32_t(records.size()); ++next)
            if (records[next].bodyId == before)
                addBody(next);
    }
    addBody(record);
}

void ObjectIndex::clear() {
    slots.clear();
    known = used = 0;
    sharesBodies = false;
}

/// The slot of that id; null if there is none.
const ObjectIndex::Slot* ObjectIndex::slotOf(int32_t id) const {
    if (slots.empty())
        return nullptr;
    const size_t mask = slots.size() - 1;
    for (size_t at = hashOf(id) >> shift; slots[at].isUsed; at = (at + 1) & mask)
        if (slots[at].id == id)
            return &slots[at];
    return nullptr;
}

ObjectIndex::Slot& ObjectIndex::makeSlot(int32_t id) {
    if (2 * (used + 1) > slots.size())
        grow();
    const size_t mask = slots.size() - 1;
    size_t at = hashOf(id) >> shift;
    while (slots[at].isUsed && slots[at].id != id)
        at = (at + 1) & mask;
    if (!slots[at].isUsed) {
        slots[at] = {id, None, None, true};
        ++used;
    }
    return slots[at];
}

void ObjectIndex::grow() {
    std::vector<Slot> before = std::move(slots);
    shift = before.empty() ? 32 - FirstBits : shift - 1;
    slots.assign(size_t(1) << (32 - shift), Slot());
    used = 0;
    for (const Slot& slot : before)
        if (slot.isUsed)
            makeSlot(slot.id) = slot;
}

void ObjectIndex::addRecords() {
    if (known > records.size())
        clear();
    for (; known < records.size(); ++known) {
        const auto record = int32_t(known);
        if (Slot& slot = makeSlot(records[record].planeId); slot.plane == None)
            slot.plane = record;
        addBody(record);
    }
}

/// The first record with a body keeps it.
void ObjectIndex::addBody(int32_t record) {
    if (records[record].bodyId < 0)
        return; // it is not known yet
    Slot& slot = makeSlot(records[record].bodyId);
    sharesBodies = sharesBodies || (slot.body != None && slot.body != record);
    if (slot.body == None || record < slot.body)
        slot.body = record;
}
