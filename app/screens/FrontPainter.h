#pragma once

#include <vector>

#include "app/screens/PencilSheet.h"

/// Draws one side's trench, a toothed line beside the front, as far as it is within width and
/// height. front: pixels. aside: offset in pixels, to the left when coming from the sea.
void paintTrench(PencilSheet& sheet, const std::vector<PencilSheet::Point>& front, float aside,
                 const PencilSheet::Ink& ink, PencilSheet::Point size);
