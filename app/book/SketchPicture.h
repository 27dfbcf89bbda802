#pragma once

#include <string>

#include "app/book/Sketch.h"
#include "engine/core/String.h"

/// A fight on a small map, for the web page: an SVG element with title and description.
std::string sketchPicture(const Sketch& sketch, const zel::String& title,
                          const zel::String& described);
