#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "app/war/Enlistment.h"
#include "engine/core/String.h"

class BookTables;
class Database;

/// What the commands that begin a career ask for.
struct CareerStart {
    int32_t service = 0;                                // a Service
    int32_t year = 0;                                   // 1915 to 1918
    int32_t month = 0;                                  // 1 to 12
    std::optional<zel::String> name = std::nullopt;     // of the pilot; without one it is drawn
    std::optional<zel::String> squadron = std::nullopt; // its key; without one the service chooses
};

/// What is wrong with a name, in English; empty for a name that is right.
zel::String nameProblem(const NameCheck& check);
/// Creates that career, and returns in `enlistment` how to begin its service. Empty if it worked;
/// on error the reason, in English, and a career that must not be used.
zel::String createCareer(Database& career, const BookTables& tables, const CareerStart& start,
                         Enlistment& enlistment);
/// A line for each squadron that can be chosen: its key, name, type and known pilot. Reads the data
/// files again and leaves the career as it is.
std::vector<zel::String> squadronsOf(Database& career, const BookTables& tables,
                                     const CareerStart& start);
