#pragma once

#include <cerrno>
#include <string>

#include "engine/core/String.h"

/// What the sources of the POSIX side share.
namespace zel::system {

/// A path with slashes.
std::string withSlashes(const String& path);
/// The path as the system knows it: each component that exists is matched exactly or, failing
/// that, without regard to case. Components that don't exist stay as written.
std::string nativePath(const String& path);

/// A system call, repeated when a signal interrupts it.
template <typename Call> auto uninterrupted(const Call& call) {
    auto result = call();
    while (result == -1 && errno == EINTR)
        result = call();
    return result;
}

/// Keeps the reason for a failure during the cleanup after it.
class KeptReason {
public:
    KeptReason() = default;
    ~KeptReason() { errno = reason; }
    KeptReason(const KeptReason&) = delete;
    KeptReason& operator=(const KeptReason&) = delete;

private:
    int reason = errno;
};

/// Both keep errno.
void closeQuietly(int file);
void unlinkQuietly(const std::string& path);

} // namespace zel::system
