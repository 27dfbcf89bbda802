#include "engine/graphics/BitmapLoadingQueue.h"

#include <algorithm>

#include "engine/core/File.h"
#include "engine/core/Log.h"
#include "engine/graphics/ImageHandler.h"

namespace zel {

void BitmapLoadingQueue::add(const String& fileName, int32_t lifetime, float scale) {
    const bool waits =
        std::any_of(entries.begin(), entries.end(),
                    [&fileName](const QueuedBitmap& entry) { return entry.fileName == fileName; });
    if (!waits)
        entries.push_back({fileName, lifetime, scale});
}

void BitmapLoadingQueue::step() {
    if (entries.empty())
        return;
    const QueuedBitmap entry = entries.front();
    entries.pop_front();
    if (!File::exists(entry.fileName)) {
        log(entry.fileName + " is in the queue but does not exist", "BitmapLoadingQueue",
            LogWarning);
        return;
    }
    log(entry.fileName + " is in the queue and exists", "BitmapLoadingQueue", LogInfo);
    // The bitmap logs what is wrong with the file.
    static_cast<void>(
        ImageHandler::getInstance().loadBitmap(entry.fileName, entry.lifetime, entry.scale));
}

void BitmapLoadingQueue::drain() {
    while (hasWork())
        step();
}

} // namespace zel
