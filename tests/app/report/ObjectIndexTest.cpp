#include "app/report/ObjectIndex.h"

#include <gtest/gtest.h>

#include "engine/core/Random.h"

namespace {

/// What the index must return, found by a search through all records.
int32_t searched(const std::vector<PilotReport>& records, int32_t id, bool planesOnly) {
    for (size_t i = 0; i < records.size(); ++i)
        if (records[i].planeId == id || (!planesOnly && records[i].bodyId == id))
            return planesOnly || id >= 0 ? int32_t(i) : -1;
    return -1;
}

// Few ids, so that planes and bodies share them and bodies are given twice; many records, so that
// the table grows.
TEST(ObjectIndex, FindsWhatASearchFinds) {
    zel::Random random(7);
    for (const int32_t mostId : {5, 60, 4000}) {
        std::vector<PilotReport> records;
        ObjectIndex objects(records);
        for (int32_t step = 0; step < 4000; ++step) {
            const int32_t id = random.getInt(-2, mostId);
            ASSERT_EQ(objects.find(id), searched(records, id, false)) << "id " << id;
            const int32_t plane = objects.findPlane(id);
            ASSERT_EQ(plane, searched(records, id, true)) << "plane " << id;
            if (plane < 0)
                records.emplace_back().planeId = id;
            else
                objects.setBody(plane, random.getInt(-2, mostId));
        }
        records.resize(1); // somebody else's records
        objects.clear();
        EXPECT_EQ(objects.find(records[0].bodyId), searched(records, records[0].bodyId, false));
    }
}

} // namespace
