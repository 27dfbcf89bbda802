#include "app/career/RecordAt.h"

#include "engine/core/Log.h"
#include "engine/core/String.h"

void logMissingRecord(const char* kind, int32_t index) {
    zel::log(zel::String("There is no ") + kind + " " + index, "Database", zel::LogError);
}
