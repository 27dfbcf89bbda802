#include "engine/graphics/Bitmap.h"

#include <memory>

#include "engine/core/Log.h"
#include "engine/core/System.h"
#include "engine/graphics/FormatANY.h"
#include "engine/graphics/FormatBMP.h"
#include "engine/graphics/FormatZEL.h"

namespace zel {

namespace {

int64_t systemTotal = 0;   // bytes of all pixel buffers
int64_t graphicsTotal = 0; // bytes of all textures
void (*releaseTexture)(uint32_t handle) = nullptr;

void accountSystem(int64_t change) {
    systemTotal += change;
    log("System memory usage changed by " + std::to_string(change) +
            " (Total usage: " + std::to_string(systemTotal) + ")",
        "SysMem", LogDebug);
}

void accountGraphics(int64_t change) {
    graphicsTotal += change;
    log("Graphics memory usage changed by " + std::to_string(change) +
            " (Total usage: " + std::to_string(graphicsTotal) + ")",
        "GfxMem", LogDebug);
}

int64_t bytes(const BitmapData& data) { return static_cast<int64_t>(data.pixels.size()); }

bool isSide(int32_t size) { return size >= 1 && size <= MaxPictureSide; }

bool isWhole(const BitmapData& data) {
    return isSide(data.width) && isSide(data.height) && isSide(data.pictureWidth) &&
           isSide(data.pictureHeight) && data.pictureWidth <= data.width &&
           data.pictureHeight <= data.height &&
           data.pixels.size() == data.rowSize() * static_cast<size_t>(data.height);
}

/// Reads the pixels. On error: false, and a log line.
bool readInto(BitmapReader& reader, const String& fileName, BitmapData& data) {
    log("Header of " + fileName + " detected as " + reader.format(), "Bitmap", LogDebug);
    const char* error = reader.readPixels(data);
    if (error != nullptr)
        log("Read error for " + fileName + ": " + error, "Bitmap", LogError);
    return error == nullptr;
}

/// Tries the readers in turn. Returns what is wrong; empty for nothing. The refusal of a header is
/// logged as an error only if no reader accepts the file.
String readPicture(const String& fileName, bool powerOfTwo, BitmapData& data) {
    const std::unique_ptr<BitmapReader> readers[] = {std::make_unique<FormatZEL>(powerOfTwo),
                                                     std::make_unique<FormatBMP>(powerOfTwo),
                                                     std::make_unique<FormatANY>(powerOfTwo)};
    std::vector<String> refusals;
    String fault = "no picture";
    for (const auto& reader : readers) {
        const char* error = reader->open(fileName);
        if (error == nullptr) {
            for (const String& refusal : refusals)
                log(refusal, "Bitmap", LogDebug);
            return readInto(*reader, fileName, data) ? String() : String("damaged");
        }
        refusals.push_back("Error for " + fileName + ": " + error);
        if (!reader->getFault().empty())
            fault = reader->getFault();
    }
    for (const String& refusal : refusals)
        log(refusal, "Bitmap", LogError);
    log(fileName + " is " + fault, "Bitmap", LogError);
    return fault;
}

uint32_t argb(const uint8_t* pixel, int32_t depth, ChannelOrder order) {
    const uint32_t alpha = depth == 4 ? pixel[3] : 255;
    const bool redFirst = order == ChannelOrder::Rgb;
    const uint32_t red = pixel[redFirst ? 0 : 2];
    const uint32_t blue = pixel[redFirst ? 2 : 0];
    return alpha << 24 | red << 16 | uint32_t(pixel[1]) << 8 | blue;
}

} // namespace

void BitmapData::lineArgb(int32_t y, uint32_t* result) const {
    const uint8_t* pixel = line(y);
    // One check per line, not per pixel: layouts read all pixels of a screen this way.
    if (depth == 4 && order == ChannelOrder::Rgb)
        for (int32_t x = 0; x < pictureWidth; ++x, pixel += 4)
            result[x] = argb(pixel, 4, ChannelOrder::Rgb);
    else if (order == ChannelOrder::Rgb)
        for (int32_t x = 0; x < pictureWidth; ++x, pixel += 3)
            result[x] = argb(pixel, 3, ChannelOrder::Rgb);
    else
        for (int32_t x = 0; x < pictureWidth; ++x, pixel += depth)
            result[x] = argb(pixel, depth, ChannelOrder::Bgr);
}

Bitmap::~Bitmap() { unload(); }

bool Bitmap::load(const String& fileName, bool powerOfTwo) {
    unload();
    name = fileName;
    if (!system::fileStatus(fileName).exists) {
        log("File " + fileName + " does not exist", "Bitmap", LogError);
        error = "no such file";
        return false;
    }
    if (!File::exists(fileName)) {
        log("Cannot open file " + fileName, "Bitmap", LogError);
        error = "it cannot be opened";
        return false;
    }
    BitmapData read;
    error = readPicture(fileName, powerOfTwo, read);
    return error.empty() && adopt(read, fileName);
}

bool Bitmap::assign(BitmapData newData, const String& newName) {
    unload();
    name = newName;
    if (newData.depth != 3 && newData.depth != 4) {
        log("Bitmap: illegal depth", "Bitmap", LogError);
        log("Illegal depth: " + String(newData.depth), "Bitmap", LogError);
        return false;
    }
    if (!isWhole(newData)) {
        log("Bitmap: illegal size of " + newName, "Bitmap", LogError);
        return false;
    }
    return adopt(newData, newName);
}

bool Bitmap::adopt(BitmapData& newData, const String& newName) {
    name = newName;
    data = std::move(newData);
    log("Loaded " + name, "System", LogInfo);
    accountSystem(bytes(data));
    return true;
}

void Bitmap::unload() {
    dropTexture();
    texture = {};
    if (!isLoaded())
        return;
    const int64_t size = bytes(data);
    data = {};
    accountSystem(-size);
    log("Unloaded " + name, "System", LogInfo);
}

uint32_t Bitmap::pixelAt(int32_t x, int32_t y) const {
    if (x < 0 || y < 0 || x >= data.pictureWidth || y >= data.pictureHeight)
        return 0;
    return argb(data.line(y) + size_t(x) * size_t(data.depth), data.depth, data.order);
}

void Bitmap::textureMade(uint32_t handle, uint32_t generation) const {
    dropTexture();
    texture.handle = handle;
    texture.generation = generation;
    log("Loaded " + name + " (depth: " + data.depth + ")", "System", LogInfo);
    accountGraphics(bytes(data));
}

void Bitmap::dropTexture() const {
    if (texture.handle != 0 && releaseTexture != nullptr)
        releaseTexture(texture.handle);
    textureLost();
}

void Bitmap::textureLost() const {
    if (texture.handle == 0)
        return;
    texture.handle = 0;
    accountGraphics(-bytes(data));
}

void Bitmap::setTextureRelease(void (*release)(uint32_t handle)) { releaseTexture = release; }
int64_t Bitmap::systemMemory() { return systemTotal; }
int64_t Bitmap::graphicsMemory() { return graphicsTotal; }

} // namespace zel
