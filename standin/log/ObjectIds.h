#pragma once

#include <cstdint>
#include <vector>

#include "engine/core/Random.h"

namespace standin {

/// The ids of a log's objects: planes, then their pilots' bodies, then the guns on the ground.
class ObjectIds {
public:
    /// Draws all ids.
    ObjectIds(int32_t planes, int32_t guns, zel::Random& random);

    /// The id of an object, by its number: planes, bodies, guns.
    int32_t of(int32_t object) const { return ids[object]; }
    /// An id that no object has, for a formation: one less than a multiple of 1024, like the
    /// planes' ids. It isn't recorded, so two calls may return the same.
    int32_t drawFree();

private:
    std::vector<int32_t> ids;
    zel::Random& random;
};

} // namespace standin
