#pragma once

#include <cstdint>

namespace zel {

/// Bytes that can be read, of a file or of memory.
class DataStream {
public:
    virtual ~DataStream() = default;
    /// Size in bytes of the buffer that holds the content; 0 without one.
    virtual int32_t bufferSize() const = 0;
};

} // namespace zel
