#pragma once

#include <cstdint>

namespace zel {

/// Bytes that can be read: a file, or a piece of one in memory.
class DataStream {
public:
    virtual ~DataStream() = default;
    /// Size of the buffer that holds the content, in bytes; 0 if none is held.
    virtual int32_t bufferSize() const = 0;
};

} // namespace zel
