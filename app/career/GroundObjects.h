#pragma once

#include <string_view>

#include "app/career/Wording.h"

/// What the report calls an object on the ground, by its TYPE in the simulator's log. Null for
/// aeroplanes and for types that the table doesn't have.
const Wording* groundObject(std::string_view type);
