#pragma once

#include <map>
#include <memory>
#include <set>
#include <vector>

#include "engine/graphics/BitmapLoadingQueue.h"
#include "engine/graphics/Image.h"

namespace zel {

/// Bits of the global flags; others are stored without effect.
constexpr int32_t ImageFlagPowerOfTwo = 1;

/// All bitmaps and named images of the program. Main thread only.
///
/// Bitmaps, images and groups live until clear(); pointers to them are valid until then.
class ImageHandler {
public:
    static ImageHandler& getInstance();

    /// The flags above, for bitmaps that are loaded later.
    void setFlags(int32_t mask) { flags = mask; }
    int32_t getFlags() const { return flags; }

    /// Loads a bitmap and its index file (same name, ending ".idx"), and registers the images that
    /// it names; without an index file the bitmap is one image of its own name. A bitmap is loaded
    /// only once, and one that failed isn't tried again. If its pixels were freed since, they are
    /// read again, and are the last to be freed. lifetime and scale apply until the index file sets
    /// its own. On error: false, and once the bitmap's log lines.
    bool loadBitmap(const String& fileName, int32_t lifetime = LifetimeShort, float scale = 1);

    /// The image of that name, exactly as written. If it is unknown, the loading queue is worked
    /// off, and then a file of that name is loaded as a bitmap. On error: null and, once a name,
    /// "Did not find image NAME" (warning).
    const Image* getImage(const String& name);
    /// On error: null and "Map did not find imagegroup NAME" (warning).
    const ImageGroup* getImageGroup(const String& name);

    BitmapLoadingQueue& getQueue() { return queue; }

    /// Frees the textures of short-lived bitmaps that aren't on the screen, and of those that left
    /// it first the pixels too, as long as all pixels take more than 192 MB. They are made again
    /// when drawn again.
    void releaseShortLived();
    /// Drops everything, the queue's entries too, and forgets what could not be loaded.
    void clear();

private:
    struct LoadedBitmap {
        Bitmap bitmap;
        int32_t lifetime = LifetimeShort; // the longest of its images
        int32_t left = 0;                 // how many had left the screen, or were loaded, before it
    };
    const Image* find(const String& name) const;
    void registerIndex(LoadedBitmap& loaded, const ImageIndex& index);
    void registerImage(const Bitmap& bitmap, const ImageDescription& description);

    int32_t flags = 0;
    int32_t leftCount = 0;
    std::map<String, std::unique_ptr<LoadedBitmap>> bitmaps; // by file name
    std::vector<std::unique_ptr<Image>> images;              // all that were ever registered
    std::map<String, const Image*> imagesByName;             // the last one of each name
    std::map<String, ImageGroup> groups;
    std::set<String> failedBitmaps; // by file name
    std::set<String> missingImages; // names that were not found
    BitmapLoadingQueue queue;
};

} // namespace zel
