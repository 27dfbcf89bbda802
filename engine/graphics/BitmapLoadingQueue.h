#pragma once

#include <deque>

#include "engine/core/BackgroundWork.h"
#include "engine/core/String.h"

namespace zel {

/// Bitmaps to load in the background, one each frame. The image handler owns the only queue.
class BitmapLoadingQueue : public BackgroundWork {
public:
    /// Queues a bitmap file for the image handler, unless it is in the queue already.
    void add(const String& fileName, int32_t lifetime = 0, float scale = 1);
    bool hasWork() const override { return !entries.empty(); }
    /// Loads the first bitmap, if there is one. A missing file is a warning.
    void step() override;
    /// Loads all bitmaps of the queue.
    void drain();
    void clear() { entries.clear(); }

private:
    struct QueuedBitmap {
        String fileName;
        int32_t lifetime;
        float scale;
    };
    std::deque<QueuedBitmap> entries;
};

} // namespace zel
