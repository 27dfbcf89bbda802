#pragma once

#include <cstddef>
#include <cstdint>

/// The 64-bit XXH3 hash of the bytes, in about half the time of the code that runs on every
/// processor. REQUIRES: a processor with AVX2.
uint64_t hashWithAvx2(const void* bytes, size_t size);
