#include "engine/graphics/ImageIndex.h"

#include <algorithm>
#include <cmath>

#include "engine/core/TextLines.h"

namespace zel {

namespace {

constexpr int32_t MaxFrame = 4095;        // highest number of "animframe"
constexpr size_t MaxTransforms = 1 << 16; // of one file, default entries included
constexpr double MaxCoordinate = 32768;   // of a rectangle, either way

using Words = std::vector<std::string_view>;

std::string_view word(const Words& words, size_t index) {
    return index < words.size() ? words[index] : std::string_view();
}

float number(std::string_view text) {
    const float value = toFloat(text);
    return std::isfinite(value) ? value : 0;
}

float number(const Words& words, size_t index) { return number(word(words, index)); }
int32_t integer(const Words& words, size_t index) { return toInt(word(words, index)); }

/// A product as a coordinate of a rectangle.
int32_t coordinate(double value) {
    if (!std::isfinite(value))
        return 0;
    return static_cast<int32_t>(std::lround(std::clamp(value, -MaxCoordinate, MaxCoordinate)));
}

struct Parser {
    Parser(int32_t lifetime, float scale)
        : resolutionScale(std::isfinite(scale) ? scale : 1), lifetime(lifetime) {
        image.imageScale = resolutionScale;
    }

    void takeLine(std::string_view line);
    void finishImage();
    void finishGroup();

    ImageIndex index;

private:
    void beginImage(std::string_view name);
    void addFrame(FrameRect frame) { image.frames.push_back(frame); }
    void takeDims(const Words& words);
    void takeRasterDims(const Words& words);
    void takeRaster(const Words& words);
    void takeAnimationFrame(const Words& words);
    void beginGroup(const Words& words);
    void takeAnimation(const Words& words);
    void takeLifetime(std::string_view name);
    bool takePlacing(std::string_view keyword, const Words& words);

