#include "engine/menu/style/LayoutImage.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <unordered_map>

#include "engine/core/File.h"
#include "engine/core/Log.h"
#include "engine/core/LogPlace.h"
#include "engine/core/TextEncoding.h"
#include "engine/core/TextLines.h"
#include "engine/graphics/Bitmap.h"
#include "engine/graphics/ImageIndex.h"

namespace zel {

namespace {

constexpr const char* LayoutImageCategory = "LayoutHandler";
constexpr uint32_t ColorMask = 0x00FFFFFF;
constexpr uint32_t NoColor = 0xFF000000; // matches no pixel
constexpr size_t MostElements = 4096;

/// Interprets the lines of an index in order.
class IndexReader {
public:
    explicit IndexReader(const String& fileName) : fileName(fileName) {}

    void take(const String& line);
    LayoutIndex result;

private:
    PaintedElement* current() { return hasElement ? &result.elements.back() : nullptr; }
    bool begin(const std::vector<String>& words, bool isTextArea);
    void pickColor(const std::vector<String>& words);
    bool takeElementLine(const String& keyword, const std::vector<String>& words);
    void fail(const char* what) {
        log(String("loadLayout index ") + fileName + " " + what, LayoutImageCategory, LogError);
    }

    const String& fileName;
    bool hasElement = false; // whether lines apply to the last element: its own line had no fault
};

int32_t numberAt(const std::vector<String>& words, size_t index) {
    return index < words.size() ? parseCoordinate(words[index]) : 0;
}

Scroll scrollOf(const std::vector<String>& words) {
    return {numberAt(words, 1), numberAt(words, 2),
            static_cast<float>(std::max(0, numberAt(words, 3)))};
}

void IndexReader::take(const String& line) {
    const std::vector<String> words = splitWords(line);
    if (words.empty())
        return;
    const String keyword = words[0].toLower();
    bool isKnown = true;
    if (keyword == "widget" || keyword == "textarea") {
        isKnown = begin(words, keyword == "textarea");
    } else if (keyword == "pickcolor") {
        pickColor(words);
    } else if (keyword == "resolution") {
        result.width = std::max(0, numberAt(words, 1));
        result.height = std::max(0, numberAt(words, 2));
    } else {
        isKnown = keyword == "layout" || takeElementLine(keyword, words);
    }
    if (!isKnown)
        log(String("Unknown line ") + line, LayoutImageCategory, LogError);
}

bool IndexReader::begin(const std::vector<String>& words, bool isTextArea) {
    hasElement = words.size() > 1 && result.elements.size() < MostElements;
    if (!hasElement)
        return false;
    PaintedElement element;
    element.isTextArea = isTextArea;
    element.line = LogPlace::current()->getLine();
    element.definition.name = words[1];
    if (isTextArea)
        element.definition.kind = "textarea";
    result.elements.push_back(std::move(element));
    return true;
}

void IndexReader::pickColor(const std::vector<String>& words) {
    constexpr size_t Length = 7; // "#" and six digits
    const std::string_view word = words.size() > 1 ? words[1].view() : std::string_view();
    const std::optional<uint32_t> color = parseColor(word);
    if (current() == nullptr)
        fail("pickcolor without element");
    else if (word.empty() || word.front() != '#')
        fail("pickcolor must start with #");
    else if (word.size() != Length || !color)
        fail("pickcolor expects # with a 6-digit hex");
    else
        current()->color = *color & ColorMask;
}

bool IndexReader::takeElementLine(const String& keyword, const std::vector<String>& words) {
    PaintedElement* element = current();
    if (element == nullptr)
        return false;
    if (keyword == "scrollin") {
        element->definition.scrollIn = scrollOf(words);
        return true;
    }
    if (keyword == "scrollout") {
        element->definition.scrollOut = scrollOf(words);
        return true;
    }
    if (keyword != "align" && keyword != "alignment")
        return false;
    const std::optional<int32_t> bits =
        words.size() > 1 ? alignmentOfWord(words[1], false) : std::nullopt;
    if (bits)
        element->definition.alignment = *bits;
    return bits.has_value();
}

/// Extends a box by a run of pixels.
void extend(PaintedBox& box, int32_t fromX, int32_t toX, int32_t y) {
    PixelRect& rect = box.rect; // until the end width and height hold the far edges
    if (!box.isFound)
        rect = {fromX, y, toX, y};
    box.isFound = true;
    rect.x = std::min(rect.x, fromX);
    rect.width = std::max(rect.width, toX);
    rect.height = y;
}

/// Calls function(pixel, from x, to x) for each run of equal pixels.
template <typename Function>
void forEachRun(const std::vector<uint32_t>& line, const Function& function) {
    const auto width = static_cast<int32_t>(line.size());
    for (int32_t from = 0, next = 0; from < width; from = next) {
        while (next < width && line[next] == line[from])
            ++next;
        function(line[from], from, next - 1);
    }
}

int32_t scaled(int32_t length, float factor) {
    return static_cast<int32_t>(std::lround(static_cast<float>(length) * factor));
}

void define(const PaintedElement& element, const PaintedBox& box, float scaleX, float scaleY,
            Layout& layout) {
    ElementDefinition definition = element.definition;
    definition.rect = {scaled(box.rect.x, scaleX), scaled(box.rect.y, scaleY),
                       scaled(box.rect.width, scaleX), scaled(box.rect.height, scaleY)};
    auto& list = element.isTextArea ? layout.textAreas : layout.widgets;
    list[definition.name] = std::move(definition);
}

void logScale(const LayoutIndex& index, float scaleX, float scaleY) {
    log(String("Resolution: ") + index.width + "x" + index.height, LayoutImageCategory, LogInfo);
    log(String("Scale: ") + formatFloat(scaleX) + "x" + formatFloat(scaleY), LayoutImageCategory,
        LogInfo);
}

/// Defines what is found in the image, and logs what isn't.
void addPainted(const LayoutIndex& index, const String& indexFile, const Bitmap& image,
                Layout& layout) {
    float scaleX = 1.0F;
    float scaleY = 1.0F;
    if (index.width > 0 && index.height > 0) {
        scaleX = static_cast<float>(index.width) / static_cast<float>(image.width());
        scaleY = static_cast<float>(index.height) / static_cast<float>(image.height());
        logScale(index, scaleX, scaleY);
    }
    std::vector<uint32_t> colors;
    for (const PaintedElement& element : index.elements)
        colors.push_back(element.color.value_or(NoColor));
    const std::vector<PaintedBox> boxes = findBoxes(image.getData(), colors);
    for (size_t i = 0; i < boxes.size(); ++i) {
        const LogPlace place(indexFile, index.elements[i].line);
        if (boxes[i].isFound)
            define(index.elements[i], boxes[i], scaleX, scaleY, layout);
        else
            log(String("layout=") + layout.name + " element=" + index.elements[i].definition.name +
                    " defined, but not found in layout image",
                LayoutImageCategory, LogWarning);
    }
}

} // namespace

LayoutIndex parseLayoutIndex(std::string_view text, const String& fileName) {
    IndexReader reader(fileName);
    forEachNumberedLine(text, [&](std::string_view line, int32_t number) {
        const LogPlace place(fileName, number);
        reader.take(trimmed(line, ' '));
    });
    return std::move(reader.result);
}

// Painted rectangles make long runs of one colour, so it is looked up only where it changes; and
// most lines are equal to the line above, so they only extend the boxes that were found in it.
std::vector<PaintedBox> findBoxes(const BitmapData& picture, const std::vector<uint32_t>& colors) {
    std::vector<PaintedBox> boxes(colors.size());
    std::unordered_map<uint32_t, size_t> first; // box of each colour
    for (size_t i = 0; i < colors.size(); ++i)
        first.emplace(colors[i], i);
    std::vector<uint32_t> line(picture.pictureWidth);
    const size_t lineSize = line.size() * static_cast<size_t>(picture.depth);
    std::vector<size_t> found; // boxes in the last line that was read, perhaps more than once
    for (int32_t y = 0; y < picture.pictureHeight; ++y) {
        if (y > 0 && std::memcmp(picture.line(y), picture.line(y - 1), lineSize) == 0) {
            for (const size_t box : found)
                boxes[box].rect.height = y;
            continue;
        }
        found.clear();
        picture.lineArgb(y, line.data());
        forEachRun(line, [&](uint32_t pixel, int32_t fromX, int32_t toX) {
            const auto known = pixel >> 24 == 0 ? first.end() : first.find(pixel & ColorMask);
            if (known == first.end())
                return;
            extend(boxes[known->second], fromX, toX, y);
            found.push_back(known->second);
        });
    }
    for (PaintedBox& box : boxes) {
        box.rect.width += 1 - box.rect.x;
        box.rect.height += 1 - box.rect.y;
    }
    for (size_t i = 0; i < colors.size(); ++i)
        boxes[i] = boxes[first.at(colors[i])];
    return boxes;
}

void loadLayoutImage(const String& imageFile, Layout& layout) {
    Bitmap image;
    if (!image.load(imageFile, false)) {
        log(String("loadLayout image ") + imageFile + " failed: " + image.getError(),
            LayoutImageCategory, LogError);
        return;
    }
    const String indexFile = imageIndexName(imageFile);
    std::string text;
    if (!readTextFile(indexFile, MaxIndexSize, text)) {
        log(String("loadLayout index ") + indexFile + " failed", LayoutImageCategory, LogError);
        return;
    }
    addPainted(parseLayoutIndex(text, indexFile), indexFile, image, layout);
}

} // namespace zel
