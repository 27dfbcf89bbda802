#pragma once

#include <string_view>

/// The kind of the widget that shows the names of a base's sector on the office's map. Null for a
/// base that has no sheet.
const char* sheetOfBase(std::string_view baseName);
