#include "engine/menu/style/LayoutImage.h"
#include "fuzz/FuzzFile.h"
#include "tests/engine/graphics/Pictures.h"

namespace {

/// Two pixels: black, and the colour of the first element that has one.
zel::BitmapData pictureOf(const zel::LayoutIndex& index) {
    zel::BitmapData picture = plainPicture(2, 1, 3, 0);
    for (const zel::PaintedElement& element : index.elements)
        if (element.color) {
            for (int channel = 0; channel < 3; ++channel)
                picture.pixels[3 + static_cast<size_t>(channel)] =
                    static_cast<uint8_t>(*element.color >> (16 - 8 * channel));
            break;
        }
    return picture;
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    zel::disableLogging();
    const zel::LayoutIndex index = zel::parseLayoutIndex(asText(data, size), "fuzzed.idx");
    require(index.width >= 0 && index.height >= 0, "no resolution below 0");
    std::vector<uint32_t> colors;
    for (const zel::PaintedElement& element : index.elements) {
        require(!element.definition.name.empty(), "an element has a name");
        if (!element.color)
            continue;
        require(*element.color <= 0xFFFFFF, "a colour without alpha");
        colors.push_back(*element.color);
    }
    const auto boxes = zel::findBoxes(pictureOf(index), colors);
    require(boxes.size() == colors.size(), "a box for each colour");
    require(boxes.empty() || boxes[0].isFound, "the colour that was painted is found");
    return 0;
}
