#include "engine/graphics/ImageHandler.h"

#include <algorithm>

#include "engine/core/File.h"
#include "engine/core/Log.h"
#include "engine/core/TextEncoding.h"
#include "engine/graphics/Canvas.h"

namespace zel {

namespace {

constexpr int64_t MostPixelBytes = 192 << 20; // kept for screens that come again

/// False if there is no index file; one that can't be read counts as empty.
bool readIndex(const String& bitmapName, int32_t lifetime, float scale, ImageIndex& index) {
    const String name = imageIndexName(bitmapName);
    if (!File::exists(name))
        return false;
    std::string text;
    if (!readTextFile(name, MaxIndexSize, text))
        log("Cannot read " + name, "ImageHandler", LogError);
    else
        index = parseImageIndex(text, lifetime, scale);
    return true;
}

} // namespace

ImageHandler& ImageHandler::getInstance() {
    static ImageHandler handler;
    return handler;
}

bool ImageHandler::loadBitmap(const String& fileName, int32_t lifetime, float scale) {
    if (const auto known = bitmaps.find(fileName); known != bitmaps.end()) {
        LoadedBitmap& again = *known->second;
        again.bitmap.refresh(); // now, not in the first frame that draws it
        again.left = ++leftCount;
        return again.bitmap.isLoaded();
    }
    if (failedBitmaps.count(fileName) != 0)
        return false;
    auto loaded = std::make_unique<LoadedBitmap>();
    if (!loaded->bitmap.loadFollowing(fileName, (flags & ImageFlagPowerOfTwo) != 0)) {
        failedBitmaps.insert(fileName);
        return false;
    }
    loaded->lifetime = lifetime;
    loaded->left = ++leftCount;
    ImageIndex index;
    const bool hasIndex = readIndex(fileName, lifetime, scale, index);
    if (!hasIndex) {
        ImageDescription whole;
        whole.name = fileName;
        whole.frames.push_back(WholeBitmap);
        whole.imageScale = scale;
        whole.lifetime = lifetime;
        index.images.push_back(std::move(whole));
    }
    registerIndex(*loaded, index);
    bitmaps[fileName] = std::move(loaded);
    log("Loaded bitmap " + fileName + (hasIndex ? "" : " (no .idx file)"), "ImageHandler", LogInfo);
    return true;
}

void ImageHandler::registerIndex(LoadedBitmap& loaded, const ImageIndex& index) {
    for (const ImageDescription& description : index.images) {
        loaded.lifetime = std::max(loaded.lifetime, description.lifetime);
        registerImage(loaded.bitmap, description);
    }
    for (const GroupDescription& description : index.groups)
        groups[description.name].description = description;
}

void ImageHandler::registerImage(const Bitmap& bitmap, const ImageDescription& description) {
    images.push_back(std::make_unique<Image>(bitmap, description));
    imagesByName[description.name] = images.back().get();
    if (description.groupName.empty())
        return;
    ImageGroup& group = groups[description.groupName];
    group.description.name = description.groupName;
    group.description.members.push_back(description.name);
}

const Image* ImageHandler::find(const String& name) const {
    const auto found = imagesByName.find(name);
    return found != imagesByName.end() ? found->second : nullptr;
}

const Image* ImageHandler::getImage(const String& name) {
    const Image* image = find(name);
    if (image == nullptr && queue.hasWork()) {
        queue.drain();
        image = find(name);
    }
    if (image != nullptr || missingImages.count(name) != 0)
        return image;
    if (!name.empty() && bitmaps.count(name) == 0 && File::exists(name) && loadBitmap(name))
        image = find(name);
    if (image == nullptr) {
        missingImages.insert(name);
        log("Did not find image " + name, "ImageHandler", LogWarning);
    }
    return image;
}

const ImageGroup* ImageHandler::getImageGroup(const String& name) {
    if (groups.count(name) == 0)
        queue.drain();
    const auto found = groups.find(name);
    if (found == groups.end()) {
        log("Map did not find imagegroup " + name, "ImageHandler", LogWarning);
        return nullptr;
    }
    // Resolved now, since a member may have been loaded after the group.
    ImageGroup& group = found->second;
    group.images.clear();
    for (const String& member : group.description.members)
        if (const Image* image = find(member))
            group.images.push_back(image);
    return &group;
}

void ImageHandler::releaseShortLived() {
    std::vector<LoadedBitmap*> released;
    for (const auto& [name, loaded] : bitmaps) {
        if (loaded->lifetime != LifetimeShort || Canvas::getInstance().shows(loaded->bitmap))
            continue;
        if (loaded->bitmap.getTexture().handle != 0)
            loaded->left = ++leftCount;
        loaded->bitmap.dropTexture();
        released.push_back(loaded.get());
    }
    std::sort(released.begin(), released.end(),
              [](const LoadedBitmap* a, const LoadedBitmap* b) { return a->left < b->left; });
    for (const LoadedBitmap* loaded : released)
        if (Bitmap::systemMemory() > MostPixelBytes)
            loaded->bitmap.sleep();
}

void ImageHandler::clear() {
    queue.clear();
    groups.clear();
    imagesByName.clear();
    images.clear();
    bitmaps.clear();
    failedBitmaps.clear();
    missingImages.clear();
}

} // namespace zel
