#include "standin/log/ObjectIds.h"

#include <algorithm>

namespace standin {

ObjectIds::ObjectIds(int32_t planes, int32_t guns, zel::Random& random) : random(random) {
    for (int32_t plane = 0; plane < planes; ++plane)
        ids.push_back(drawFree());
    // A body's id is usually its plane's plus 1024, but not always: a reader must not rely on it.
    for (int32_t plane = 0; plane < planes; ++plane) {
        const int32_t usual = ids[plane] + 1024;
        const bool isFree = std::find(ids.begin(), ids.end(), usual) == ids.end();
        const bool wanted = random.getInt(1, 100) <= 80;
        ids.push_back(isFree && wanted ? usual : drawFree());
    }
    for (int32_t gun = 0; gun < guns; ++gun)
        ids.push_back(drawFree() + 1);
}

int32_t ObjectIds::drawFree() {
    int32_t drawn = 0;
    do
        drawn = random.getInt(10, 2400) * 1024 - 1;
    while (std::find(ids.begin(), ids.end(), drawn) != ids.end());
    return drawn;
}

} // namespace standin
