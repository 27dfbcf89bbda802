#include "engine/graphics/FormatBMP.h"
#include "fuzz/BitmapFuzz.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    return fuzzReader<zel::FormatBMP>(data, size);
}
