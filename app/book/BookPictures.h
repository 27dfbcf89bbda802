#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "app/book/PilotRecord.h"

// Small drawings of the web page, as SVG elements.

/// The ribbon of the decoration of that key; empty for one without a ribbon.
std::string ribbonPicture(std::string_view key);
/// A machine for each victory, in fives, in rows as wide as the page.
std::string victoryPictures(const std::vector<Shape>& shapes, const zel::String& title);
