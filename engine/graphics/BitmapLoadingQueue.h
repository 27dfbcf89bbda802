#pragma once

#include <deque>

#include "engine/core/BackgroundWork.h"
#include "engine/core/String.h"

namespace zel {

/// Bitmaps that are to be loaded in the background, one in each frame. The image handler owns the
/// one there is.
class BitmapLoadingQueue : public BackgroundWork {
public:
    /// Queues a bitmap file for the image handler. A file that waits already isn't queued twice.
    void add(const String& fileName, int32_t lifetime = 0, float scale = 1);
    bool hasWork() const override { return !entries.empty(); }
    /// Loads the bitmap in front, if there is one. A missing file is a warning.
    void step() override;
    /// Loads all that wait.
    void drain();
    void clear() { entries.clear(); }

private:
    struct Entry {
        String fileName;
        int32_t lifetime;
        float scale;
    };
    std::deque<Entry> entries;
};

} // namespace zel
