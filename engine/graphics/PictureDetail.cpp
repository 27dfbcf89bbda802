#include "engine/graphics/PictureDetail.h"

#include <algorithm>
#include <vector>

#include "engine/core/Log.h"
#include "engine/graphics/Bitmap.h"
#include "engine/graphics/Canvas.h"

namespace zel {

namespace {

constexpr float LeastScale = 1.3F;            // window pixels per design pixel
constexpr int32_t LeastMaximumTexture = 4096; // the longest side of the delivered pictures is 3588

// Never destroyed: bitmaps that live as long as the program leave it.
std::vector<const Bitmap*>& followers() {
    static auto* const bitmaps = new std::vector<const Bitmap*>;
    return *bitmaps;
}

/// Pictures of twice the size need a graphics card of this century.
int32_t wantedBy(const Canvas& canvas) {
    const bool isAble = canvas.isAttached() && canvas.takesAnyTextureSize() &&
                        canvas.getMaximumTextureSize() >= LeastMaximumTexture;
    return isAble ? PictureDetail::forScale(canvas.getGlobalScaleX()) : PictureDetail::Plain;
}

} // namespace

int32_t PictureDetail::present = Plain;
bool PictureDetail::isChanging = false;
int32_t PictureDetail::framesBefore = 0;

int32_t PictureDetail::forScale(float scale) { return scale >= LeastScale ? Doubled : Plain; }

void PictureDetail::follow() {
    const Canvas& canvas = Canvas::getInstance();
    if (const int32_t wanted = wantedBy(canvas); wanted != present) {
        log(String("Picture pixels per design pixel: ") + wanted, "PictureDetail", LogInfo);
        present = wanted;
        isChanging = true;
        framesBefore = canvas.getFramesSent();
    }
    // A new window shows nothing yet: its first frame says which pictures are needed first.
    if (!isChanging || (canvas.isAttached() && canvas.getFramesSent() == framesBefore))
        return;
    for (const Bitmap* bitmap : followers())
        if (bitmap->isStale() && canvas.shows(*bitmap)) {
            bitmap->refresh();
            return;
        }
    for (const Bitmap* bitmap : followers())
        if (bitmap->isStale())
            bitmap->sleep();
    isChanging = false;
}

String PictureDetail::doubledName(const String& pictureFile) {
    const std::string_view name = pictureFile.view();
    const size_t dot = name.find_last_of("./\\");
    const size_t end = dot != name.npos && name[dot] == '.' ? dot : name.size();
    return String(name.substr(0, end)) + "@2x" + String(name.substr(end));
}

String PictureDetail::doubledFault(const PictureSize& doubled, const String& pictureFile) {
    const PictureSize plain = pictureSizeOf(pictureFile);
    if (doubled.width == plain.width * Doubled && doubled.height == plain.height * Doubled)
        return {};
    return String("is ") + doubled.width + " x " + doubled.height + ", not twice as large as " +
           pictureFile;
}

void PictureDetail::add(const Bitmap& bitmap) { followers().push_back(&bitmap); }

void PictureDetail::remove(const Bitmap& bitmap) {
    std::vector<const Bitmap*>& bitmaps = followers();
    bitmaps.erase(std::remove(bitmaps.begin(), bitmaps.end(), &bitmap), bitmaps.end());
}

} // namespace zel
