#include "app/career/ChecksumAvx2.h"

#define XXH_INLINE_ALL
#include <xxhash.h>

// This file is compiled for AVX2. It includes nothing whose inline functions others share;
// otherwise the linker could give them this file's copies.
uint64_t hashWithAvx2(const void* bytes, size_t size) { return XXH3_64bits(bytes, size); }
