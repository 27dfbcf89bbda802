#pragma once

#include "engine/core/String.h"

struct RecordGap;

/// The period that the record lacks, in the language in use.
zel::String recordGapText(const RecordGap& gap);
