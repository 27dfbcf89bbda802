#include "engine/graphics/Bitmap.h"

#include <array>
#include <memory>

#include "engine/core/Log.h"
#include "engine/core/System.h"
#include "engine/graphics/FormatANY.h"
#include "engine/graphics/FormatBMP.h"
#include "engine/graphics/FormatZEL.h"
#include "engine/graphics/PictureDetail.h"

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

int32_t nextPowerOfTwo(int32_t size) {
    int32_t power = 1;
    while (power < size)
        power *= 2;
    return power;
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

std::array<std::unique_ptr<BitmapReader>, 3> readersOf(bool powerOfTwo) {
    return {std::make_unique<FormatZEL>(powerOfTwo), std::make_unique<FormatBMP>(powerOfTwo),
            std::make_unique<FormatANY>(powerOfTwo)};
}

void logRefusals(const std::vector<String>& refusals, int32_t level) {
    for (const String& refusal : refusals)
        log(refusal, "Bitmap", level);
}

/// Tries the readers in turn. Returns what is wrong; empty for nothing. The refusals of headers are
/// logged as errors only if no reader accepts the file, nor knows it well enough to say why not.
String readPicture(const String& fileName, bool powerOfTwo, BitmapData& data) {
    std::vector<String> refusals;
    String fault;
    for (const auto& reader : readersOf(powerOfTwo)) {
        const char* error = reader->open(fileName);
        if (error == nullptr) {
            logRefusals(refusals, LogDebug);
            return readInto(*reader, fileName, data) ? String() : String("damaged");
        }
        refusals.push_back("Error for " + fileName + ": " + error);
        if (!reader->getFault().empty())
            fault = reader->getFault();
    }
    logRefusals(refusals, fault.empty() ? LogError : LogDebug);
    if (fault.empty())
        fault = "not a picture";
    log(fileName + " is " + fault, "Bitmap", LogError);
    return fault;
}

/// Reads the file. Returns what is wrong; empty for nothing. Everything is logged.
String readFile(const String& fileName, bool powerOfTwo, BitmapData& data) {
    if (!system::fileStatus(fileName).exists) {
        log("File " + fileName + " does not exist", "Bitmap", LogError);
        return "no such file";
    }
    if (!File::exists(fileName)) {
        log("Cannot open file " + fileName, "Bitmap", LogError);
        return "it cannot be opened";
    }
    return readPicture(fileName, powerOfTwo, data);
}

/// Reads the picture of twice the size. False if there is none; an unusable one is logged.
bool readDoubled(const String& fileName, BitmapData& data) {
    const String doubled = PictureDetail::doubledName(fileName);
    if (!system::fileStatus(doubled).exists || !readFile(doubled, false, data).empty())
        return false;
    const String fault =
        PictureDetail::doubledFault({data.pictureWidth, data.pictureHeight}, fileName);
    if (!fault.empty()) {
        log(doubled + " " + fault, "Bitmap", LogError);
        return false;
    }
    data.detail = PictureDetail::Doubled;
    return true;
}

uint32_t argb(const uint8_t* pixel, int32_t depth, ChannelOrder order) {
    const uint32_t alpha = depth == 4 ? pixel[3] : 255;
    const bool redFirst = order == ChannelOrder::Rgb;
    const uint32_t red = pixel[redFirst ? 0 : 2];
    const uint32_t blue = pixel[redFirst ? 2 : 0];
    return alpha << 24 | red << 16 | uint32_t(pixel[1]) << 8 | blue;
}

} // namespace

void BitmapData::allocate(int32_t newWidth, int32_t newHeight, int32_t newDepth, bool powerOfTwo) {
    pictureWidth = newWidth;
    pictureHeight = newHeight;
    width = powerOfTwo ? nextPowerOfTwo(newWidth) : newWidth;
    height = powerOfTwo ? nextPowerOfTwo(newHeight) : newHeight;
    depth = newDepth;
    pixels.assign(rowSize() * static_cast<size_t>(height), 0);
}

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

PictureSize pictureSizeOf(const String& fileName) {
    for (const auto& reader : readersOf(false))
        if (reader->open(fileName) == nullptr)
            return {reader->getWidth(), reader->getHeight()};
    return {};
}

