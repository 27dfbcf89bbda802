#pragma once

#include "engine/core/String.h"

struct RecordGap;

/// From when to when the record is empty, in the language in use.
zel::String recordGapText(const RecordGap& gap);