    float resolutionScale;
    int32_t lifetime;
    String prefix;
    String groupName;
    ImageDescription image;       // the one being built; without a name there is none
    GroupDescription group;       // likewise
    bool groupInProgress = false; // "animframe" goes to the group
    int32_t rasterX = 1, rasterY = 1, rasterW = 1, rasterH = 1;
    size_t transformCount = 0;
};

void Parser::finishImage() {
    if (!image.name.empty()) {
        if (image.frames.empty())
            image.frames.push_back(WholeBitmap);
        image.groupName = groupName;
        image.lifetime = lifetime;
        index.images.push_back(std::move(image));
    }
    image = {};
    image.imageScale = resolutionScale;
    groupInProgress = false;
}

void Parser::beginImage(std::string_view name) {
    finishImage();
    image.name = prefix + trimmed(name, ' ');
}

void Parser::takeDims(const Words& words) {
    const double factor = resolutionScale;
    FrameRect frame = {
        coordinate(integer(words, 0) * factor), coordinate(integer(words, 1) * factor),
        coordinate(integer(words, 2) * factor), coordinate(integer(words, 3) * factor)};
    const auto has = [&words](std::string_view option) {
        return std::any_of(words.begin(), words.end(), [option](std::string_view given) {
            return equalsNoCase(given, option);
        });
    };
    if (has("mirrorx")) {
        frame.x += frame.width;
        frame.width = -frame.width;
    }
    if (has("mirrory")) {
        frame.y += frame.height;
        frame.height = -frame.height;
    }
    addFrame(frame);
}

void Parser::takeRasterDims(const Words& words) {
    addFrame({coordinate(double(integer(words, 0)) * rasterX),
              coordinate(double(integer(words, 1)) * rasterY),
              coordinate(double(integer(words, 2)) * rasterW),
              coordinate(double(integer(words, 3)) * rasterH)});
}

void Parser::takeRaster(const Words& words) {
    const auto valueOr = [&words](size_t place, int32_t otherwise) {
        const int32_t value = integer(words, place);
        return value != 0 ? value : otherwise;
    };
    rasterX = integer(words, 0);
    rasterY = valueOr(1, rasterX);
    rasterW = valueOr(2, rasterX);
    rasterH = valueOr(3, rasterY);
}

void Parser::takeAnimationFrame(const Words& words) {
    const int32_t frame = integer(words, 0);
    if (frame < 0 || frame > MaxFrame)
        return;
    FrameTransform transform;
    const struct {
        std::string_view key;
        float& value;
    } fields[] = {{"tx=", transform.tx}, {"ty=", transform.ty}, {"a=", transform.a},
                  {"b=", transform.b},   {"c=", transform.c},   {"d=", transform.d}};
    for (const std::string_view given : words)
        for (const auto& field : fields)
            if (equalsNoCase(given.substr(0, field.key.size()), field.key)) {
                field.value = number(given.substr(field.key.size()));
                transform.used = true;
            }
    auto& transforms = groupInProgress ? group.transforms : image.transforms;
    const auto place = static_cast<size_t>(frame);
    if (place >= transforms.size()) {
        transformCount += place + 1 - transforms.size();
        if (transformCount > MaxTransforms)
            return;
        transforms.resize(place + 1);
    }
    transforms[place] = transform;
}

void Parser::finishGroup() {
    if (!group.name.empty())
        index.groups.push_back(std::move(group));
    group = {};
}

void Parser::beginGroup(const Words& words) {
    finishGroup();
    groupInProgress = true;
    group.name = String(word(words, 0));
    for (size_t i = 1; i < words.size(); ++i)
        if (!words[i].empty())
            group.members.emplace_back(words[i]);
}

// The group stays open until the next one, even if an image has been finished since.
void Parser::takeAnimation(const Words& words) {
    if (group.name.empty())
        return;
    group.animations.push_back(
        {String(word(words, 0)), integer(words, 1), integer(words, 2), number(words, 3)});
}

void Parser::takeLifetime(std::string_view name) {
    if (equalsNoCase(name, "short"))
        lifetime = LifetimeShort;
    else if (equalsNoCase(name, "long"))
        lifetime = LifetimeLong;
    else if (equalsNoCase(name, "persistent"))
        lifetime = LifetimePersistent;
}

/// Takes a line about how the image is drawn. False for any other keyword.
bool Parser::takePlacing(std::string_view keyword, const Words& words) {
    if (keyword == "position") {
        image.positionX = number(words, 0);
        image.positionY = number(words, 1);
    } else if (keyword == "scale") {
        image.scaleX = number(words, 0);
        image.scaleY = number(words, words.size() > 1 ? 1 : 0);
    } else if (keyword == "rotation") {
        image.rotation = number(words, 0);
    } else if (keyword == "handle") {
        image.handleX = number(words, 0);
        image.handleY = number(words, 1);
    } else {
        return false;
    }
    return true;
}

void Parser::takeLine(std::string_view line) {
    const size_t blank = std::min(line.find(' '), line.size());
    const String keyword = String(line.substr(0, blank)).toLower();
    const std::string_view rest = line.substr(std::min(blank + 1, line.size()));
    const Words words = splitAtBlanks(rest);
    if (keyword == "image")
        beginImage(rest);
    else if (keyword == "dims")
        takeDims(words);
    else if (keyword == "rdims")
        takeRasterDims(words);
    else if (keyword == "raster")
        takeRaster(words);
    else if (keyword == "animframe")
        takeAnimationFrame(words);
    else if (keyword == "imagegroup")
        beginGroup(words);
    else if (keyword == "animation")
        takeAnimation(words);
    else if (keyword == "group")
        groupName = String(trimmed(rest, ' '));
    else if (keyword == "lifetime")
        takeLifetime(word(words, 0));
    else if (keyword == "resolutionscale")
        resolutionScale = number(words, 0);
    else if (keyword == "prefix")
        prefix = String(trimmed(rest, ' '));
    else
        takePlacing(keyword.view(), words);
}

} // namespace

String imageIndexName(const String& pictureFile) {
    const std::string_view name = pictureFile.view();
    const size_t dot = name.find_last_of("./\\");
    const bool hasEnding = dot != name.npos && name[dot] == '.';
    return String(name.substr(0, hasEnding ? dot : name.size())) + ".idx";
}

ImageIndex parseImageIndex(std::string_view text, int32_t lifetime, float scale) {
    Parser parser(lifetime, scale);
    forEachLine(text, [&parser](std::string_view line) { parser.takeLine(line); });
    parser.finishImage();
    parser.finishGroup();
    return std::move(parser.index);
}

} // namespace zel
