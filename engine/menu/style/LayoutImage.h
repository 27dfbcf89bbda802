#pragma once

#include <optional>
#include <vector>

#include "engine/menu/style/Layout.h"

namespace zel {

struct BitmapData;

/// An element of a drawn layout: its definition, and the colour that it is painted in.
struct PaintedElement {
    ElementDefinition definition;
    bool isTextArea = false;
    std::optional<uint32_t> color; // 00RRGGBB; without one it is never found
    int32_t line = 0;              // of the index that begins it
};

/// The text file of a layout image.
struct LayoutIndex {
    std::vector<PaintedElement> elements;
    int32_t width = 0, height = 0; // design resolution; 0 if not given
};

/// Reads an index. Faults are logged at their LogPlace, and their lines skipped.
LayoutIndex parseLayoutIndex(std::string_view text, const String& fileName);

/// The bounding box of a colour, in pixels of the image from its upper left corner.
struct PaintedBox {
    bool isFound = false;
    PixelRect rect;
};
/// The bounding boxes of the colours (00RRGGBB), one each; equal colours get equal boxes.
/// Transparent pixels don't count.
std::vector<PaintedBox> findBoxes(const BitmapData& picture, const std::vector<uint32_t>& colors);

/// Adds the elements of a drawn layout, image and index, to the layout. On error: log lines.
void loadLayoutImage(const String& imageFile, Layout& layout);

} // namespace zel