Bitmap::~Bitmap() { unload(); }

bool Bitmap::load(const String& fileName, bool powerOfTwo) {
    unload();
    name = fileName;
    BitmapData read;
    error = readFile(fileName, powerOfTwo, read);
    return error.empty() && adopt(read);
}

bool Bitmap::loadFollowing(const String& fileName, bool powerOfTwo) {
    unload();
    name = fileName;
    isFile = true;
    return adoptFromSource([this, fileName, powerOfTwo](int32_t detail) {
        BitmapData read;
        if (detail < PictureDetail::Doubled || !readDoubled(fileName, read)) {
            read = {};
            error = readFile(fileName, powerOfTwo, read);
        }
        return read;
    });
}

bool Bitmap::assign(PixelSource newSource, const String& newName) {
    unload();
    name = newName;
    return adoptFromSource(std::move(newSource));
}

bool Bitmap::adoptFromSource(PixelSource newSource) {
    askedDetail = PictureDetail::get();
    BitmapData made = newSource(askedDetail);
    if (!isWhole(made))
        return false;
    source = std::move(newSource);
    PictureDetail::add(*this);
    return adopt(made);
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
    return adopt(newData);
}

/// The name in the log: the file that was read.
String Bitmap::loadedName() const {
    return isFile && data.detail > 1 ? PictureDetail::doubledName(name) : name;
}

bool Bitmap::adopt(BitmapData& newData) const {
    if (const int64_t before = bytes(data); before > 0)
        accountSystem(-before);
    data = std::move(newData);
    log("Loaded " + loadedName(), "System", LogInfo);
    accountSystem(bytes(data));
    return true;
}

void Bitmap::unload() {
    dropTexture();
    texture = {};
    if (source != nullptr)
        PictureDetail::remove(*this);
    source = nullptr;
    isFile = staysPlain = false;
    if (!isLoaded())
        return;
    const int64_t size = bytes(data);
    const String unloaded = loadedName();
    data = {};
    accountSystem(-size);
    log("Unloaded " + unloaded, "System", LogInfo);
}

bool Bitmap::isStale() const {
    return isLoaded() && source != nullptr && askedDetail != wantedDetail();
}

int32_t Bitmap::wantedDetail() const {
    return staysPlain ? PictureDetail::Plain : PictureDetail::get();
}

void Bitmap::refresh() const {
    if (source == nullptr || (!isStale() && !isAsleep()))
        return;
    if (!makeAgain() && isAsleep())
        data = {}; // or each drawing would try again
}

bool Bitmap::makePlain() const {
    if (source == nullptr || data.detail == PictureDetail::Plain)
        return false;
    staysPlain = true;
    return makeAgain();
}

bool Bitmap::makeAgain() const {
    askedDetail = wantedDetail();
    BitmapData made = source(askedDetail);
    if (!isWhole(made))
        return false;
    dropTexture();
    texture.refusedIn = 0;
    return adopt(made);
}

void Bitmap::sleep() const {
    if (source == nullptr || data.pixels.empty())
        return;
    dropTexture();
    const int64_t size = bytes(data);
    data.pixels = {};
    accountSystem(-size);
}

uint32_t Bitmap::pixelAt(int32_t x, int32_t y) const {
    if (isAsleep())
        refresh();
    if (x < 0 || y < 0 || x >= data.pictureWidth || y >= data.pictureHeight || data.pixels.empty())
        return 0;
    return argb(data.line(y) + size_t(x) * size_t(data.depth), data.depth, data.order);
}

void Bitmap::textureMade(uint32_t handle, uint32_t generation) const {
    dropTexture();
    texture.handle = handle;
    texture.generation = generation;
    texture.bytes = bytes(data);
    log("Loaded " + loadedName() + " (depth: " + data.depth + ")", "System", LogInfo);
    accountGraphics(texture.bytes);
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
    accountGraphics(-texture.bytes);
}

void Bitmap::setTextureRelease(void (*release)(uint32_t handle)) { releaseTexture = release; }
int64_t Bitmap::systemMemory() { return systemTotal; }
int64_t Bitmap::graphicsMemory() { return graphicsTotal; }

} // namespace zel
