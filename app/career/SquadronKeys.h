#pragma once

#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "app/career/Records.h"

/// Finds squadrons by the key of their data file. Holds views into the records, so it is valid
/// until one is added or its key changes.
class SquadronKeys {
public:
    explicit SquadronKeys(const std::vector<Squadron>& squadrons);
    /// Index of the first squadron of that key; -1 for none, and for an empty key.
    int32_t find(std::string_view key) const;

private:
    std::unordered_map<std::string_view, int32_t> indices;
};
